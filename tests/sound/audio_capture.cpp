#include "audio_capture.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include "sound/sound.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

namespace {

std::string captureFolder, captureFile;

uint32_t littleEndian(const std::string& bytes, size_t at, int size)
{
    uint32_t value = 0;
    for (int i = size - 1; i >= 0; i--) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

}  // namespace

void routeAudioToCapture()
{
    const fs::path fixtures = fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/sound";
    fs::create_directories("content/sound");
    for (const char* name : {"tone.ogg", "tone_high.ogg", "loop.ogg"})
        fs::copy_file(fixtures / name, fs::path("content/sound") / name, fs::copy_options::overwrite_existing);
    if (!captureFolder.empty()) return;
    std::string pattern = (fs::temp_directory_path() / "gorvan-audio-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    captureFolder = pattern;
    captureFile = captureFolder + "/mix.wav";
    std::atexit([] {
        std::error_code ignored;
        fs::remove_all(captureFolder, ignored);
    });
    // 16-bit stereo at a low rate, mixed in short periods so that a pause or
    // a volume change reaches the file within about 12 ms.
    std::ofstream(captureFolder + "/alsoft.conf")
        << "drivers=wave\nsample-type=int16\nchannels=stereo\nfrequency=22050\nperiod_size=256\n"
           "hrtf=false\ndither=false\n[wave]\nfile=" << captureFile << "\n";
    setenv("ALSOFT_CONF", (captureFolder + "/alsoft.conf").c_str(), 1);
}

const std::string& capturePath() { return captureFile; }

CapturedAudio readCapture()
{
    CapturedAudio audio;
    const std::string bytes = readFileBytes(captureFile);
    int rate = 0;
    // The writer fills in the data size when it closes: read to the end either way.
    for (size_t at = 12; at + 8 <= bytes.size(); at += 8 + littleEndian(bytes, at + 4, 4)) {
        if (bytes.compare(at, 4, "fmt ") == 0) {
            audio.channels = static_cast<int>(littleEndian(bytes, at + 10, 2));
            rate = static_cast<int>(littleEndian(bytes, at + 12, 4));
        } else if (bytes.compare(at, 4, "data") == 0 && audio.channels > 0) {
            audio.samples.resize((bytes.size() - at - 8) / 2);
            std::memcpy(audio.samples.data(), bytes.data() + at + 8, audio.samples.size() * 2);
            break;
        }
    }
    const size_t perStretch = static_cast<size_t>(rate / 100 * audio.channels);
    for (size_t start = 0; perStretch > 0 && start + perStretch <= audio.samples.size(); start += perStretch) {
        auto loud = [](int16_t sample) { return std::abs(sample) >= 1000; };
        audio.sounding.push_back(std::any_of(&audio.samples[start], &audio.samples[start] + perStretch, loud));
    }
    return audio;
}

double CapturedAudio::soundingSeconds() const { return std::count(sounding.begin(), sounding.end(), true) * 0.01; }

std::vector<double> CapturedAudio::gapsInside() const
{
    std::vector<double> gaps;
    auto last = std::find(sounding.rbegin(), sounding.rend(), true).base();
    int run = 0;
    for (auto it = std::find(sounding.begin(), sounding.end(), true); it < last; ++it) {
        if (*it && run > 0) gaps.push_back(run * 0.01);
        run = *it ? 0 : run + 1;
    }
    return gaps;
}

int CapturedAudio::peak() const
{
    int peak = 0;
    for (int16_t sample : samples) peak = std::max(peak, std::abs(static_cast<int>(sample)));
    return peak;
}

void listen(double seconds, bool updateEachFrame)
{
    auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < end) {
        if (updateEachFrame) updateAudio();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

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
    size_t perStretch = 0, at = 12;
    // The writer fills in the data size when it closes: read to the end either way.
    for (; at + 8 <= bytes.size() && bytes.compare(at, 4, "data") != 0; at += 8 + littleEndian(bytes, at + 4, 4))
        if (bytes.compare(at, 4, "fmt ") == 0)  // 10 ms of the rate, times the channels
            perStretch = littleEndian(bytes, at + 12, 4) / 100 * littleEndian(bytes, at + 10, 2);
    std::vector<int16_t> samples(at + 8 < bytes.size() ? (bytes.size() - at - 8) / 2 : 0);
    std::memcpy(samples.data(), bytes.data() + at + 8, samples.size() * 2);
    for (size_t start = 0; perStretch > 0 && start + perStretch <= samples.size(); start += perStretch) {
        int loudest = 0;
        for (size_t i = start; i < start + perStretch; ++i) loudest = std::max(loudest, std::abs(int(samples[i])));
        audio.sounding.push_back(loudest >= 1000);
        audio.peak = std::max(audio.peak, loudest);
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

void listen(double seconds, bool updateEachFrame)
{
    auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < end) {
        if (updateEachFrame) updateAudio();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

#include "audio_capture.h"

#include <gtest/gtest.h>

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

constexpr double stretchSeconds = 0.01;

std::string captureFolder;
std::string captureFile;

// Removes the configuration folder when the test program ends.
class CaptureFolderCleanup : public ::testing::Environment {
public:
    void TearDown() override
    {
        std::error_code ignored;
        if (!captureFolder.empty()) fs::remove_all(captureFolder, ignored);
    }
};
[[maybe_unused]] auto* const cleanup =
    ::testing::AddGlobalTestEnvironment(new CaptureFolderCleanup);

uint32_t littleEndian(const std::string& bytes, size_t at, int size)
{
    uint32_t value = 0;
    for (int i = size - 1; i >= 0; i--) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

}  // namespace

void routeAudioToCapture()
{
    if (!captureFolder.empty()) return;
    std::string pattern = (fs::temp_directory_path() / "gorvan-audio-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    captureFolder = pattern;
    captureFile = captureFolder + "/mix.wav";

    // 16-bit stereo at a low rate, mixed in short periods so that a pause or
    // a volume change reaches the file within about 12 ms.
    std::ofstream config(captureFolder + "/alsoft.conf");
    config << "drivers=wave\n"
              "sample-type=int16\n"
              "channels=stereo\n"
              "frequency=22050\n"
              "period_size=256\n"
              "hrtf=false\n"
              "dither=false\n"
              "[wave]\n"
              "file=" << captureFile << "\n";
    config.close();
    setenv("ALSOFT_CONF", (captureFolder + "/alsoft.conf").c_str(), 1);
}

const std::string& capturePath() { return captureFile; }

CapturedAudio readCapture()
{
    CapturedAudio audio;
    std::string bytes = readFileBytes(captureFile);
    if (bytes.size() < 12 || bytes.compare(0, 4, "RIFF") != 0 || bytes.compare(8, 4, "WAVE") != 0) {
        return audio;
    }
    size_t at = 12;
    int bitsPerSample = 0;
    while (at + 8 <= bytes.size()) {
        std::string id = bytes.substr(at, 4);
        size_t size = littleEndian(bytes, at + 4, 4);
        size_t body = at + 8;
        if (id == "fmt " && body + 16 <= bytes.size()) {
            audio.channels = static_cast<int>(littleEndian(bytes, body + 2, 2));
            audio.sampleRate = static_cast<int>(littleEndian(bytes, body + 4, 4));
            bitsPerSample = static_cast<int>(littleEndian(bytes, body + 14, 2));
        } else if (id == "data") {
            // The writer fills in the size when it closes; read to the end
            // of what is there either way.
            size_t count = (bytes.size() - body) / 2;
            if (bitsPerSample != 16 || audio.channels < 1) return CapturedAudio{};
            audio.samples.resize(count - count % static_cast<size_t>(audio.channels));
            std::memcpy(audio.samples.data(), bytes.data() + body, audio.samples.size() * 2);
            return audio;
        }
        at = body + size + (size & 1);
    }
    return CapturedAudio{};
}

std::vector<bool> soundingStretches(const CapturedAudio& audio, int threshold)
{
    std::vector<bool> stretches;
    if (audio.channels < 1 || audio.sampleRate < 1) return stretches;
    size_t perStretch = static_cast<size_t>(audio.sampleRate * stretchSeconds) *
                        static_cast<size_t>(audio.channels);
    for (size_t start = 0; start + perStretch <= audio.samples.size(); start += perStretch) {
        bool sounding = false;
        for (size_t i = start; i < start + perStretch && !sounding; i++) {
            sounding = std::abs(audio.samples[i]) >= threshold;
        }
        stretches.push_back(sounding);
    }
    return stretches;
}

double soundingSeconds(const CapturedAudio& audio)
{
    std::vector<bool> stretches = soundingStretches(audio);
    return static_cast<double>(std::count(stretches.begin(), stretches.end(), true)) *
           stretchSeconds;
}

double longestGapInside(const CapturedAudio& audio)
{
    std::vector<bool> stretches = soundingStretches(audio);
    auto first = std::find(stretches.begin(), stretches.end(), true);
    auto last = std::find(stretches.rbegin(), stretches.rend(), true).base();
    int longest = 0, run = 0;
    for (auto it = first; it < last; ++it) {
        run = *it ? 0 : run + 1;
        longest = std::max(longest, run);
    }
    return longest * stretchSeconds;
}

int peakLevel(const CapturedAudio& audio)
{
    int peak = 0;
    for (int16_t sample : audio.samples) peak = std::max(peak, std::abs(static_cast<int>(sample)));
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

void copySoundFixtures()
{
    const fs::path from = fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/sound";
    fs::create_directories("content/sound");
    for (const char* name : {"tone.ogg", "tone_high.ogg", "loop.ogg"}) {
        fs::copy_file(from / name, fs::path("content/sound") / name,
                      fs::copy_options::overwrite_existing);
    }
}

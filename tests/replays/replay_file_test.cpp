// The replay file: its bytes, what it refuses, which games are kept, what a playback holds.
#include <gtest/gtest.h>

#include <filesystem>

#include "data/scores.h"
#include "data/settings.h"
#include "replay/game_recording.h"
#include "replay/replay_checks.h"
#include "support/scratch_dir.h"

namespace {

// Round 1: nothing; 2: key 3; 3: the left button, the mouse and a controller's B in seat 2;
// 4: the mouse along one side.
Replay smallReplay()
{
    RoundEncoder encoder;
    RoundInput input;
    encoder.add(input, true);
    input.keys['3'] = true;
    encoder.add(input, true);
    input.mouseButtons[GLFW_MOUSE_BUTTON_LEFT] = true;
    input.mouseX = 10, input.mouseY = -3;
    input.padButtons[2] = 1u << GLFW_PAD_B;
    encoder.add(input, true);
    input.mouseX = 11;
    encoder.add(input, true);
    return Replay{replaySurvival, 3, 0x1122334455667788, 1000, 600, true, 2, 300, 5, encoder.rounds(),
                  encoder.bytes(), 2, {{1, 1, resultResume}}, {300, 0}, 4};
}

std::string refusal(const std::vector<uint8_t>& bytes)
{
    Replay replay;
    std::string reason;
    return decodeReplay(bytes, replay, reason) ? "" : reason;
}

}  // namespace

TEST(ReplayFiles, KeepTheirBytesAndRefuseEmptyForeignDamagedAndNewerOnes)
{
    const std::vector<uint8_t> bytes = encodeReplay(smallReplay());
    std::string hex;
    for (uint8_t byte : bytes) hex += "0123456789abcdef"[byte >> 4], hex += "0123456789abcdef"[byte & 15];
    EXPECT_EQ(hex, "474f5256414e5250" "0101031122334455667788e807d80401" "02ac020504" "0c" "410133260114050402"
                   "040200" "02" "01010101" "ac020004" "ec4bf232");
    Replay back;
    EXPECT_TRUE(decodeReplay(bytes, back, hex) && encodeReplay(back) == bytes) << "every field read back";
    EXPECT_EQ(refusal({}), "the file is empty");
    EXPECT_EQ(refusal({0x89, 'P', 'N', 'G', '\r', '\n', 26, '\n', 0, 0}), "not a Gorvan replay");
    for (size_t size = 1; size < bytes.size(); ++size)
        ASSERT_NE(refusal({bytes.begin(), bytes.begin() + size}), "") << "cut to " << size;
    for (size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::vector<uint8_t> flipped = bytes;
        flipped[bit / 8] ^= static_cast<uint8_t>(1u << bit % 8);
        ASSERT_NE(refusal(flipped), "") << "bit " << bit;
    }
    std::vector<uint8_t> newer(bytes.begin(), bytes.end() - 4);  // sound in itself: its checksum holds
    newer[8] = 2;
    const uint32_t crc = crc32Of(newer.data(), newer.size());
    for (int shift = 24; shift >= 0; shift -= 8) newer.push_back(static_cast<uint8_t>(crc >> shift));
    EXPECT_EQ(refusal(newer), "made by a newer Gorvan (replay format 2; this one plays format 1)");
    // Sealed but unsound: a round that changes nothing, a key listed twice, the mouse beyond any screen.
    Replay damaged = smallReplay();
    for (std::vector<uint8_t> input : {std::vector<uint8_t>{0}, {1, 2, 5, 0}, {4, 0x80, 0x80, 0x80, 2, 0}}) {
        damaged.input = input;
        EXPECT_EQ(refusal(encodeReplay(damaged)), "the replay is damaged (its checksum holds, but not its contents)");
    }
}

TEST(ReplayFiles, AChangedMapIsRefusedAndOnlyABetterGameBecomesTheBest)
{
    ScratchDir scratch;
    writeFileBytes("content/map.txt", "1. A map\n");
    Replay replay = smallReplay();
    ASSERT_TRUE(hashMapFile("content/map.txt", replay.mapHash));
    EXPECT_TRUE(checkReplayMap("r", replay, "content/map.txt"));
    EXPECT_FALSE(checkReplayMap("r", replay, "content/none.txt"));
    writeFileBytes("content/map.txt", "1. A map, balanced\n");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(checkReplayMap("r", replay, "content/map.txt"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "r: map 3 has changed since this game was played, so it can't be replayed\n");

    for (uint32_t score : {500u, 300u, 501u, 400u}) replay.scores[0] = score, keepReplay(replay);
    Replay best, last;
    ASSERT_TRUE(loadReplay("replays/best-survival-map03.gorvanreplay", best) && loadReplay(lastReplayPath(), last));
    EXPECT_EQ(best.scores[0], 501u);
    EXPECT_EQ(last.scores[0], 400u);
    replay.mode = replayStage;
    for (uint8_t endCode : {3, 0, 2}) {  // only a completed stage game counts
        replay.endCode = endCode, keepReplay(replay);
        EXPECT_EQ(std::filesystem::exists("replays/best-stage-map03.gorvanreplay"), endCode == 2);
    }
}

TEST(ReplayFiles, APlaybackHoldsTheRecordedScoreAndTutorialAndStoresNothing)
{
    ScratchDir scratch;
    setTutorialEnabled(false);
    saveSurvivalScore(3, 10);
    {
        ReplayPlayback playback(smallReplay(), true);
        EXPECT_TRUE(isTutorialEnabled());
        EXPECT_EQ(getSurvivalScore(3), 300u);
        setTutorialEnabled(false);
        saveSurvivalScore(3, 5000);
    }
    EXPECT_FALSE(inputTape::playing());
    EXPECT_FALSE(isTutorialEnabled());
    EXPECT_EQ(getSurvivalScore(3), 10u);
}

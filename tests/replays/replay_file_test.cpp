// The replay file: what it refuses, and how big a long game's file grows.
#include <gtest/gtest.h>

#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "replay/game_recording.h"
#include "replay/replay_checks.h"
#include "rules_match.h"
#include "runner_policies.h"
#include "sim/player.h"
#include "support/scratch_dir.h"

namespace {

const std::string runMaps = std::string(GORVAN_RUN_DIR) + "/content/maps/";

// A few hundred rounds of keys, clicks, a controller, focus and closing.
Replay smallReplay()
{
    RoundEncoder encoder;
    RoundInput input;
    for (uint32_t round = 0; round < 600; ++round) {
        input.keys['3'] = round % 50 < 3;
        input.keys[GLFW_KEY_ESC] = round % 170 == 9;
        input.mouseButtons[GLFW_MOUSE_BUTTON_LEFT] = round % 40 == 0;
        input.mouseX = 400 + static_cast<int>(round % 37) * 7;
        input.mouseY = 300 - static_cast<int>(round % 23) * 5;
        input.padButtons[1] = round % 90 < 2 ? 1u << GLFW_PAD_Y : 0;
        input.focused = round % 300 < 280;
        input.closeRequested = round == 599;
        encoder.add(input, round % 3 == 0);
    }
    Replay replay;
    replay.mode = replaySurvival;
    replay.mapNumber = 7;
    replay.mapHash = 0x0123456789ABCDEFull;
    replay.windowWidth = 1000;
    replay.windowHeight = 600;
    replay.randomState = 0xDEADBEEF;
    replay.rounds = encoder.rounds();
    replay.input = encoder.bytes();
    replay.gameRounds = 500;
    replay.pauses = {{9, 80, resultResume}, {480, 20, resultRestart}};
    replay.scores[0] = 1234;
    replay.endCode = 4;
    return replay;
}

std::string refusal(const std::vector<uint8_t>& bytes)
{
    Replay replay;
    std::string reason;
    return decodeReplay(bytes, replay, reason) ? "" : reason;
}

}  // namespace

TEST(ReplayFiles, ReadBackAsWrittenRoundForRound)
{
    const Replay written = smallReplay();
    Replay read;
    std::string reason;
    ASSERT_TRUE(decodeReplay(encodeReplay(written), read, reason)) << reason;
    EXPECT_EQ(encodeReplay(read), encodeReplay(written));
    RoundDecoder decoder(read.input, read.rounds);
    RoundInput round;
    for (uint32_t i = 0; i < 600; ++i) {
        ASSERT_TRUE(decoder.next(round)) << i;
        EXPECT_EQ(round.keys['3'], i % 50 < 3) << i;
        EXPECT_EQ(round.padButtons[1] != 0, i % 90 < 2) << i;
        EXPECT_EQ(round.focused, i % 300 < 280) << i;
        // The mouse's place is kept in the rounds that keep it, and stands between.
        EXPECT_EQ(round.mouseX, 400 + static_cast<int>((i - i % 3) % 37) * 7) << i;
    }
    EXPECT_TRUE(round.closeRequested);
    EXPECT_FALSE(decoder.next(round));
}

TEST(ReplayFiles, EmptyForeignDamagedAndNewerFilesAreRefusedWithOneLine)
{
    const std::vector<uint8_t> bytes = encodeReplay(smallReplay());
    EXPECT_EQ(refusal({}), "the file is empty");
    EXPECT_EQ(refusal({0x89, 'P', 'N', 'G', '\r', '\n', 26, '\n', 0, 0}), "not a Gorvan replay");
    for (size_t size = 1; size < bytes.size(); ++size)
        ASSERT_NE(refusal({bytes.begin(), bytes.begin() + size}), "") << "cut to " << size;
    for (size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::vector<uint8_t> flipped = bytes;
        flipped[bit / 8] ^= static_cast<uint8_t>(1u << bit % 8);
        ASSERT_NE(refusal(flipped), "") << "bit " << bit;
    }
    // A newer format, sound in itself (the checksum at its end holds).
    std::vector<uint8_t> newer(bytes.begin(), bytes.end() - 4);
    newer[8] = 2;
    const uint32_t crc = crc32Of(newer.data(), newer.size());
    for (int shift = 24; shift >= 0; shift -= 8) newer.push_back(static_cast<uint8_t>(crc >> shift));
    EXPECT_EQ(refusal(newer), "made by a newer Gorvan (replay format 2; this one plays format 1)");

    ScratchDir scratch;
    writeFileBytes("cut.gorvanreplay", std::string(bytes.begin(), bytes.begin() + 40));
    Replay replay;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(loadReplay("cut.gorvanreplay", replay));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "cut.gorvanreplay: the replay is damaged (cut short or changed)\n");
}

TEST(ReplayFiles, AChangedMapIsRefusedAndOnlyABetterGameBecomesTheBest)
{
    ScratchDir scratch;
    writeFileBytes("content/map.txt", "1. A map\n");
    Replay replay = beginReplay(replaySurvival, 7, "content/map.txt", 0);
    replay.windowWidth = 800;  // no window here
    replay.windowHeight = 600;
    EXPECT_TRUE(checkReplayMap("r", replay, "content/map.txt"));
    writeFileBytes("content/map.txt", "1. A map, balanced\n");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(checkReplayMap("r", replay, "content/map.txt"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "r: map 7 has changed since this game was played, so it can't be replayed\n");

    for (uint32_t score : {500u, 300u, 501u}) {
        replay.scores[0] = score;
        keepReplay(replay);
    }
    Replay best, last;
    std::string reason;
    ASSERT_TRUE(readReplayFile(bestReplayPath(replaySurvival, 7), best, reason)) << reason;
    ASSERT_TRUE(readReplayFile(lastReplayPath(), last, reason)) << reason;
    EXPECT_EQ(best.scores[0], 501u);
    EXPECT_EQ(bestReplayPath(replaySurvival, 7), "replays/best-survival-map07.gorvanreplay");
}

// Thirty minutes of survival with a busy player: keys every few seconds, the
// mouse wandering all the time and clicking the panel now and then.
TEST(ReplayFiles, AThirtyMinuteSurvivalGameKeepsWithinAFewHundredKilobytes)
{
    const uint32_t thirtyMinutes = 30 * 60 * 60;
    ScratchDir scratch;
    openHeadlessTable(1);
    Replay replay = beginReplay(replaySurvival, 1, runMaps + "map1.txt", 0);
    {
        InputRecorder recorder(false);
        RulesMatch match(survivalMatch, runMaps + "map1.txt", 1);
        PolicyMemory memory;
        for (bool going = true; going;) {
            const uint32_t round = match.round + 1;
            pressPolicyKeys(smartPolicy, *match.left, round, memory);
            testBackend::setMousePos(500 + static_cast<int>(round * 7 % 300), 300 + static_cast<int>(round % 200));
            testBackend::setMouseButton(GLFW_MOUSE_BUTTON_LEFT, round % 200 < 4);
            going = match.playRound(thirtyMinutes);
        }
        EXPECT_EQ(match.round, thirtyMinutes) << "the game ended early";
        recorder.finish(replay);
    }
    closeHeadlessTable();
    const size_t size = encodeReplay(replay).size();
    std::printf("a thirty-minute survival game: %zu bytes\n", size);
    EXPECT_LT(size, 300u * 1024);
}

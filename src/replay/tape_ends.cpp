#include "replay/tape_ends.h"

#include "base/random.h"
#include "data/scores.h"
#include "data/settings.h"

namespace {

// Screenshots are the watcher's business, not the game's.
const int viewerKeys[] = {GLFW_KEY_F5, GLFW_KEY_F12};

}  // namespace

InputRecorder::InputRecorder(bool firstRoundNow)
{
    if (firstRoundNow) hear(inputTape::liveInput(), false);
    inputTape::listen([this](const RoundInput& live, bool read) { hear(live, read); });
}

InputRecorder::~InputRecorder()
{
    if (listening) inputTape::listen({});
}

void InputRecorder::hear(const RoundInput& live, bool mousePositionRead)
{
    if (havePending) encoder.add(pending, mousePositionRead);
    pending = live;
    for (int key : viewerKeys) pending.keys[key] = false;
    havePending = true;
}

void InputRecorder::finish(Replay& replay)
{
    inputTape::listen({});
    listening = false;
    if (havePending) encoder.add(pending, true);
    havePending = false;
    replay.rounds = encoder.rounds();
    replay.input = encoder.bytes();
}

ReplayPlayback::ReplayPlayback(const Replay& replay, bool firstRoundNow)
    : decoder(replay.input, replay.rounds)
{
    seedRandom(replay.randomState);
    holdScores(replay.bestScore);
    holdTutorialSetting(replay.tutorial);
    RoundInput first;
    if (firstRoundNow) first = nextRound(inputTape::liveInput());
    inputTape::play([this](const RoundInput& live) { return nextRound(live); }, first);
}

ReplayPlayback::~ReplayPlayback()
{
    inputTape::play({}, RoundInput());
    releaseScores();
    releaseTutorialSetting();
}

void ReplayPlayback::skipRounds(uint32_t count) { decoder.skip(count); }

RoundInput ReplayPlayback::nextRound(const RoundInput& live)
{
    RoundInput round = last;
    if (!decoder.next(round)) round.closeRequested = true;
    last = round;
    if (live.closeRequested || live.keys[GLFW_KEY_ESC]) {
        round.closeRequested = true;
        viewerStopped = true;
    }
    for (int key : viewerKeys) round.keys[key] = live.keys[key];
    return round;
}

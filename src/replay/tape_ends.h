// The two ends of the input tape: a recorder that listens to the player's
// rounds, and a playback that puts a replay in the player's place.
//
// A Game reads the input of a round before the round's pump of events, and
// its first round reads what was held as it began: its recording starts
// with the input of that moment, and its playback gives that first round at
// once. The headless table pumps before it plays a round: there the first
// pump brings the first round.
#pragma once

#include <cstdint>

#include "platform/input_tape.h"
#include "replay/replay_file.h"
#include "replay/round_codec.h"

class InputRecorder {
public:
    explicit InputRecorder(bool firstRoundNow);
    ~InputRecorder();  // stops listening
    InputRecorder(const InputRecorder&) = delete;
    InputRecorder& operator=(const InputRecorder&) = delete;

    // Stops listening and puts the rounds into the replay.
    void finish(Replay& replay);

private:
    void hear(const RoundInput& live, bool mousePositionRead);

    RoundEncoder encoder;
    RoundInput pending;  // its mouse goes in if the game reads it before the next pump
    bool havePending = false;
    bool listening = true;
};

// While it lives: the simulation's generator set as the replay began, the
// recorded best score and tutorial switch in place of the player's (neither
// is written), and the replay's rounds as the input. The one who watches
// keeps F5 and F12 (screenshots) and can end it with ESC or by closing the
// window; a replay that runs out closes the window too.
class ReplayPlayback {
public:
    ReplayPlayback(const Replay& replay, bool firstRoundNow);
    ~ReplayPlayback();
    ReplayPlayback(const ReplayPlayback&) = delete;
    ReplayPlayback& operator=(const ReplayPlayback&) = delete;

    // Steps over rounds that the game would have spent in a pause menu.
    void skipRounds(uint32_t count);
    bool stoppedByViewer() const { return viewerStopped; }

private:
    RoundInput nextRound(const RoundInput& live);

    RoundDecoder decoder;
    RoundInput last;
    bool viewerStopped = false;
};

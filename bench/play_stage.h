// The scene the drawing benchmarks measure: a window of the size asked for
// with everything a game draws with, and one or two sides of a game on the
// hardest map (map 20: the fastest, toughest and most frequent enemies) with
// three cannons standing. Three moments of such a game:
// - early: 300 rounds in, a handful of enemies under the three spot lights;
// - late: 2400 rounds in plus 40 more enemies spread over the field, and
//   three lightning strokes just fired (their bolts and point lights);
// - blast: late, and a blast just used: red bolts to every enemy, its big
//   light, and the glow pass over the whole field (it lasts 220 rounds).
// Nothing moves between two measured frames: the players are not updated.
#pragma once

#include <memory>

class Player;

enum class Moment { early = 0, late = 1, blast = 2 };

class PlayStage {
public:
    // samples: the multisampling asked of the window; the game asks for 2.
    PlayStage(int width, int height, int sides, Moment moment, int samples = 2);
    ~PlayStage();
    PlayStage(const PlayStage&) = delete;
    PlayStage& operator=(const PlayStage&) = delete;

    Player& first() { return *players[0]; }
    int liveEnemies() const;  // of the first side
    int lights() const;
    int bolts() const;

    void drawFields();  // drawField of each side
    void drawViews();   // drawView of each side
    // What the game loop draws: the fields, the clear, the views.
    void drawFrame();

private:
    std::unique_ptr<Player> players[2];
};

// Shader logs and missing-picture lines stay out of the benchmark's report
// while one lives.
class QuietOutput {
public:
    QuietOutput();
    ~QuietOutput();
    QuietOutput(const QuietOutput&) = delete;
    QuietOutput& operator=(const QuietOutput&) = delete;

private:
    int savedOut, savedErr;
};

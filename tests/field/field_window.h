// A game environment on the test backend for the field picture (a play
// session at the chosen window size). The field is read back from the back
// buffer's lower-left corner, where the picture is composed.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/play_session.h"

class Level;
class Player;

constexpr int fieldWidth = 384;
constexpr int fieldHeight = 512;

struct Rgb {
    int r = 0, g = 0, b = 0;
    int sum() const { return r + g + b; }
};

class FieldWindow {
public:
    FieldWindow(int width = 1000, int height = 600);

private:
    PlaySession session;
};

std::string mapPath(int number);

// The field as it stands in the back buffer's corner, in field space (y down).
class FieldPicture {
public:
    FieldPicture();  // reads the corner now
    Rgb at(int x, int y) const;
    // Mean of r + g + b over the (2 * radius + 1) square round (x, y): the
    // ground is gritty, single pixels may face away from a light.
    int boxSum(int x, int y, int radius = 2) const;

private:
    std::vector<uint8_t> rgb;
};

// The stencil values of the field's corner.
std::vector<uint8_t> readFieldStencil();

// Leaves the level without enemies and bolts.
void emptyField(Level& level);
// A living enemy in a new slot; its slot index.
int addEnemy(Level& level, float x, float y, float size);
// Runs the bank until its row of n cannons stands (progress 100).
void raiseCannons(Player& player, uint8_t n);

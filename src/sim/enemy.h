// An enemy: a plain square falling straight down a Level's field. It has no
// behaviour of its own; it differs from others only in size, speed and hit
// points. Its identity is its slot index in Level::enemies.
#pragma once

// Small enemies have size 4, big ones 8; anything above 6 counts as big.
constexpr float SMALL_ENEMY_SIZE = 4;
constexpr float BIG_ENEMY_SIZE = 8;
// Any y at or past this stands for no enemy (lost target, empty field).
constexpr float NO_ENEMY = 1000;

struct Enemy {
    // Alive while shots still planned on it or hit points of at least 0.01 remain.
    bool isAlive() const { return reservedHitPoints > 0 || hitPoints >= 0.01f; }
    // Dead and hit for at least twice its strength in all: a double kill.
    bool isOverkilled() const { return !isAlive() && hitPoints <= -maxHitPoints; }

    // Drawing lives with the field picture (src/render/).
    void draw() const;
    void drawDirectionalShadow(float dirX, float dirY, float length) const;
    void drawPointShadow(float x, float y, float radiusSquared) const;

    float x;                  // centre; fixed for life
    float y;                  // centre; grows as it falls
    float speed;              // units a frame
    float size;               // edge of the square; also the kind
    float maxHitPoints;       // at birth
    float hitPoints;          // left; below zero on overkill
    float reservedHitPoints;  // left once the shots already aimed have landed
};

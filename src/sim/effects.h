// Short-lived records that show what happened and have no say in the rules:
// bolts of shots and lightning, marks burnt into the ground, point lights and
// the floating "+2" shards of an overkill. Their drawing lives in src/render/.
#pragma once

#include <cstdint>
#include <vector>

class Level;

// A shot or a stroke of lightning that has already happened.
struct Bolt {
    Bolt(float red, float green, float blue, float x1, float y1, float x2, float y2,
         int32_t lifetime, bool wide);

    // One frame older; false once no frames are left.
    bool age();
    void draw(bool secondLayer) const;

    // Drawing geometry from the two ends: 0, 1 the thin line; 2 to 9 the glow.
    float points[10][2];
    float red, green, blue;
    int32_t lifetime;
    int32_t framesLeft;  // the drawing's alpha follows framesLeft / lifetime
    bool wide;           // a glowing strip rather than a thin line
};

// A mark that a dying enemy burns into the ground: a blot or a droplet.
struct Spark {
    // The blot: one dark square at once.
    Spark(float x, float y, float size);
    // The droplet: a small mark drifting for a while (draws random values).
    Spark(float x, float y);

    // Moves the mark and paints it into the ground picture; part of the
    // drawing pass, so sparks don't move in a frame that isn't drawn.
    // False when spent.
    bool step();

    float size;
    float x, y;
    float dx, dy;
    uint8_t framesLeft;
    float red;
};

// A coloured light over the field, shrinking to nothing over its lifetime.
struct PointLight {
    PointLight(Level* level, float red, float green, float blue, float x, float y,
               float radius, int32_t lifetime);

    // One frame older; false once no frames are left.
    bool age();
    void draw() const;

    Level* level;  // whose enemies throw shadows; not owned
    float x, y;
    float radius;
    float red, green, blue;  // above 1 allowed
    int32_t lifetime;
    int32_t framesLeft;
};

// The "+2" of an overkill: jumps up and sideways, turns over, fades as it falls.
struct Shard {
    // Draws random values for its jump.
    Shard(float x, float y);

    // One frame of flight; false once it falls at 0.5 units a frame or faster.
    bool update();
    void draw() const;

    float x, y;
    float dx, dy;
    float spin;           // drawn angle in radians
    float spinDirection;  // +1 or -1
};

// The shards of one Player and the picture they share ("p2.spg").
class ShardList {
public:
    // The picture's owner: loads it (needs a GL context) and deletes it;
    // src/sim/shard_list.cpp, apart from the GL-free records above.
    ShardList();
    ~ShardList();
    ShardList(const ShardList&) = delete;
    ShardList& operator=(const ShardList&) = delete;

    void add(float x, float y);
    // Flies every shard, first to last, dropping the spent ones in order.
    void update();
    void draw() const;

    std::vector<Shard> shards;
    uint32_t texture = 0;
};

// Ages every light, first to last; a spent one is removed on the spot and the
// later ones move up, so the order stays.
void ageLights(std::vector<PointLight>& lights);
// The same for the bolts of a cannon or a level,
void ageBolts(std::vector<Bolt>& bolts);
// and for flying shards (ShardList::update).
void updateShards(std::vector<Shard>& shards);

#include "sim/upgrade_panel.h"

#include "base/numbers.h"
#include "data/images.h"
#include "render/texture_release.h"

Upgrade::Upgrade(uint8_t kind, float slot) : kind(kind), slot(slot)
{
    switch (kind % 6) {
    case 0: red = 1; green = 0; blue = 0; break;
    case 1: red = 0; green = 1; blue = 0; break;
    case 2: red = 0; green = 0; blue = 1; break;
    default: red = 1; green = 1; blue = 0; break;
    }
    static const char* const icons[3] = {"upgrade1.spg", "upgrade2.spg", "upgrade3.spg"};
    if (kind >= 9 && kind <= 11) {
        loadTexture(&texture, icons[kind - 9]);
        hasTexture = true;
    }
}

Upgrade::~Upgrade()
{
    if (hasTexture)
        deleteTextures(1, &texture);
}

UpgradePanel::UpgradePanel()
{
    loadTexture(&rowTexture, "box.spg");
    loadTexture(&rowHeadTexture, "box_a.spg");
    loadTexture(&vboxTexture, "vbox_a.spg");
    loadTexture(&boxFaceTexture, "button2.spg");
    for (int i = 0; i < 5; ++i) {
        const uint8_t kind = choose(0, 2, 3);
        permanent.push_back(new Upgrade(kind, static_cast<float>(i)));
        generated[kind] += 1;
    }
}

UpgradePanel::~UpgradePanel()
{
    const uint32_t textures[4] = {rowTexture, rowHeadTexture, vboxTexture, boxFaceTexture};
    deleteTextures(4, textures);
    for (Upgrade* upgrade : permanent)
        delete upgrade;
    for (Upgrade* upgrade : temporary)
        delete upgrade;
}

uint8_t UpgradePanel::choose(uint8_t first, uint8_t last, uint8_t spread)
{
    return chooseFairKind(generated, first, last, spread);
}

UpgradeReport UpgradePanel::update(float rate, float share)
{
    const int speed = boostFrames != 0 ? 3 : 1;
    permanentProgress += rate * share * 0.000003 * speed;
    temporaryProgress += (100 - share) * rate * 0.000004 * speed;
    this->share = share;
    chainFrames = static_cast<int16_t>(clampInt(chainFrames - 1, 0, 10000));
    blastFrames = static_cast<int16_t>(clampInt(blastFrames - 1, 0, 10000));
    boostFrames = static_cast<int16_t>(clampInt(boostFrames - 1, 0, 10000));

    UpgradeReport report;
    if (permanentProgress > 1) {
        // What passes 1 is dropped. The head was chosen five generations ago.
        permanentProgress = 0;
        const uint8_t kind = choose(0, 2, 3);
        permanent.push_back(new Upgrade(kind, 5.0f));
        generated[kind] += 1;
        Upgrade* due = permanent.front();
        permanent.erase(permanent.begin());
        report.permanentKind = due->kind;
        delete due;
    }
    if (temporaryProgress > 1) {
        temporaryProgress = 0;
        const uint8_t kind = choose(6, 11, 2);
        temporary.push_back(new Upgrade(kind, static_cast<float>(temporary.size())));
        generated[kind] += 1;
        report.temporaryMade = true;
    }
    return report;
}

uint8_t UpgradePanel::takeTemporary()
{
    if (temporary.empty())
        return UPGRADE_NONE;
    Upgrade* head = temporary.front();
    temporary.erase(temporary.begin());
    const uint8_t kind = head->kind;
    delete head;
    if (kind == 9)
        chainFrames = static_cast<int16_t>(chainFrames + 901);
    else if (kind == 10)
        blastFrames = static_cast<int16_t>(blastFrames + 2);
    else if (kind == 11)
        boostFrames = static_cast<int16_t>(boostFrames + 601);
    return kind;
}

void UpgradePanel::endActive()
{
    chainFrames = 0;
    blastFrames = 0;
    boostFrames = 0;
}

uint8_t UpgradePanel::activeFlags() const
{
    return static_cast<uint8_t>((chainFrames != 0 ? 1 : 0) | (blastFrames != 0 ? 2 : 0));
}

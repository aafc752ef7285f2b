// The fair draw of the upgrade panel, apart from the panel and its pictures.
#include <vector>

#include "base/random.h"
#include "sim/upgrade_panel.h"

uint8_t chooseFairKind(const uint16_t* generated, uint8_t first, uint8_t last, uint8_t spread)
{
    uint16_t rarest = generated[first];
    for (int kind = first; kind <= last; ++kind)
        if (generated[kind] < rarest)
            rarest = generated[kind];

    // Each kind enters spread - lead times; the rarest always enters spread times.
    std::vector<uint8_t> lots;
    for (int kind = first; kind <= last; ++kind) {
        const int lead = generated[kind] - rarest;
        for (int i = lead; i < spread; ++i)
            lots.push_back(static_cast<uint8_t>(kind));
    }
    return lots[randomInt(0, static_cast<int>(lots.size()) - 1)];
}


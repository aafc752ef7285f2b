#include "platform/carried_keys.h"

#include <algorithm>

bool CarriedKeys::isDown(int key, bool windowSaysDown, double now)
{
    auto carried = std::find(keys.begin(), keys.end(), key);
    if (carried == keys.end()) return windowSaysDown;
    // Seen by the window: from now on its own state counts.
    if (windowSaysDown || now - openedAt > repeatWait) {
        keys.erase(carried);
        return windowSaysDown;
    }
    return true;
}

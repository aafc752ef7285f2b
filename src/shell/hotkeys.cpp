// STAND-IN until the screenshot taker (F5, F12) is built: no hotkey acts yet.
#include "shell/hotkeys.h"

void pollHotkeys() {}

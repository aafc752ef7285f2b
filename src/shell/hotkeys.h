// The frame hotkeys, polled once a frame by every loop after drawing.
#pragma once

void pollHotkeys();

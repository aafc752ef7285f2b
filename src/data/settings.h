// The player's settings (content/settings.dat, 8 bytes) and the frame-counter
// switch (content/fps.dat, text). Free functions that go to the file on every
// call; only the two volumes are cached after their first read.
#pragma once

#include <cstdint>

void getResolution(uint16_t* width, uint16_t* height);  // 0, 0 means "Auto"
bool isFullscreen();
bool isTutorialEnabled();
uint8_t getMusicVolume();  // percent
uint8_t getSoundVolume();  // percent

void setResolution(uint16_t width, uint16_t height);
void setFullscreen(bool on);
void setTutorialEnabled(bool on);
void setMusicVolume(uint8_t percent);
void setSoundVolume(uint8_t percent);

bool isFpsCounterEnabled();

// A replay shows the tutorial as the recorded game had it and leaves the
// player's switch alone: until released, isTutorialEnabled answers `on` and
// setTutorialEnabled changes nothing.
void holdTutorialSetting(bool on);
void releaseTutorialSetting();

// Forgets the cached volumes, as a new run of the game would (for tests).
void forgetCachedVolumes();

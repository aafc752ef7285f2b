// The folder a player's game runs in. The game reads and writes everything
// relative to its working folder (content/, screenshots/). From a build that
// is build/run/, as it stands. An installed game gives every player a folder
// of their own, $XDG_DATA_HOME/gorvan (~/.local/share/gorvan by default), in
// which the files the game writes (scores, settings, the fps switch,
// screenshots) are real, and the read-only content is linked in from the
// install.
#pragma once

#include <string>

// The installed content for a program at `programPath`: PREFIX/share/gorvan/
// content beside PREFIX/lib/gorvan/gorvan, when that folder exists; else "".
std::string installedContentFor(const std::string& programPath);

// $XDG_DATA_HOME/gorvan, or $HOME/.local/share/gorvan when XDG_DATA_HOME is
// unset or not absolute; "" when neither gives a place.
std::string defaultPlayerFolder(const char* xdgDataHome, const char* home);

// Makes `folder` (with content/ and screenshots/) where it is missing, links
// every entry of `contentSource` into its content/ (but the player's own
// files), renewing links that point elsewhere and leaving real files alone,
// and makes it the working folder. False with a one-line reason otherwise.
// On Windows the entries are copied where missing or older, not linked.
bool enterPlayerFolder(const std::string& folder, const std::string& contentSource,
                       std::string* reason);

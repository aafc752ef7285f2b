// The game's desktop services: the desktop's own notice and opener programs.
#include "platform/desktop_services.h"

#include "platform/desktop_launch.h"

bool showErrorNotice(const char* title, const char* text) { return showNoticeWithDesktopTools(title, text); }

bool openWebAddress(const char* address) { return startWebOpener(address); }

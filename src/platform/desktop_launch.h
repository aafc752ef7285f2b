// Starting the desktop's own programs for a notice and for a web address,
// without a shell: arguments go to the program as they are. The desktop
// backend's services (desktop_services.h) are these; the test backend only
// records its calls, so that tests never pop up a dialog.
#pragma once

// Tries zenity, kdialog and xmessage in turn, found on PATH, and waits for
// the one that runs. False when none could show the notice (none installed,
// no display to show it on, or each failed).
bool showNoticeWithDesktopTools(const char* title, const char* text);

// Starts xdg-open with the address and does not wait for it; it is reaped at
// once and outlives nothing of ours. False when it could not be started.
bool startWebOpener(const char* address);

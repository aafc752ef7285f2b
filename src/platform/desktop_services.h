// What the game asks of the desktop beyond its window: a modal notice for a
// fatal error, and opening a web address in the user's browser.
#pragma once

// Shows a modal notice with an OK button where the desktop can show one
// (zenity, kdialog or xmessage, started without a shell) and waits for it.
// Returns false when no notice could be shown.
bool showErrorNotice(const char* title, const char* text);

// Hands the address to the desktop's opener (xdg-open) without waiting.
// Returns false when the opener could not be started.
bool openWebAddress(const char* address);

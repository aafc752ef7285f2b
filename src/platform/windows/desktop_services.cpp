// The game's desktop services on Windows: the system's own message box and
// the shell's opener, as the game has always used there.
#include "platform/desktop_services.h"

#include <windows.h>
#include <shellapi.h>

bool showErrorNotice(const char* title, const char* text)
{
    return MessageBoxA(nullptr, text ? text : "", title ? title : "", MB_OK | MB_ICONERROR) != 0;
}

bool openWebAddress(const char* address)
{
    if (!address) return false;
    // ShellExecuteA reports success as a value above 32.
    HINSTANCE result = ShellExecuteA(nullptr, "open", address, nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
}

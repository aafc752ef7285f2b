#include "platform/desktop_launch.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

// Runs the program with its arguments and waits for it. Returns its exit
// status, or -1 when it could not be started or did not exit by itself.
int runAndWait(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0) {
        return -1;
    }
    int status = 0;
    while (waitpid(child, &status, 0) == -1) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool haveDisplay()
{
    const char* x11 = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return (x11 && *x11) || (wayland && *wayland);
}

}  // namespace

bool showNoticeWithDesktopTools(const char* title, const char* text)
{
    if (!haveDisplay()) {
        return false;
    }
    const std::string titleText = title ? title : "";
    const std::string bodyText = text ? text : "";
    // Each program's exit status when the notice was shown and dismissed: by
    // its button (0), or by closing its window (1 for zenity and kdialog).
    // Anything else (127 from a failed start, zenity's 255) means it could
    // not show it, and the next one is tried.
    const std::vector<std::vector<std::string>> commands = {
        {"zenity", "--error", "--no-markup", "--title=" + titleText, "--text=" + bodyText},
        {"kdialog", "--title", titleText, "--error", bodyText},
        {"xmessage", "-center", "-title", titleText, "-buttons", "OK:0", "-default", "OK", bodyText},
    };
    const int closedStatus[] = {1, 1, 0};
    for (size_t i = 0; i < commands.size(); i++) {
        int status = runAndWait(commands[i]);
        if (status == 0 || status == closedStatus[i]) {
            return true;
        }
    }
    return false;
}

// The opener runs as a grandchild, so that it is never our zombie: the child
// starts it and leaves at once. A pipe that closes on exec tells whether the
// start worked: it stays empty on success and carries the error otherwise.
bool startWebOpener(const char* address)
{
    if (!address) {
        return false;
    }
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) {
        return false;
    }
    pid_t child = fork();
    if (child < 0) {
        close(report[0]);
        close(report[1]);
        return false;
    }
    if (child == 0) {
        close(report[0]);
        pid_t opener = fork();
        if (opener < 0) {
            _exit(1);
        }
        if (opener == 0) {
            setsid();
            char* const argv[] = {const_cast<char*>("xdg-open"), const_cast<char*>(address), nullptr};
            execvp(argv[0], argv);
            int error = errno;
            ssize_t ignored = write(report[1], &error, sizeof error);
            (void)ignored;
            _exit(127);
        }
        _exit(0);
    }
    close(report[1]);
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    int error = 0;
    ssize_t got;
    do {
        got = read(report[0], &error, sizeof error);
    } while (got == -1 && errno == EINTR);
    close(report[0]);
    return got == 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

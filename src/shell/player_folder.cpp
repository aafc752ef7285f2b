#include "shell/player_folder.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// What the game writes into content/: never linked, always the player's own.
bool isPlayersOwn(const fs::path& name)
{
    return name == "settings.dat" || name == "scores.dat" || name == "fps.dat";
}

bool makeFolder(const fs::path& path, std::string* reason)
{
    std::error_code error;
    fs::create_directories(path, error);
    if (!error) return true;
    *reason = "cannot make the folder " + path.string() + ": " + error.message();
    return false;
}

#ifdef _WIN32
// Windows lets only privileged users make links: there the player's content/
// gets a copy of the entry, renewed where the game's own is newer.
bool linkEntry(const fs::path& target, const fs::path& link, std::string* reason)
{
    std::error_code error;
    fs::copy(target, link, fs::copy_options::recursive | fs::copy_options::update_existing, error);
    if (!error) return true;
    *reason = "cannot copy " + target.string() + " to " + link.string() + ": " + error.message();
    return false;
}
#else
// A link in the player's content/ to one entry of the installed content.
bool linkEntry(const fs::path& target, const fs::path& link, std::string* reason)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(link, error);
    if (fs::is_symlink(status)) {
        if (fs::read_symlink(link, error) == target) return true;
        fs::remove(link, error);  // the install has moved: follow it
    } else if (fs::exists(status)) {
        return true;  // a real file of the player's: leave it
    }
    fs::create_symlink(target, link, error);
    if (!error) return true;
    *reason = "cannot link " + link.string() + " to " + target.string() + ": " + error.message();
    return false;
}
#endif

}  // namespace

std::string installedContentFor(const std::string& programPath)
{
    std::error_code error;
    const fs::path content =
        (fs::path(programPath).parent_path() / GORVAN_CONTENT_FROM_PROGRAM).lexically_normal();
    return fs::is_directory(content, error) ? content.string() : std::string();
}

std::string defaultPlayerFolder(const char* xdgDataHome, const char* home)
{
    // Only an absolute XDG_DATA_HOME counts; a relative one is to be ignored.
    if (xdgDataHome && xdgDataHome[0] == '/') return std::string(xdgDataHome) + "/gorvan";
    if (home && home[0] != '\0') return std::string(home) + "/.local/share/gorvan";
    return "";
}

bool enterPlayerFolder(const std::string& folder, const std::string& contentSource,
                       std::string* reason)
{
    std::error_code error;
    const fs::path root = fs::absolute(folder, error);
    if (!makeFolder(root / "content", reason) || !makeFolder(root / "screenshots", reason))
        return false;
    if (!contentSource.empty()) {
        const fs::path source = fs::absolute(contentSource, error);
        fs::directory_iterator entries(source, error);
        if (error) {
            *reason = "cannot read the game's content in " + source.string() + ": " + error.message();
            return false;
        }
        for (const fs::directory_entry& entry : entries) {
            const fs::path name = entry.path().filename();
            if (!isPlayersOwn(name) && !linkEntry(entry.path(), root / "content" / name, reason))
                return false;
        }
    }
    fs::current_path(root, error);
    if (!error) return true;
    *reason = "cannot enter the folder " + root.string() + ": " + error.message();
    return false;
}

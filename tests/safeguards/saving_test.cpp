// Saving never loses or forges data: a file that can't be read is left alone,
// one that can't be written keeps its bytes, and a folder that takes no new
// file gets the file rewritten in place; a disk that fills up in the middle of
// a save leaves the old file whole. Permissions only count for a user
// other than root, so each case runs in a child as "nobody".
#include <gtest/gtest.h>

#include <functional>
#include <csignal>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data/scores.h"
#include "data/settings.h"
#include "support/scratch_dir.h"

namespace {

const uid_t nobody = 65534;

// Runs body as nobody in a fresh process; its failures come back as its exit status.
void runAsNobody(const std::function<void()>& body)
{
    pid_t child = fork();
    if (child == 0) {
        if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(3);
        body();
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
}

struct SavingCase {
    const char* file;
    std::string before;  // the file's bytes
    mode_t fileMode, folderMode;
    std::function<void()> play;  // what the game does, as nobody
    const char* line;            // expected on the standard error stream, or ""
    bool changed;                // whether the file's bytes may change
};

const std::string fullscreen1280x720("\x05\x00\x02\xD0\x01\x01\x28\x50", 8);
const std::string noScores(160, '\0');

void giveToNobody(const std::string& path)
{
    if (getuid() == 0) {
        ASSERT_EQ(chown(path.c_str(), nobody, nobody), 0);
    }
}

TEST(Saving, PermissionsMeanWhatTheySay)
{
    const SavingCase cases[] = {
        {"settings.dat", fullscreen1280x720, 0000, 0755, [] {
             uint16_t width = 1, height = 1;
             getResolution(&width, &height);
             EXPECT_EQ(width, 0);  // the defaults, for this run only
             EXPECT_FALSE(isFullscreen());
             setMusicVolume(20);
         }, "Cannot save settings!", false},
        {"scores.dat", noScores, 0444, 0755, [] { saveSurvivalScore(1, 500); }, "Cannot save score!", false},
        {"scores.dat", noScores, 0644, 0555, [] {
             saveStageScore(2, 300);
             EXPECT_EQ(getStageScore(2), 300u);
         }, "", true},
        {"fps.dat", "1\n", 0000, 0755, [] { EXPECT_FALSE(isFpsCounterEnabled()); }, "", false},
        {"scores.dat", noScores, 0644, 0755, [] {  // a disk that fills up in the middle
             signal(SIGXFSZ, SIG_IGN);
             const rlimit full = {100, 100};
             setrlimit(RLIMIT_FSIZE, &full);
             saveSurvivalScore(1, 500);
         }, "Cannot save score!", false},
    };
    for (const SavingCase& c : cases) {
        SCOPED_TRACE(std::string(c.file) + " " + std::to_string(c.fileMode));
        ScratchDir scratch;
        const std::string path = "content/" + std::string(c.file);
        writeFileBytes(path, c.before);
        forgetCachedVolumes();
        for (const std::string& owned : {scratch.path(), std::string("content"), path})
            giveToNobody(owned);
        chmod(path.c_str(), c.fileMode);
        chmod("content", c.folderMode);
        runAsNobody([&] {
            testing::internal::CaptureStderr();
            c.play();
            EXPECT_NE(testing::internal::GetCapturedStderr().find(c.line), std::string::npos);
        });
        chmod("content", 0755);
        chmod(path.c_str(), 0644);
        EXPECT_EQ(readFileBytes(path) != c.before, c.changed);
    }
}

}  // namespace

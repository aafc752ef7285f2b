#include "support/play_session.h"

#include <GL/glew.h>
#include <filesystem>

#include "base/random.h"
#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/window.h"
#include "sound/sound.h"

namespace fs = std::filesystem;

void linkBuiltContent()
{
    const fs::path built = fs::path(GORVAN_RUN_DIR) / "content";
    for (const char* name : {"images.sfa", "shaders.sfa", "maps", "sound", "music"}) {
        if (fs::exists(built / name)) fs::create_symlink(built / name, fs::path("content") / name);
    }
}

std::string placeShortMap(const char* file, int number)
{
    if (fs::is_symlink("content/maps")) fs::remove("content/maps");  // the built maps
    fs::create_directories("content/maps");
    const std::string path = "content/maps/map" + std::to_string(number) + ".txt";
    fs::copy_file(fs::path(GORVAN_SOURCE_DIR) / "tests/data_files/short_maps" / file, path,
                  fs::copy_options::overwrite_existing);
    return path;
}

void PlaySession::open(unsigned seed, uint16_t width, uint16_t height)
{
    dir = std::make_unique<ScratchDir>();
    linkBuiltContent();
    forgetCachedVolumes();
    if (width != 0) setResolution(width, height);
    testBackend::reset();
    glfwInit();
    desktopWidth = 1920;
    desktopHeight = 1080;
    openDisplayWindow(false);
    glewInit();
    initAudio();
    loadBasicProgram();
    loadShaders(nullptr);
    loadFont();
    loadPanelButtonTexture();
    createScreenTexture();
    seedRandom(seed);
    generateTextures(nullptr);
    setOrtho(800, 600);
    // Seeded again after the ground, so a game's draws follow from the seed alone.
    seedRandom(seed);
    musicTrack = new Sound("content/music/Fennick - The Race.ogg", true, true);
    opened = true;
}

PlaySession::~PlaySession()
{
    if (!opened) return;
    delete musicTrack;
    freeSurfaceData();
    deletePanelButtonTexture();
    deleteFont();
    deleteScreenTextures();
    shutdownAudio();
    glfwTerminate();
}

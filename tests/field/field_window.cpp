#include "field_window.h"

#include <GL/glew.h>

#include <cstdio>
#include <cstdlib>

#include "base/random.h"
#include "data/settings.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "render/generated_textures.h"
#include "render/primitives.h"
#include "render/shaders.h"
#include "render/text.h"
#include "shell/window.h"
#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"
#include "sound/sound.h"
#include "support/play_session.h"
#include "support/scratch_dir.h"

FieldWindow::FieldWindow(int width, int height)
{
    dir = std::make_unique<ScratchDir>();
    linkBuiltContent();
    forgetCachedVolumes();
    testBackend::reset();
    glfwInit();
    desktopWidth = 1920;
    desktopHeight = 1080;
    setResolution(static_cast<uint16_t>(width), static_cast<uint16_t>(height));
    openDisplayWindow(false);
    glewInit();
    initAudio();
    loadBasicProgram();
    loadShaders(nullptr);
    loadFont();
    loadPanelButtonTexture();
    createScreenTexture();
    seedRandom(1);
    generateTextures(nullptr);
    setOrtho(800, 600);
}

FieldWindow::~FieldWindow()
{
    freeSurfaceData();
    deletePanelButtonTexture();
    deleteFont();
    deleteScreenTextures();
    shutdownAudio();
    glfwTerminate();
}

std::string mapPath(int number)
{
    return "content/maps/map" + std::to_string(number) + ".txt";
}

FieldPicture::FieldPicture() : rgb(static_cast<size_t>(fieldWidth) * fieldHeight * 3)
{
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, fieldWidth, fieldHeight, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
}

Rgb FieldPicture::at(int x, int y) const
{
    const size_t i = (static_cast<size_t>(fieldHeight - 1 - y) * fieldWidth + x) * 3;
    return Rgb{rgb[i], rgb[i + 1], rgb[i + 2]};
}

int FieldPicture::boxSum(int x, int y, int radius) const
{
    int total = 0, count = 0;
    for (int dy = -radius; dy <= radius; ++dy)
        for (int dx = -radius; dx <= radius; ++dx) {
            total += at(x + dx, y + dy).sum();
            ++count;
        }
    return total / count;
}

std::vector<uint8_t> readFieldStencil()
{
    std::vector<uint8_t> stencil(static_cast<size_t>(fieldWidth) * fieldHeight, 0xAA);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, fieldWidth, fieldHeight, GL_STENCIL_INDEX, GL_UNSIGNED_BYTE,
                 stencil.data());
    return stencil;
}

void emptyField(Level& level)
{
    for (Enemy*& enemy : level.enemies) {
        delete enemy;
        enemy = nullptr;
    }
    level.bolts.clear();
}

int addEnemy(Level& level, float x, float y, float size)
{
    level.enemies.push_back(new Enemy{x, y, 0, size, 1, 1, 1});
    return static_cast<int>(level.enemies.size()) - 1;
}

void raiseCannons(Player& player, uint8_t n)
{
    player.bank->setCannons(n);
    for (int i = 0; i < 400 && !(player.bank->progress == 100 &&
                                 player.bank->cannons.size() == n); ++i)
        player.bank->update();
}

bool saveCornerPng(const std::string& path, int width, int height)
{
    std::vector<unsigned char> rgb(static_cast<size_t>(width) * height * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    const std::string ppm = path + ".ppm";
    FILE* file = std::fopen(ppm.c_str(), "wb");
    if (!file) return false;
    std::fprintf(file, "P6\n%d %d\n255\n", width, height);
    for (int row = height - 1; row >= 0; row--)  // GL rows count from the bottom
        std::fwrite(&rgb[static_cast<size_t>(row) * width * 3], 1,
                    static_cast<size_t>(width) * 3, file);
    std::fclose(file);
    const std::string command = "convert '" + ppm + "' '" + path + "' && rm '" + ppm + "'";
    return std::system(command.c_str()) == 0;
}

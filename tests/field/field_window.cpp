#include "field_window.h"

#include <GL/glew.h>

#include "sim/cannon_bank.h"
#include "sim/level.h"
#include "sim/player.h"

FieldWindow::FieldWindow(int width, int height)
{
    session.open(1, static_cast<uint16_t>(width), static_cast<uint16_t>(height));
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

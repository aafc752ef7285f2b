// The frame's socket of the progress gear shows a finished recess in
// survival and two-player games, where no gear turns: not the black behind.
#include <gtest/gtest.h>

#include <GL/glew.h>

#include "platform/testing/test_backend.h"
#include "shell/window.h"
#include "sim/player.h"
#include "support/play_session.h"

TEST(GearSocket, ARecessWhereNoGearTurns)
{
    PlaySession session;
    session.open();
    for (uint8_t side : {0, 1, 2}) {
        SCOPED_TRACE(int(side));
        Player player(side, true, "content/maps/map1.txt", 1);
        player.update();
        player.drawField();
        glClear(GL_COLOR_BUFFER_BIT);
        player.drawView();
        // HUD point 8, 545: inside the socket's window, left of the bar.
        const PlayerView view = playerView(windowWidth, windowHeight, side == 0, side);
        const int x = view.x + 8 * view.width / 800;
        const int y = windowHeight - 1 - (view.y + 545 * view.height / 600);
        unsigned char rgba[4] = {};
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
        EXPECT_GT(rgba[0] + rgba[1] + rgba[2], 3 * 90);
    }
}

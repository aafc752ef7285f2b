#include "shader_test_support.h"

#include <GL/glew.h>

#include <algorithm>
#include <filesystem>

#include "data/sfa_format.h"
#include "platform/glfw.h"
#include "platform/testing/test_backend.h"
#include "support/scratch_dir.h"

namespace fs = std::filesystem;

void openShaderTestWindow() {
    testBackend::reset();
    glfwInit();
    glfwOpenWindow(512, 512, 8, 8, 8, 8, 0, 8, GLFW_WINDOW);
    glewInit();
    glViewport(0, 0, 512, 512);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0, 0, 0, 1);
    glColor4f(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

void closeShaderTestWindow() {
    glfwCloseWindow();
    glfwTerminate();
}

std::vector<std::string> shaderSourceNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(GORVAN_SOURCE_DIR) / "assets/shaders")) {
        std::string extension = entry.path().extension().string();
        if (extension == ".vrt" || extension == ".frag") names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void writeShaderArchive(const std::vector<ExtraShader>& extras) {
    std::vector<SfaEntry> entries;
    for (const std::string& name : shaderSourceNames()) {
        entries.push_back({name, readFileBytes(std::string(GORVAN_SOURCE_DIR) + "/assets/shaders/" + name)});
    }
    for (const ExtraShader& extra : extras) entries.push_back({extra.name, extra.source});
    writeFileBytes("content/shaders.sfa", packSfa(entries));
}

uint32_t makeTexture(int width, int height, const std::vector<uint8_t>& rgba) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return texture;
}

std::vector<uint8_t> flatRgba(int width, int height, uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    std::vector<uint8_t> rgba;
    rgba.reserve(width * height * 4);
    for (int i = 0; i < width * height; i++) rgba.insert(rgba.end(), {r, g, b, a});
    return rgba;
}

std::vector<uint8_t> readBack(int width, int height) {
    std::vector<uint8_t> rgba(width * height * 4);
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return rgba;
}

double channelMean(const std::vector<uint8_t>& rgba, int channel) {
    double sum = 0;
    for (size_t i = channel; i < rgba.size(); i += 4) sum += rgba[i];
    return sum / (rgba.size() / 4);
}

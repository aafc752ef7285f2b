// spg: turns a PNG into an .spg picture and back.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "data/spg_format.h"
#include "png_io.h"

namespace {

const char* usage =
    "Usage:\n"
    "  spg encode INPUT.png OUTPUT.spg   palette and run coding of the PNG's pixels;\n"
    "                                    alpha is stored only when some pixel has it\n"
    "  spg decode INPUT.spg OUTPUT.png   the picture back as an RGBA PNG\n"
    "  spg info INPUT.spg                width, height, alpha and palette size\n"
    "  spg --help                        show this text\n"
    "An .spg holds its rows from the bottom of the picture up; both directions\n"
    "turn the rows over, so PNG -> .spg -> PNG gives the same pixels.\n"
    "PNGs of any colour type are read as 8-bit RGBA (16-bit channels are cut to 8).\n";

int fail(const std::string& message)
{
    fprintf(stderr, "spg: %s\n", message.c_str());
    return 1;
}

bool readWholeFile(const std::string& path, std::vector<unsigned char>& bytes)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

int encode(const std::string& pngPath, const std::string& spgPath)
{
    RgbaPicture picture;
    std::string error;
    if (!readPng(pngPath, picture, &error)) return fail(pngPath + ": " + error);
    if (picture.width > 65535 || picture.height > 65535)
        return fail(pngPath + ": wider or higher than 65535 pixels");
    std::vector<unsigned char> stored = flipRows(picture.pixels.data(), picture.width, picture.height);
    std::vector<unsigned char> spg = encodeSpg(stored.data(), static_cast<uint16_t>(picture.width),
                                               static_cast<uint16_t>(picture.height));
    std::ofstream out(spgPath, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(spg.data()), static_cast<std::streamsize>(spg.size()));
    if (!out.flush()) return fail("couldn't write " + spgPath);
    return 0;
}

unsigned char* decodeFile(const std::string& spgPath, uint16_t& width, uint16_t& height)
{
    std::vector<unsigned char> bytes;
    if (!readWholeFile(spgPath, bytes)) {
        fail("couldn't open " + spgPath);
        return nullptr;
    }
    std::string damage;
    unsigned char* pixels = decodeSpg(bytes.data(), bytes.size(), &width, &height, &damage);
    if (!pixels) fail(spgPath + ": " + damage);
    return pixels;
}

int decode(const std::string& spgPath, const std::string& pngPath)
{
    uint16_t width = 0, height = 0;
    unsigned char* stored = decodeFile(spgPath, width, height);
    if (!stored) return 1;
    RgbaPicture picture;
    picture.width = width;
    picture.height = height;
    picture.pixels = flipRows(stored, width, height);
    delete[] stored;
    std::string error;
    if (!writePng(pngPath, picture, &error)) return fail(pngPath + ": " + error);
    return 0;
}

int info(const std::string& spgPath)
{
    uint16_t width = 0, height = 0;
    unsigned char* stored = decodeFile(spgPath, width, height);
    if (!stored) return 1;
    delete[] stored;
    std::vector<unsigned char> bytes;
    readWholeFile(spgPath, bytes);
    uint64_t paletteCount = 0;
    for (size_t i = 9; i < bytes.size(); ++i) {  // the decode above vouches for these bytes
        paletteCount += bytes[i];
        if (bytes[i] != 255) break;
    }
    printf("%u x %u, %s, %llu colours, %zu bytes\n", width, height, bytes[8] ? "alpha" : "no alpha",
           static_cast<unsigned long long>(paletteCount), bytes.size());
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        fputs(usage, stdout);
        return 0;
    }
    if (args.size() == 3 && args[0] == "encode") return encode(args[1], args[2]);
    if (args.size() == 3 && args[0] == "decode") return decode(args[1], args[2]);
    if (args.size() == 2 && args[0] == "info") return info(args[1]);
    fputs(usage, stderr);
    return 2;
}

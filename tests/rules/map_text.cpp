#include "map_text.h"

#include <filesystem>
#include <fstream>

std::string MapText::write(int number) const
{
    std::filesystem::create_directories("content/maps");
    const std::string path = "content/maps/map" + std::to_string(number) + ".txt";
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines)
        out << line << lineEnd;
    return path;
}

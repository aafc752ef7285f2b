# The libraries of the Windows build, cross-built from their Debian source
# packages into GORVAN_WINDOWS_PREFIX by tools/windows/build-libraries.sh,
# under the target names that the Linux build's packages give them.
find_package(OpenGL REQUIRED)
set(GLEW_USE_STATIC_LIBS ON)
find_package(GLEW REQUIRED)
find_package(OpenAL REQUIRED)
find_package(GTest REQUIRED)
find_package(glfw3 3.3 CONFIG REQUIRED)
find_package(Vorbis CONFIG REQUIRED)

add_library(PkgConfig::GLFW3 INTERFACE IMPORTED)
target_link_libraries(PkgConfig::GLFW3 INTERFACE glfw)
add_library(PkgConfig::VORBISFILE INTERFACE IMPORTED)
target_link_libraries(PkgConfig::VORBISFILE INTERFACE Vorbis::vorbisfile)

# windows.h, where it is included, leaves std::min and std::max alone.
add_compile_definitions(NOMINMAX)

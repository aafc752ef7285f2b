# The Windows build's own targets, on top of the game's libraries and program
# that the top-level CMakeLists.txt defines (tools/windows/build-release.sh
# runs it all; see README, "Windows").

# A Windows program without a console window: the log is seen only where the
# streams are redirected, as the game has always had it.
set_target_properties(gorvan PROPERTIES WIN32_EXECUTABLE ON)
target_link_libraries(gorvan_platform_desktop PUBLIC winmm)  # the sleep's timer period

# The content is the same bytes on every system, so the Linux build's tools
# make it and it is copied as it stands (the player's files stay behind).
set(GORVAN_LINUX_RUN_DIR ${CMAKE_SOURCE_DIR}/build/run CACHE PATH
    "The Linux build's run folder, whose content the Windows build takes")
set(linux_content ${GORVAN_LINUX_RUN_DIR}/content)
add_custom_target(content ALL
    COMMAND ${CMAKE_COMMAND} -E copy_if_different
        ${linux_content}/images.sfa ${linux_content}/shaders.sfa ${GORVAN_RUN_DIR}/content
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${linux_content}/maps ${GORVAN_RUN_DIR}/content/maps
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${linux_content}/sound ${GORVAN_RUN_DIR}/content/sound
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${linux_content}/music ${GORVAN_RUN_DIR}/content/music
    COMMENT "Copying the content of the Linux build")

# OpenAL Soft is the one DLL: beside every program that plays sound.
foreach(folder ${GORVAN_RUN_DIR} ${CMAKE_BINARY_DIR}/tools ${CMAKE_BINARY_DIR}/tests)
    file(COPY ${GORVAN_WINDOWS_PREFIX}/bin/OpenAL32.dll DESTINATION ${folder})
endforeach()

# The headless runner, for comparing the rules' outcome with the Linux build's.
add_executable(headless_runner tools/headless_runner.cpp tools/runner_policies.cpp
    tools/rules_match.cpp)
target_link_libraries(headless_runner PRIVATE
    -Wl,--start-group gorvan_core gorvan_platform_test -Wl,--end-group)
set_target_properties(headless_runner PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools)

add_subdirectory(tests)

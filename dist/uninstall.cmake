# Removes what the last install from this build put in place, as its manifest
# lists it, under the same DESTDIR as the install, and then the game's own
# folders once they are empty. Shared folders (share/icons/hicolor/...,
# share/man/man6) stay.
#   [DESTDIR=...] cmake -DMANIFEST=build/install_manifest.txt -P dist/uninstall.cmake
if(NOT EXISTS "${MANIFEST}")
    message(FATAL_ERROR "No install manifest at ${MANIFEST}: nothing was installed from this build")
endif()
file(STRINGS "${MANIFEST}" installed)
foreach(listed ${installed})
    set(path "$ENV{DESTDIR}${listed}")
    if(EXISTS "${path}" OR IS_SYMLINK "${path}")
        message(STATUS "Removing ${path}")
        file(REMOVE "${path}")
    endif()
    # lib/gorvan, share/gorvan, share/gorvan/content and the folders in it.
    get_filename_component(folder "${path}" DIRECTORY)
    while(folder MATCHES "/(lib|share)/gorvan(/content(/[^/]+)?)?$")
        file(GLOB left "${folder}/*" "${folder}/.*")
        if(left)
            break()
        endif()
        file(REMOVE_RECURSE "${folder}")
        get_filename_component(folder "${folder}" DIRECTORY)
    endwhile()
endforeach()

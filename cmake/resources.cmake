# Icons from our drawings, and the resources of the Windows programs: icon, manifest, version.
set(generated ${PROJECT_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${generated})
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)

set(icon_files)
foreach(size 16 20 24 32 40 48 64 256)
    set(drawing ${PROJECT_SOURCE_DIR}/data/icons/tamarind.svg)
    if(size LESS 32)
        set(drawing ${PROJECT_SOURCE_DIR}/data/icons/tamarind-small.svg)
    endif()
    set(icon ${generated}/tamarind-${size}.png)
    add_custom_command(OUTPUT ${icon} DEPENDS ${drawing}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${icon} ${drawing})
    list(APPEND icon_files ${icon})
endforeach()
add_custom_command(OUTPUT ${generated}/tamarind.ico DEPENDS ${icon_files}
    COMMAND ${ICOTOOL} -c -o ${generated}/tamarind.ico ${icon_files})
# The Linux window's own icons, which Windows takes from the resources, and the pictures of folder lists, as bytes in a
# header: icon files, which every build of the toolkit reads.
set(window_icons)
foreach(size 16 32 48 64)
    list(APPEND window_icons ${generated}/tamarind-${size}.png)
endforeach()
set(embedded_files ${generated}/window.ico)
add_custom_command(OUTPUT ${generated}/window.ico DEPENDS ${window_icons}
    COMMAND ${ICOTOOL} -c -o ${generated}/window.ico ${window_icons})
foreach(name drive folder folder-open)
    set(pictures)
    foreach(size 16 20 24 32)
        set(picture ${generated}/${name}-${size}.png)
        add_custom_command(OUTPUT ${picture} DEPENDS ${PROJECT_SOURCE_DIR}/data/icons/${name}.svg
            COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${picture} ${PROJECT_SOURCE_DIR}/data/icons/${name}.svg)
        list(APPEND pictures ${picture})
    endforeach()
    add_custom_command(OUTPUT ${generated}/${name}.ico DEPENDS ${pictures}
        COMMAND ${ICOTOOL} -c -o ${generated}/${name}.ico ${pictures})
    list(APPEND embedded_files ${generated}/${name}.ico)
endforeach()
list(JOIN embedded_files "," embedded_list)
add_custom_command(OUTPUT ${generated}/icons.h DEPENDS ${embedded_files} ${PROJECT_SOURCE_DIR}/cmake/embed.cmake
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${generated}/icons.h "-DFILES=${embedded_list}"
        -P ${PROJECT_SOURCE_DIR}/cmake/embed.cmake)
add_custom_target(tamarind_icons DEPENDS ${generated}/tamarind.ico ${generated}/icons.h)

# tamarind_windows_resources(target window|dialog|console): on Windows alone. A dialog is a window without the toolkit.
function(tamarind_windows_resources target kind)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(RESOURCE_NAME ${target} OUTPUT_NAME)
    if(NOT RESOURCE_NAME)
        set(RESOURCE_NAME ${target})
    endif()
    set(ICON_RESOURCE "tamarind ICON \"${generated}/tamarind.ico\"")
    if(kind STREQUAL "window")
        set(RESOURCE_DESCRIPTION "Tamarind")
        # The toolkit's own manifest lacks long paths; ours stands below.
        set(WX_RESOURCES "#define wxUSE_NO_MANIFEST 1\n#include <wx/msw/wx.rc>")
    elseif(kind STREQUAL "dialog")
        set(RESOURCE_DESCRIPTION "Installer of packages made with Tamarind")
        set(WX_RESOURCES "")
    else()
        set(RESOURCE_DESCRIPTION "Tamarind for the terminal")
        set(WX_RESOURCES "")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/data/windows/tamarind.manifest.in ${generated}/tamarind.manifest @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/data/windows/resources.rc.in ${generated}/${target}.rc @ONLY)
    set_source_files_properties(${generated}/${target}.rc PROPERTIES
        OBJECT_DEPENDS "${generated}/tamarind.ico;${generated}/tamarind.manifest")
    if(kind STREQUAL "window")
        set_source_files_properties(${generated}/${target}.rc PROPERTIES
            INCLUDE_DIRECTORIES "${TAMARIND_CROSS_LIBS}/include/wx-3.2")
    endif()
    target_sources(${target} PRIVATE ${generated}/${target}.rc)
    add_dependencies(${target} tamarind_icons)
endfunction()

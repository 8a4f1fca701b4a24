# All that the packages need of a build.
add_custom_target(package_contents)
foreach(target tamarind tamarind-cli RouteSetup tamarind_help tamarind_icons)
    if(TARGET ${target})
        add_dependencies(package_contents ${target})
    endif()
endforeach()

# What a package holds, in three parts for "cmake --install --component":
#   program    the program's folder, wherever it will stand
#   documents  what belongs to it for reading
#   desktop    below a prefix such as /usr; on Linux alone
# scripts/dist.sh makes packages of them. What the build puts beside the programs is looked for there, so that a part
# that is missing fails the installation and not its user.
set(built ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
install(TARGETS tamarind tamarind-cli RUNTIME DESTINATION . COMPONENT program)
install(PROGRAMS ${built}/RouteSetup.exe DESTINATION . COMPONENT program)
install(FILES ${built}/Tamarind.chm DESTINATION . COMPONENT program)
install(DIRECTORY ${built}/help ${built}/BluePrints DESTINATION . COMPONENT program)

# Windows knows a text by the ending of its name.
set(text_ending)
set(markdown_ending .md)
if(WIN32)
    set(text_ending .txt)
    set(markdown_ending .txt)
endif()
install(FILES LICENSE DESTINATION . COMPONENT documents RENAME LICENSE${text_ending})
install(FILES README.md DESTINATION . COMPONENT documents RENAME README${markdown_ending})
install(FILES CHANGELOG.md DESTINATION . COMPONENT documents RENAME CHANGELOG${markdown_ending})
install(FILES docs/cli.md DESTINATION . COMPONENT documents RENAME tamarind-cli${markdown_ending})

# Runs a script of the project at installation and keeps what it prints.
function(install_output name destination component)
    list(JOIN ARGN "\" \"" command)
    install(CODE "execute_process(COMMAND \"${command}\" OUTPUT_FILE \"${generated}/${name}\"
        COMMAND_ERROR_IS_FATAL ANY)" COMPONENT ${component})
    install(FILES ${generated}/${name} DESTINATION ${destination} COMPONENT ${component})
endfunction()

# Debian packages whose code, headers included, is linked into the programs. RouteSetup.exe is in every package.
set(linked_packages libcli11-dev libfmt-dev libstb-dev nlohmann-json3-dev gcc-mingw-w64-x86-64-posix
    mingw-w64-x86-64-dev)
if(WIN32)
    list(APPEND linked_packages libexpat1-dev libwxgtk3.2-dev)
endif()
install_output(LICENCES.txt . documents ${PROJECT_SOURCE_DIR}/scripts/licences.sh ${linked_packages})
if(WIN32)
    return()
endif()

# With the date of the installation, or of SOURCE_DATE_EPOCH.
function(fill_in name output)
    install(CODE "string(TIMESTAMP TAMARIND_RELEASE_DATE \"%Y-%m-%d\" UTC)
        set(PROJECT_VERSION ${PROJECT_VERSION})
        configure_file(\"${PROJECT_SOURCE_DIR}/data/linux/${name}.in\" \"${generated}/${output}\" @ONLY)"
        COMPONENT desktop)
endfunction()

fill_in(tamarind.metainfo.xml tamarind.metainfo.xml)
install(FILES ${generated}/tamarind.metainfo.xml DESTINATION share/metainfo COMPONENT desktop)
install(FILES data/linux/tamarind.desktop DESTINATION share/applications COMPONENT desktop)
foreach(size 16 24 32 48 64 256)
    install(FILES ${generated}/tamarind-${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps
        COMPONENT desktop RENAME tamarind.png)
endforeach()
install(FILES data/icons/tamarind.svg DESTINATION share/icons/hicolor/scalable/apps COMPONENT desktop)
foreach(name tamarind tamarind-cli)
    install(FILES data/linux/completion.bash DESTINATION share/bash-completion/completions COMPONENT desktop
        RENAME ${name})
endforeach()
fill_in(tamarind.1 tamarind.1)
install(FILES ${generated}/tamarind.1 DESTINATION share/man/man1 COMPONENT desktop)
fill_in(tamarind-cli.1 tamarind-cli.1.in)
install_output(tamarind-cli.1 share/man/man1 desktop ${PROJECT_SOURCE_DIR}/scripts/cli_man.py
    ${generated}/tamarind-cli.1.in ${PROJECT_SOURCE_DIR}/docs/cli.md $<TARGET_FILE:tamarind-cli>)

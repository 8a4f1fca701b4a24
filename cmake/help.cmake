# The help file "Tamarind.chm" beside the programs, and the same pages in a folder "help" for the program's own window.
find_program(CHMCMD chmcmd REQUIRED)
find_program(EXTRACT_CHM extract_chmLib REQUIRED)
set(help_source ${PROJECT_SOURCE_DIR}/data/help)
set(help_bin ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
file(GLOB_RECURSE help_files CONFIGURE_DEPENDS ${help_source}/*)
add_custom_command(OUTPUT ${help_bin}/Tamarind.chm
    DEPENDS ${help_files} ${PROJECT_SOURCE_DIR}/cmake/make_help.cmake
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${help_source} -DOUTPUT=${help_bin} -DWORK=${PROJECT_BINARY_DIR}/help
        -DCHMCMD=${CHMCMD} -DEXTRACT_CHM=${EXTRACT_CHM} -P ${PROJECT_SOURCE_DIR}/cmake/make_help.cmake
    COMMENT "Making Tamarind.chm" VERBATIM)
add_custom_target(tamarind_help ALL DEPENDS ${help_bin}/Tamarind.chm)

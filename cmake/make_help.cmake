# Makes OUTPUT/Tamarind.chm, and the folder OUTPUT/help, of the pages in SOURCE. The compiler's exit code tells nothing:
# it is 0 when its project or a page is missing. So what it made is unpacked and compared with the sources.
#   cmake -DSOURCE= -DOUTPUT= -DWORK= -DCHMCMD= -DEXTRACT_CHM= -P make_help.cmake
cmake_minimum_required(VERSION 3.25)
set(pages ${WORK}/pages)
set(unpacked ${WORK}/unpacked)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${SOURCE}/ DESTINATION ${pages})

# Every file must be named in the project, and the other way round; the compiler takes "/" in paths alone.
if(NOT EXISTS ${pages}/Tamarind.hhp)
    message(FATAL_ERROR "There is no ${SOURCE}/Tamarind.hhp")
endif()
file(STRINGS ${pages}/Tamarind.hhp lines)
list(FIND lines "[FILES]" at)
list(SUBLIST lines ${at} -1 named)
list(REMOVE_AT named 0)
list(FILTER named EXCLUDE REGEX "^ *$")
file(GLOB_RECURSE present RELATIVE ${pages} ${pages}/*)
list(REMOVE_ITEM present Tamarind.hhp Tamarind.hhc Tamarind.hhk)
list(SORT named)
list(SORT present)
if(NOT named STREQUAL present)
    message(FATAL_ERROR "Tamarind.hhp names\n${named}\nbut there are\n${present}")
endif()

# It writes what happens to lie in its memory into the file. Where nothing there is left to chance, the same pages make
# the same bytes.
set(without_chance)
execute_process(COMMAND setarch -R true RESULT_VARIABLE refused OUTPUT_QUIET ERROR_QUIET)
if(refused EQUAL 0)
    set(without_chance env -i setarch -R)
endif()
execute_process(COMMAND ${without_chance} ${CHMCMD} --verbosity 1 Tamarind.hhp WORKING_DIRECTORY ${pages}
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT result EQUAL 0 OR NOT EXISTS ${pages}/Tamarind.chm)
    message(FATAL_ERROR "${CHMCMD} made no Tamarind.chm:\n${said}")
endif()
file(RENAME ${pages}/Tamarind.chm ${WORK}/Tamarind.chm)
execute_process(COMMAND ${EXTRACT_CHM} ${WORK}/Tamarind.chm ${unpacked}
    RESULT_VARIABLE result OUTPUT_VARIABLE unpacking ERROR_VARIABLE unpacking)
foreach(file ${named} Tamarind.hhc Tamarind.hhk)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${pages}/${file} ${unpacked}/${file}
        RESULT_VARIABLE differs OUTPUT_QUIET ERROR_QUIET)
    if(differs)
        message(FATAL_ERROR "${file} did not get into Tamarind.chm as it is. ${CHMCMD} said:\n${said}")
    endif()
endforeach()

file(REMOVE_RECURSE ${OUTPUT}/help)
file(MAKE_DIRECTORY ${OUTPUT})
file(RENAME ${pages} ${OUTPUT}/help)
file(RENAME ${WORK}/Tamarind.chm ${OUTPUT}/Tamarind.chm)

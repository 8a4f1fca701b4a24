# The build must fail when the help file would not hold what it should. Each case changes a copy of the sources.
cmake_minimum_required(VERSION 3.25)

function(start)
    file(REMOVE_RECURSE ${WORK})
    file(COPY ${SOURCE}/ DESTINATION ${WORK}/source)
endfunction()

function(replace file old new)
    file(READ ${WORK}/source/${file} text)
    string(FIND "${text}" "${old}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "${file} does not hold ${old}")
    endif()
    string(REPLACE "${old}" "${new}" text "${text}")
    file(WRITE ${WORK}/source/${file} "${text}")
endfunction()

# expect(sentence TRUE|FALSE what-is-said [compiler]): whether the steps succeed, and what they say when they do not.
function(expect sentence success said)
    set(compiler ${CHMCMD} ${ARGN})
    list(GET compiler -1 compiler)
    execute_process(COMMAND ${CMAKE_COMMAND} -DSOURCE=${WORK}/source -DOUTPUT=${WORK}/bin -DWORK=${WORK}/work
            -DCHMCMD=${compiler} -DEXTRACT_CHM=${EXTRACT_CHM} -P ${STEPS}
        RESULT_VARIABLE result OUTPUT_VARIABLE told ERROR_VARIABLE told)
    set(succeeded FALSE)
    if(result EQUAL 0)
        set(succeeded TRUE)
    endif()
    set(made FALSE)
    if(EXISTS ${WORK}/bin/Tamarind.chm)
        set(made TRUE)
    endif()
    string(REGEX REPLACE "[ \n]+" " " told "${told}")
    string(FIND "${told}" "${said}" at)
    if(NOT succeeded STREQUAL success OR NOT made STREQUAL success OR at EQUAL -1)
        message(SEND_ERROR "Not so: ${sentence}. Success ${succeeded}, file made ${made}:\n${told}")
    else()
        message(STATUS "${sentence}")
    endif()
endfunction()

start()
expect("Whole pages make a help file" TRUE "")

start()
file(REMOVE ${WORK}/source/markers.html)
expect("A missing page fails" FALSE "Tamarind.hhp names")

start()
file(WRITE ${WORK}/source/forgotten.html "<html></html>")
expect("A page that the project does not name fails" FALSE "Tamarind.hhp names")

start()
file(REMOVE ${WORK}/source/Tamarind.hhp)
expect("A missing project fails" FALSE "There is no")

start()
replace(Tamarind.hhp "pictures/routes.gif" "pictures\\routes.gif")
expect("A backslash in a path fails" FALSE "Tamarind.hhp names")

start()
replace(Tamarind.hhp "Contents file=Tamarind.hhc\n" "")
expect("A help file without its contents fails" FALSE "Tamarind.hhc did not get into Tamarind.chm")

start()
replace(Tamarind.hhp "Index file=Tamarind.hhk\n" "")
expect("A help file without its index fails" FALSE "Tamarind.hhk did not get into Tamarind.chm")

start()
expect("A compiler that makes nothing and calls it a success fails" FALSE "made no Tamarind.chm" /bin/true)

start()
file(WRITE ${WORK}/empty-compiler "#!/bin/sh\n: >Tamarind.chm\n")
file(CHMOD ${WORK}/empty-compiler PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
expect("An empty help file fails" FALSE "did not get into Tamarind.chm" ${WORK}/empty-compiler)

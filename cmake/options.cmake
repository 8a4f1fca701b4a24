# Warnings, and what every target of ours is compiled with.
add_library(tamarind_options INTERFACE)
target_compile_options(tamarind_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_include_directories(tamarind_options INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
target_compile_definitions(tamarind_options INTERFACE TAMARIND_VERSION="${PROJECT_VERSION}")
if(WIN32)
    target_compile_definitions(tamarind_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
        _WIN32_WINNT=0x0A00)
    # Without the time of linking: the same sources give the same program.
    target_link_options(tamarind_options INTERFACE -static -Wl,--gc-sections,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
    target_compile_options(tamarind_options INTERFACE -ffunction-sections -fdata-sections)
endif()
if(TAMARIND_FUZZ)
    set(TAMARIND_SANITIZE fuzzer-no-link,address,undefined)
endif()
if(TAMARIND_SANITIZE)
    add_compile_options(-fsanitize=${TAMARIND_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TAMARIND_SANITIZE})
endif()

# The libraries that we link, under one name on both targets:
#   tamarind::wx, tamarind::expat, tamarind::gtest, and the header-only tamarind::headers (fmt, CLI11, nlohmann/json, stb).
add_library(tamarind_headers INTERFACE)
add_library(tamarind::headers ALIAS tamarind_headers)
target_compile_definitions(tamarind_headers INTERFACE FMT_HEADER_ONLY)

if(WIN32)
    # Header-only Debian packages reach the cross build through links in a folder of their own: /usr/include itself
    # would bring the native system's headers along.
    set(header_links ${PROJECT_BINARY_DIR}/headers)
    file(MAKE_DIRECTORY ${header_links})
    foreach(name fmt CLI nlohmann stb)
        file(CREATE_LINK /usr/include/${name} ${header_links}/${name} SYMBOLIC)
    endforeach()
    target_include_directories(tamarind_headers SYSTEM INTERFACE ${header_links})

    if(TAMARIND_SETUP_ONLY)
        return()
    endif()
    if(NOT TAMARIND_CROSS_LIBS)
        execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/cross-libs.sh
            OUTPUT_VARIABLE TAMARIND_CROSS_LIBS OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    endif()
    set(cross ${TAMARIND_CROSS_LIBS})

    add_library(tamarind_expat INTERFACE)
    target_include_directories(tamarind_expat SYSTEM INTERFACE ${cross}/include)
    target_compile_definitions(tamarind_expat INTERFACE XML_STATIC)
    target_link_libraries(tamarind_expat INTERFACE ${cross}/lib/libexpat.a)

    add_library(tamarind_gtest INTERFACE)
    target_include_directories(tamarind_gtest SYSTEM INTERFACE ${cross}/include)
    target_link_libraries(tamarind_gtest INTERFACE ${cross}/lib/libgmock.a ${cross}/lib/libgtest.a)

    add_library(tamarind_wx INTERFACE)
    target_include_directories(tamarind_wx SYSTEM INTERFACE ${cross}/include/wx-3.2
        ${cross}/lib/wx/include/x86_64-w64-mingw32-msw-unicode-static-3.2)
    target_compile_definitions(tamarind_wx INTERFACE __WXMSW__ _UNICODE NDEBUG wxDEBUG_LEVEL=0)
    target_link_libraries(tamarind_wx INTERFACE
        ${cross}/lib/libwx_mswu-3.2-x86_64-w64-mingw32.a ${cross}/lib/libwxscintilla-3.2-x86_64-w64-mingw32.a
        gdi32 msimg32 comctl32 comdlg32 winspool winmm shell32 shlwapi ole32 oleaut32 uuid rpcrt4 advapi32 version
        ws2_32 wininet oleacc uxtheme imm32)
else()
    find_package(EXPAT REQUIRED)
    add_library(tamarind_expat INTERFACE)
    target_link_libraries(tamarind_expat INTERFACE EXPAT::EXPAT)

    find_package(Threads REQUIRED)
    if(NOT TAMARIND_FUZZ)
        find_package(GTest REQUIRED)
        add_library(tamarind_gtest INTERFACE)
        target_link_libraries(tamarind_gtest INTERFACE GTest::gmock GTest::gtest Threads::Threads)
    endif()

    if(TAMARIND_WINDOWS_UI)
        set(wxWidgets_CONFIG_OPTIONS --toolkit=gtk3)
        find_package(wxWidgets 3.2 REQUIRED COMPONENTS stc html core base)
        add_library(tamarind_wx INTERFACE)
        target_include_directories(tamarind_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
        target_compile_definitions(tamarind_wx INTERFACE ${wxWidgets_DEFINITIONS})
        target_compile_options(tamarind_wx INTERFACE ${wxWidgets_CXX_FLAGS})
        target_link_libraries(tamarind_wx INTERFACE ${wxWidgets_LIBRARIES})
    endif()
endif()
add_library(tamarind::expat ALIAS tamarind_expat)
if(TARGET tamarind_gtest)
    add_library(tamarind::gtest ALIAS tamarind_gtest)
endif()
if(TARGET tamarind_wx)
    add_library(tamarind::wx ALIAS tamarind_wx)
endif()

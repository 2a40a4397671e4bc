# What every target of this project is built with, and how a folder becomes a library.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# Every program where the scripts find it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

option(TARVEX_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(TARVEX_LIBFUZZER "Build the fuzz targets for libFuzzer, and what they look at to be followed by it" OFF)
option(TARVEX_WERROR "A warning stops the build: for who changes the sources, not for who installs" OFF)

add_library(tarvex_options INTERFACE)
add_library(tarvex::options ALIAS tarvex_options)
if(MSVC)
    target_compile_options(tarvex_options INTERFACE /W4 /utf-8 /permissive-)
else()
    target_compile_options(
        tarvex_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
endif()
if(TARVEX_WERROR)
    target_compile_options(tarvex_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(TARVEX_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(tarvex_options INTERFACE ${sanitizers})
    target_compile_definitions(tarvex_options INTERFACE _GLIBCXX_ASSERTIONS)
    target_link_options(tarvex_options INTERFACE ${sanitizers})
endif()
if(TARVEX_LIBFUZZER)
    target_compile_options(tarvex_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(TARVEX_CCACHE ccache)
if(TARVEX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Its word that headers compiled in advance may be kept too.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${TARVEX_CCACHE}")
endif()

# tarvex_library(NAME SOURCES ... LINKS ...): the static library tarvex_NAME, known as tarvex::NAME,
# whose includes start in src for a folder of src ("core/handlers.h"), else in the folder of the project
# ("survey/model/head.h").
function(tarvex_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    set(root "${PROJECT_SOURCE_DIR}")
    if(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/src/")
        set(root "${PROJECT_SOURCE_DIR}/src")
    endif()
    add_library(tarvex_${name} STATIC ${ARG_SOURCES})
    add_library(tarvex::${name} ALIAS tarvex_${name})
    target_include_directories(tarvex_${name} PUBLIC "${root}")
    target_link_libraries(tarvex_${name} PUBLIC ${ARG_LINKS} PRIVATE tarvex::options)
endfunction()

# tarvex_test_target(NAME [TOOLKIT]): what is tested is optimised as in the program, the tests
# themselves are not, unless the build is for the fuzz targets; their common headers are compiled once (tests/headers). TOOLKIT for a program
# that links Qt.
function(tarvex_test_target name)
    cmake_parse_arguments(ARG "TOOLKIT" "" "" ${ARGN})
    if(NOT TARVEX_SANITIZE)
        target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O0>)
    endif()
    if(ARG_TOOLKIT)
        target_precompile_headers(${name} REUSE_FROM tarvex_window_test_headers)
    else()
        target_precompile_headers(${name} REUSE_FROM tarvex_test_headers)
    endif()
endfunction()

# tarvex_test(NAME [TOOLKIT] SOURCES ... LINKS ...): one program of GoogleTest cases, run as one test
# of that name. One with windows links tarvex_window_main, and TOOLKIT shows them on no desktop.
function(tarvex_test name)
    cmake_parse_arguments(ARG "TOOLKIT" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main tarvex::options)
    add_test(NAME ${name} COMMAND ${name})
    if(ARG_TOOLKIT)
        tarvex_test_target(${name} TOOLKIT)
        set_tests_properties(
            ${name} PROPERTIES ENVIRONMENT_MODIFICATION QT_QPA_PLATFORM=set:offscreen)
    else()
        tarvex_test_target(${name})
    endif()
endfunction()

# tarvex_screen_tests(TARGET SCREEN...): a test of the target's name for each screen: width and height in
# pixels, then scale and the size of the texts in percent.
function(tarvex_screen_tests target)
    foreach(screen IN LISTS ARGN)
        string(REPLACE " " ";" screen "${screen}")
        list(GET screen 0 width)
        list(GET screen 1 height)
        list(GET screen 2 scale)
        list(GET screen 3 text)
        set(name "${target}_${width}x${height}_scale${scale}_text${text}")
        set(place "${CMAKE_CURRENT_BINARY_DIR}/${name}.json")
        file(
            WRITE "${place}"
            "{\"screens\": [{\"name\": \"test\", \"x\": 0, \"y\": 0, \"width\": ${width}, "
            "\"height\": ${height}, \"dpr\": 1, \"logicalDpi\": 96, \"logicalBaseDpi\": 96}]}\n")
        add_test(NAME ${name} COMMAND ${target})
        set_tests_properties(
            ${name}
            PROPERTIES
                ENVIRONMENT
                "QT_QPA_PLATFORM=offscreen:configfile=${place};QT_SCALE_FACTOR=${scale};SCREEN_TEST_TEXT=${text};SCREEN_TEST_WIDTH=${width}")
    endforeach()
endfunction()

# How every target of the project is built, and the one way to declare a room.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(QUORVEL_CCACHE ccache)
if(QUORVEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${QUORVEL_CCACHE})
endif()

add_library(quorvel_options INTERFACE)
target_include_directories(quorvel_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(quorvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror)
if(QUORVEL_SANITIZERS)
  target_compile_options(quorvel_options INTERFACE
    -fsanitize=${QUORVEL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvel_options INTERFACE -fsanitize=${QUORVEL_SANITIZERS})
endif()

# Warnings that look over the border between two sources of a unit; linked last, so that they win.
add_library(quorvel_unit_options INTERFACE)
target_compile_options(quorvel_unit_options INTERFACE -Wno-subobject-linkage -Wno-shadow)

# What most sources include, compiled once a target. Sources include what they use all the same: the linter
# reads them without this.
set(QUORVEL_HEADERS <algorithm> <functional> <map> <memory> <optional> <string> <string_view> <vector>)

# quorvel_room(NAME ROOMS... [LINKS LIBRARY...] [HEADERS HEADER...])
# The library quorvel_NAME of all sources in this folder and its sub-rooms; it may include the named rooms and
# libraries only. HEADERS are precompiled along with the usual ones.
function(quorvel_room name)
  cmake_parse_arguments(ROOM "" "" "ROOMS;LINKS;HEADERS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.h *.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  list(TRANSFORM ROOM_ROOMS PREPEND quorvel_)
  if(NOT sources)
    add_library(quorvel_${name} INTERFACE)
    target_link_libraries(quorvel_${name} INTERFACE ${ROOM_ROOMS} ${ROOM_LINKS})
    return()
  endif()
  add_library(quorvel_${name} STATIC ${sources})
  set_target_properties(quorvel_${name} PROPERTIES LINKER_LANGUAGE CXX)  # a room may be headers only
  target_link_libraries(quorvel_${name} PUBLIC ${ROOM_ROOMS} ${ROOM_LINKS} PRIVATE quorvel_options)
  target_include_directories(quorvel_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_precompile_headers(quorvel_${name} PRIVATE ${QUORVEL_HEADERS} ${ROOM_HEADERS})
  quorvel_units(quorvel_${name} ${sources})
endfunction()

# Compiles the target's sources a folder at a time, so that each header is read once a folder. Names of a
# folder's anonymous namespaces must differ for that; the preset lint builds every source by itself.
function(quorvel_units target)
  if(NOT QUORVEL_UNITS)
    return()
  endif()
  target_link_libraries(${target} PRIVATE quorvel_unit_options)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  foreach(source ${ARGN})
    get_filename_component(folder ${source} DIRECTORY)
    get_filename_component(unit ${folder} NAME)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${unit})
  endforeach()
endfunction()

# quorvel_tests(NAME ROOMS... [LINKS LIBRARY...] [HEADERS HEADER...])
# The program NAME_tests of all sources in this folder and below; every test is a row of ctest.
function(quorvel_tests name)
  cmake_parse_arguments(TESTS "" "" "ROOMS;LINKS;HEADERS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.h *.cpp)
  list(TRANSFORM TESTS_ROOMS PREPEND quorvel_)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE
    quorvel_options ${TESTS_ROOMS} ${TESTS_LINKS} GTest::gtest GTest::gmock GTest::gtest_main)
  if(QUORVEL_SANITIZERS)  # GCC 12 takes <regex> for using what it has not set when it is instrumented
    target_compile_options(${name}_tests PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-error=maybe-uninitialized>)
  endif()
  target_include_directories(${name}_tests PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/tests)
  target_precompile_headers(${name}_tests PRIVATE
    ${QUORVEL_HEADERS} <filesystem> <sstream> <gmock/gmock.h> <gtest/gtest.h> ${TESTS_HEADERS})
  quorvel_units(${name}_tests ${sources})
  gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST
    TEST_PREFIX "${name}." PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TMPDIR=${QUORVEL_TEMP_DIR}")
endfunction()

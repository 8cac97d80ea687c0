find_package(GTest REQUIRED)
include(GoogleTest)

# Every unit test reads GoogleTest's headers, which takes longer than what it has to say; they are
# compiled once.
file(WRITE ${CMAKE_BINARY_DIR}/gtest_once.cpp "")
add_library(gtest_once OBJECT ${CMAKE_BINARY_DIR}/gtest_once.cpp)
target_precompile_headers(gtest_once PRIVATE <gtest/gtest.h>)
target_link_libraries(gtest_once PRIVATE GTest::gtest quorvel_options)

# quorvel_tests(NAME SOURCES aTest.cpp... DEPENDS core...)
#
# A program of unit tests. Each of them is a test of ctest's.
function(quorvel_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} quorvel_options GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM gtest_once)
    gtest_discover_tests(${name})
endfunction()

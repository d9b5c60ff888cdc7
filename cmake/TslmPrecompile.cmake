# Precompiled headers. Most of a file's compile time is the reading of the standard library and of
# GoogleTest; they are read once for the libraries, once for the test programs and once for the host.
#
# A file still includes all that it uses: CMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without, and so
# does the preset `tidy`.

# tslm5_precompiled(NAME <target> KIND LIBRARY|PROGRAM HEADERS <header>... [LINKS <target>...]
#                   [OPTIONS <option>...])
#
# Makes <target>, which lends its precompiled headers to targets of the same kind and flags:
# target_precompile_headers(<other> REUSE_FROM <target>).
function(tslm5_precompiled)
  cmake_parse_arguments(PCH "" "NAME;KIND" "HEADERS;LINKS;OPTIONS" ${ARGN})
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${PCH_NAME}.cpp")
  file(GENERATE OUTPUT "${source}" CONTENT "int main() { return 0; }\n")
  if(PCH_KIND STREQUAL "PROGRAM")
    add_executable(${PCH_NAME} EXCLUDE_FROM_ALL "${source}")
  else()
    add_library(${PCH_NAME} STATIC EXCLUDE_FROM_ALL "${source}")
  endif()
  target_link_libraries(${PCH_NAME} PRIVATE ${PCH_LINKS} tslm5_flags)
  target_compile_options(${PCH_NAME} PRIVATE ${PCH_OPTIONS})
  target_precompile_headers(${PCH_NAME} PRIVATE ${PCH_HEADERS})
  # What the empty source becomes is none of the build's results.
  set_target_properties(
    ${PCH_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/precompiled"
                           ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/precompiled")
endfunction()

set(TSLM5_STANDARD_HEADERS
    <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <functional> <limits> <map> <memory>
    <optional> <span> <string> <string_view> <utility> <vector>)

tslm5_precompiled(NAME precompiled_rooms KIND LIBRARY HEADERS ${TSLM5_STANDARD_HEADERS})
tslm5_precompiled(NAME precompiled_tests KIND PROGRAM
                  HEADERS ${TSLM5_STANDARD_HEADERS} <gmock/gmock.h> <gtest/gtest.h>
                  LINKS GTest::gmock OPTIONS ${TSLM5_TEST_OPTIONS})

# tslm5_test_program(<target>): flags, headers and locale of a test program, beside what it tests.
function(tslm5_test_program target)
  target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/program_locale.cpp")
  target_link_libraries(${target} PRIVATE tslm5_flags GTest::gmock_main)
  target_compile_options(${target} PRIVATE ${TSLM5_TEST_OPTIONS})
  target_precompile_headers(${target} REUSE_FROM precompiled_tests)
endfunction()

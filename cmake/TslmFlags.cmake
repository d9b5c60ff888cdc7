# Compiler flags, all on one interface target: tslm5_flags.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

add_library(tslm5_flags INTERFACE)
target_compile_options(tslm5_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor
                                             -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # A known false alarm of g++ 12 on "literal" + std::string (GCC bug 105651).
  target_compile_options(tslm5_flags INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(tslm5_flags INTERFACE -Wreserved-identifier)
endif()
if(TSLM5_WARNINGS_AS_ERRORS)
  target_compile_options(tslm5_flags INTERFACE -Werror)
endif()
if(TSLM5_SANITIZE)
  target_compile_options(tslm5_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                               -fno-sanitize-recover=all)
  target_link_options(tslm5_flags INTERFACE -fsanitize=address,undefined)
endif()

# The measured hot paths are in the rooms, which keep -O3; the host and the tests do not gain by it.
set(TSLM5_HOST_OPTIONS "$<$<CONFIG:Release>:-O2>")
set(TSLM5_TEST_OPTIONS "$<$<CONFIG:Release>:-O1>")

if(TSLM5_FUZZ)
  target_compile_options(tslm5_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(tslm5_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(TSLM5_CCACHE ccache)
if(TSLM5_CCACHE)
  # Without these, ccache stores nothing that uses a precompiled header or is of the same second.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env
      "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
      "${TSLM5_CCACHE}")
endif()

# public_headers_compile: every public header alone, and twice over, with nothing but `include/` to
# see. The list is read from the folder, so that no header can be forgotten.

file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS
     RELATIVE "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}/include/tslm5/*.h")

set(folder "${CMAKE_CURRENT_BINARY_DIR}/public_headers")
foreach(header IN LISTS public_headers)
  string(REPLACE "/" "_" name "${header}")
  file(CONFIGURE OUTPUT "${folder}/${name}.cpp"
       CONTENT "#include \"${header}\"\n#include \"${header}\"\n" @ONLY)
  list(APPEND sources "${folder}/${name}.cpp")
endforeach()

add_library(public_headers_compile OBJECT ${sources})
target_include_directories(public_headers_compile PRIVATE "${PROJECT_SOURCE_DIR}/include")
target_link_libraries(public_headers_compile PRIVATE tslm5_flags)

# The exported functions are plain C.
get_property(languages GLOBAL PROPERTY ENABLED_LANGUAGES)
if("C" IN_LIST languages)
  file(CONFIGURE OUTPUT "${folder}/entry_points.c"
       CONTENT "#include \"tslm5/component/entry_points.h\"\n" @ONLY)
  add_library(public_headers_compile_as_c OBJECT "${folder}/entry_points.c")
  target_include_directories(public_headers_compile_as_c PRIVATE "${PROJECT_SOURCE_DIR}/include")
  target_compile_options(public_headers_compile_as_c PRIVATE -Wall -Wextra -Wpedantic -Werror)
endif()

# What a room lets others include, each in a folder of links of its own, so that a room finds the
# headers of what it DEPENDS on and no others:
#   tslm5_<room>_interfaces   include/tslm5/<room>/, its public headers
#   tslm5_<room>_internals    src/<room>/, its private ones
function(tslm5_headers room)
  set(links "${PROJECT_BINARY_DIR}/headers")
  add_library(tslm5_${room}_interfaces INTERFACE)
  if(IS_DIRECTORY "${PROJECT_SOURCE_DIR}/include/tslm5/${room}")
    file(MAKE_DIRECTORY "${links}/public/${room}/tslm5")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/include/tslm5/${room}"
         "${links}/public/${room}/tslm5/${room}" SYMBOLIC)
    target_include_directories(tslm5_${room}_interfaces INTERFACE "${links}/public/${room}")
  endif()
  add_library(tslm5_${room}_internals INTERFACE)
  if(IS_DIRECTORY "${PROJECT_SOURCE_DIR}/src/${room}")
    file(MAKE_DIRECTORY "${links}/private/${room}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/src/${room}" "${links}/private/${room}/${room}"
         SYMBOLIC)
    target_include_directories(tslm5_${room}_internals INTERFACE "${links}/private/${room}")
  endif()
endfunction()

# tslm5_room(NAME <room> [SOURCES <file>...] [DEPENDS <target>...] [TESTS <file>...])
#
# Makes the static library tslm5_<room> from files of src/<room>/ and, from files of tests/<room>/,
# the test program <room>_tests with one CTest test a GoogleTest test. A room without SOURCES is
# headers alone. DEPENDS names what the room itself uses, and is all that it can include; its tests
# may use every public header and whatever TEST_DEPENDS names.
function(tslm5_room)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;DEPENDS;TESTS;TEST_DEPENDS" ${ARGN})
  set(target tslm5_${ROOM_NAME})
  tslm5_headers(${ROOM_NAME})
  set(headers tslm5_${ROOM_NAME}_interfaces tslm5_${ROOM_NAME}_internals)
  if(ROOM_SOURCES)
    add_library(${target} STATIC ${ROOM_SOURCES})
    target_link_libraries(${target} PUBLIC ${headers} ${ROOM_DEPENDS} PRIVATE tslm5_flags)
    target_precompile_headers(${target} REUSE_FROM precompiled_rooms)
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${headers} ${ROOM_DEPENDS})
  endif()

  if(ROOM_TESTS)
    list(TRANSFORM ROOM_TESTS PREPEND "${PROJECT_SOURCE_DIR}/tests/${ROOM_NAME}/")
    add_executable(${ROOM_NAME}_tests ${ROOM_TESTS})
    target_include_directories(${ROOM_NAME}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests"
                                                          "${PROJECT_SOURCE_DIR}/include")
    target_link_libraries(${ROOM_NAME}_tests PRIVATE ${target} ${ROOM_TEST_DEPENDS})
    tslm5_test_program(${ROOM_NAME}_tests)
    gtest_discover_tests(${ROOM_NAME}_tests DISCOVERY_MODE PRE_TEST
                         WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
  endif()
endfunction()

# tslm5_shared(NAME <library> FROM <target> EXPORTS <version script>)
#
# Makes the shared library lib<library>.so of everything in <target>; the version script (in the
# calling folder) names all that it exports.
function(tslm5_shared)
  cmake_parse_arguments(SHARED "" "NAME;FROM;EXPORTS" "" ${ARGN})
  set(script "${CMAKE_CURRENT_SOURCE_DIR}/${SHARED_EXPORTS}")
  file(GENERATE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${SHARED_NAME}.cpp"
       CONTENT "// The library's code is in its rooms.\n")
  add_library(${SHARED_NAME} SHARED "${CMAKE_CURRENT_BINARY_DIR}/${SHARED_NAME}.cpp")
  target_include_directories(
    ${SHARED_NAME} INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
                             "$<INSTALL_INTERFACE:include>")
  target_link_libraries(${SHARED_NAME} PRIVATE "-Wl,--whole-archive" ${SHARED_FROM}
                                               "-Wl,--no-whole-archive" tslm5_flags)
  target_link_options(${SHARED_NAME} PRIVATE "-Wl,--version-script=${script}")
  if(NOT TSLM5_SANITIZE)  # clang's sanitizers stand in the program alone
    target_link_options(${SHARED_NAME} PRIVATE "-Wl,--no-undefined")
  endif()
  set_target_properties(${SHARED_NAME} PROPERTIES LINK_DEPENDS "${script}"
                                                  VERSION ${PROJECT_VERSION}
                                                  SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()

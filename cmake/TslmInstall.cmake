# What is installed, in two components: `runtime` (the libraries, the program and what goes with it)
# and `development` (headers, CMake and pkg-config files). CPack makes a Debian package of each.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The public targets: TSLM5DataManager::contracts (headers alone), ::engine and ::data_manager (the
# two libraries), ::client (what a program needs that loads the component by its name).
add_library(tslm5_contracts_headers INTERFACE)
set_target_properties(tslm5_contracts_headers PROPERTIES EXPORT_NAME contracts)
add_library(tslm5_client_headers INTERFACE)
set_target_properties(tslm5_client_headers PROPERTIES EXPORT_NAME client)
foreach(target IN ITEMS tslm5_contracts_headers tslm5_client_headers)
  target_include_directories(
    ${target} INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
                        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_compile_features(${target} INTERFACE cxx_std_20)
endforeach()
target_link_libraries(tslm5_client_headers INTERFACE ${CMAKE_DL_LIBS})
set_target_properties(TSLMRep5 PROPERTIES EXPORT_NAME engine)
set_target_properties(TSLM5DataManager PROPERTIES EXPORT_NAME data_manager)
foreach(target IN ITEMS TSLMRep5 TSLM5DataManager)
  target_compile_features(${target} INTERFACE cxx_std_20)
  target_link_libraries(${target} INTERFACE ${CMAKE_DL_LIBS})
endforeach()

install(
  TARGETS TSLMRep5 TSLM5DataManager tslm5_contracts_headers tslm5_client_headers
  EXPORT TSLM5DataManagerTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          COMPONENT runtime
          NAMELINK_COMPONENT development)
file(RELATIVE_PATH bin_to_lib "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
set_target_properties(tslm5 PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
install(TARGETS tslm5 RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
set(documents "${PROJECT_BINARY_DIR}/host")
install(
  FILES "${documents}/tslm5.1"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
  COMPONENT runtime)
install(
  FILES "${documents}/tslm5.bash"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
  RENAME tslm5
  COMPONENT runtime)
install(
  FILES "${documents}/_tslm5"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions"
  COMPONENT runtime)
install(
  DIRECTORY "${PROJECT_SOURCE_DIR}/include/tslm5"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  COMPONENT development)
install(
  FILES "${PROJECT_SOURCE_DIR}/LICENSE"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/tslm5"
  RENAME copyright
  COMPONENT runtime)
install(
  FILES "${PROJECT_SOURCE_DIR}/LICENSE"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/tslm5-dev"
  RENAME copyright
  COMPONENT development)

# The registration is written by the component itself, at installation, and then told where the
# library will be.
set(library_path
    "${CMAKE_INSTALL_FULL_LIBDIR}/libTSLM5DataManager.so.${PROJECT_VERSION}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/InstallRegistration.cmake.in"
               "${PROJECT_BINARY_DIR}/InstallRegistration.cmake.template" @ONLY)
file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/InstallRegistration.cmake"
     INPUT "${PROJECT_BINARY_DIR}/InstallRegistration.cmake.template")
install(SCRIPT "${PROJECT_BINARY_DIR}/InstallRegistration.cmake" COMPONENT runtime)

set(cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/TSLM5DataManager")
install(
  EXPORT TSLM5DataManagerTargets
  NAMESPACE TSLM5DataManager::
  DESTINATION "${cmake_folder}"
  COMPONENT development)
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/TSLM5DataManagerConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/TSLM5DataManagerConfig.cmake" INSTALL_DESTINATION "${cmake_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TSLM5DataManagerConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(
  FILES "${PROJECT_BINARY_DIR}/TSLM5DataManagerConfig.cmake"
        "${PROJECT_BINARY_DIR}/TSLM5DataManagerConfigVersion.cmake"
  DESTINATION "${cmake_folder}"
  COMPONENT development)

# Both files find their folders from where they stand.
foreach(name IN ITEMS tslm5-datamanager tslm5-client)
  file(RELATIVE_PATH pkgconfig_to_prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig"
       "${CMAKE_INSTALL_PREFIX}")
  configure_file("${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(
    FILES "${PROJECT_BINARY_DIR}/${name}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME tslm5)
set(CPACK_PACKAGE_VENDOR "TSLM5DataManager")
set(CPACK_PACKAGE_CONTACT "the developers of TSLM5DataManager")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME tslm5)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME tslm5-dev)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION science)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "Data manager of a data-modelling application
 Checks delimited text, loads it into a run database and serves it; with the
 command-line application tslm5.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Data manager of a data-modelling application, headers
 What a program needs to be built against TSLM5DataManager.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "tslm5 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)

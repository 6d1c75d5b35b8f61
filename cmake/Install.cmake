# What is installed where. Components: runtime (the library and its components), development, commandline, and
# workstation.
include(CMakePackageConfigHelpers)

install(TARGETS zelka zelka-netsim RUNTIME COMPONENT commandline)
if(NOT ZELKA_GUI)
  return()
endif()
install(TARGETS zelka-workstation zelka-node-manager RUNTIME COMPONENT workstation)

install(
  TARGETS zelkabrowser
  EXPORT ZelkaBrowserTargets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
install(TARGETS zelka_hvxdb_plugin zelka_hvxutil_plugin zelka_syncconn_plugin
        LIBRARY DESTINATION "${ZELKA_INSTALL_PLUGINDIR}/zelka" COMPONENT runtime)
# The library and the workstation look for the help here.
if(TARGET zelka_help)
  install(FILES "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Browser4.qch"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/zelka-browser/help" COMPONENT runtime)
endif()
install(TARGETS zelka_designer_plugin LIBRARY DESTINATION "${ZELKA_INSTALL_PLUGINDIR}/designer"
                                              COMPONENT development)

install(FILES ${ZELKA_PUBLIC_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/ZelkaBrowser" COMPONENT development)

# find_package(ZelkaBrowser) gives Zelka::Browser.
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/ZelkaBrowser")
configure_package_config_file(cmake/package/ZelkaBrowserConfig.cmake.in
                              "${CMAKE_BINARY_DIR}/package/ZelkaBrowserConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/package/ZelkaBrowserConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(
  EXPORT ZelkaBrowserTargets
  NAMESPACE Zelka::
  DESTINATION "${package_folder}"
  COMPONENT development)
install(FILES "${CMAKE_BINARY_DIR}/package/ZelkaBrowserConfig.cmake"
              "${CMAKE_BINARY_DIR}/package/ZelkaBrowserConfigVersion.cmake"
        DESTINATION "${package_folder}" COMPONENT development)

# The same for pkg-config, with paths that follow the file when the whole is moved.
file(RELATIVE_PATH ZELKA_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(cmake/package/ZelkaBrowser.pc.in "${CMAKE_BINARY_DIR}/package/ZelkaBrowser.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/package/ZelkaBrowser.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT development)

# Where programs, the library and its plugins stand, below the build folder as below an installation's prefix,
# so that they find each other by the same relative paths in both.
include(GNUInstallDirs)
set(ZELKA_INSTALL_PLUGINDIR "${CMAKE_INSTALL_LIBDIR}/qt6/plugins"
    CACHE STRING "Where the plugins are installed: Qt's folder of plugins, relative to the prefix")

file(RELATIVE_PATH ZELKA_PLUGINS_FROM_LIBRARY "/${CMAKE_INSTALL_LIBDIR}" "/${ZELKA_INSTALL_PLUGINDIR}")
file(RELATIVE_PATH ZELKA_LIBRARIES_FROM_PROGRAM "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
cmake_path(ABSOLUTE_PATH ZELKA_LIBRARIES_FROM_PROGRAM BASE_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}" NORMALIZE
           OUTPUT_VARIABLE ZELKA_BUILT_LIBRARIES)
cmake_path(ABSOLUTE_PATH ZELKA_PLUGINS_FROM_LIBRARY BASE_DIRECTORY "${ZELKA_BUILT_LIBRARIES}" NORMALIZE
           OUTPUT_VARIABLE ZELKA_BUILT_PLUGINS)

# Puts a plugin into a folder of Qt's plugins.
function(zelka_plugin_place target folder)
  set_target_properties(${target} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${ZELKA_BUILT_PLUGINS}/${folder}")
endfunction()

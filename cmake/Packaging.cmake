# What the packages hold beside the programs and libraries: manual pages, shell completion, what a desktop shows; and
# how the four packages are named, described and made to depend on each other.

find_program(ZELKA_GZIP gzip REQUIRED)
set(reference_folder "${CMAKE_BINARY_DIR}/reference")
set(reference_files)

# Made from what the programs parse.
foreach(program zelka zelka-netsim)
  add_custom_command(
    OUTPUT "${reference_folder}/${program}.1.gz" "${reference_folder}/${program}.bash"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${reference_folder}"
    COMMAND zelka-reference man ${program} > "${reference_folder}/${program}.1"
    COMMAND zelka-reference bash ${program} > "${reference_folder}/${program}.bash"
    COMMAND ${ZELKA_GZIP} -9nf "${reference_folder}/${program}.1"
    DEPENDS zelka-reference
    VERBATIM)
  list(APPEND reference_files "${reference_folder}/${program}.1.gz" "${reference_folder}/${program}.bash")
  install(FILES "${reference_folder}/${program}.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT commandline)
  install(FILES "${reference_folder}/${program}.bash"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
          COMPONENT commandline
          RENAME ${program})
endforeach()
add_custom_target(zelka_reference_texts ALL DEPENDS ${reference_files})

if(ZELKA_GUI)
  set(manual_files)
  foreach(program zelka-workstation zelka-node-manager)
    configure_file(packaging/man/${program}.1.in "${reference_folder}/${program}.1" @ONLY)
    add_custom_command(
      OUTPUT "${reference_folder}/${program}.1.gz"
      COMMAND ${ZELKA_GZIP} -9nkf "${reference_folder}/${program}.1"
      DEPENDS packaging/man/${program}.1.in
      VERBATIM)
    list(APPEND manual_files "${reference_folder}/${program}.1.gz")
  endforeach()
  add_custom_target(zelka_manual_pages ALL DEPENDS ${manual_files})
  install(FILES ${manual_files} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT workstation)

  configure_file(packaging/desktop/io.zelka.Workstation.metainfo.xml.in
                 "${reference_folder}/io.zelka.Workstation.metainfo.xml" @ONLY)
  install(FILES packaging/desktop/io.zelka.Workstation.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications"
          COMPONENT workstation)
  install(FILES "${reference_folder}/io.zelka.Workstation.metainfo.xml"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT workstation)
  install(FILES browser/pictures/zelka.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps"
          COMPONENT workstation RENAME io.zelka.Workstation.svg)
endif()

add_custom_command(
  OUTPUT "${reference_folder}/changelog.gz"
  COMMAND ${ZELKA_GZIP} -9nc "${CMAKE_SOURCE_DIR}/packaging/changelog" > "${reference_folder}/changelog.gz"
  DEPENDS packaging/changelog
  VERBATIM)
add_custom_target(zelka_changelog ALL DEPENDS "${reference_folder}/changelog.gz")
# zelka_package_papers(runtime libzelkabrowser4)
function(zelka_package_papers component package)
  install(FILES packaging/copyright "${reference_folder}/changelog.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endfunction()
zelka_package_papers(commandline zelka)
if(ZELKA_GUI)
  zelka_package_papers(runtime libzelkabrowser4)
  zelka_package_papers(development libzelkabrowser-dev)
  zelka_package_papers(workstation zelka-workstation)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelka)
set(CPACK_PACKAGE_VENDOR "Zelka")
set(CPACK_PACKAGE_CONTACT "Zelka maintainers <maintainers@zelka.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development commandline workstation)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${ZELKA_BUILT_LIBRARIES}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
# Who links the library asks for this version or a later one.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Each package begins its description with a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzelkabrowser4)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Loaded at run time, so nothing links with them.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6svg6")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libqt6sql6-psql")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "connection browser for network management hosts\nThe control that shows the connections and nodes of a shared database to an\noperator and hands the target of what is chosen to the host application."
)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzelkabrowser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libzelkabrowser4 (= ${PROJECT_VERSION}), qt6-base-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "connection browser for network management hosts (development)\nHeaders, CMake package, pkg-config file, Qt Designer plugin and reference of\nthe control."
)

set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_NAME zelka)
set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_DEPENDS "libqt6sql6-sqlite")
set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_RECOMMENDS "libqt6sql6-psql")
set(CPACK_DEBIAN_COMMANDLINE_PACKAGE_SUGGESTS "bash-completion")
set(CPACK_COMPONENT_COMMANDLINE_DESCRIPTION
    "connections and nodes from the command line\nMakes, fills, checks, reads and changes the database of connections and\nnodes, asks the network behind them, and simulates one."
)

set(CPACK_DEBIAN_WORKSTATION_PACKAGE_NAME zelka-workstation)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6svg6, zelka (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_RECOMMENDS "libqt6sql6-psql, qt6-qpa-plugins")
set(CPACK_COMPONENT_WORKSTATION_DESCRIPTION
    "workstation around the connection browser\nAn operator browses, defines and scans the connections and nodes of a\nmanaged network and talks to what is chosen."
)
include(CPack)

# The headers that a host sees. They stand in the folders of what they declare; here they are gathered under
# the one folder from which hosts, and the headers themselves, include them.
set(ZELKA_PUBLIC_HEADERS platform/Export.h platform/PropertyBag.h platform/controls/SettingsPropertyBag.h
                         browser/T4ZelkaBrowser.h host/library/Zelka.h)
foreach(header IN LISTS ZELKA_PUBLIC_HEADERS)
  cmake_path(GET header FILENAME name)
  file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/include/ZelkaBrowser/${name}" CONTENT "#include \"${header}\"\n")
endforeach()

# The page of the public interface, made from the headers' comments by the target "api", which is no part of the
# whole build; installed where it was made.
find_program(ZELKA_DOXYGEN doxygen)
if(ZELKA_DOXYGEN)
  list(TRANSFORM ZELKA_PUBLIC_HEADERS REPLACE "(.+)" "\"${PROJECT_SOURCE_DIR}/\\1\"" OUTPUT_VARIABLE ZELKA_API_INPUT)
  list(APPEND ZELKA_API_INPUT "\"${PROJECT_SOURCE_DIR}/docs/api/overview.md\"")
  list(JOIN ZELKA_API_INPUT " " ZELKA_API_INPUT)
  configure_file(docs/api/Doxyfile.in "${CMAKE_BINARY_DIR}/api/Doxyfile" @ONLY)
  add_custom_target(api COMMAND "${ZELKA_DOXYGEN}" "${CMAKE_BINARY_DIR}/api/Doxyfile" VERBATIM)
endif()
install(DIRECTORY "${CMAKE_BINARY_DIR}/api/html" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/ZelkaBrowser"
        COMPONENT development OPTIONAL)

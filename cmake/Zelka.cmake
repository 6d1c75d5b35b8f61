# Compiler, flags and the procedures by which folders declare libraries, programs and tests.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# What libraries offer to others is marked in their headers; all else is their own.
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")

find_program(ZELKA_CCACHE ccache)
if(ZELKA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${ZELKA_CCACHE})
endif()
find_program(ZELKA_MOLD mold)
if(ZELKA_MOLD AND NOT ZELKA_SANITIZE)
  add_link_options(-fuse-ld=mold)
endif()

set(ZELKA_QT Core LinguistTools Network Sql Test)
if(ZELKA_GUI)
  list(APPEND ZELKA_QT Gui Widgets Svg Help Designer UiPlugin)
endif()
find_package(Qt6 6.4 REQUIRED COMPONENTS ${ZELKA_QT})
# The folder of each test in its definitions would keep the tests from sharing one precompiled header.
get_target_property(test_definitions Qt6::Test INTERFACE_COMPILE_DEFINITIONS)
list(FILTER test_definitions EXCLUDE REGEX "QT_TESTCASE_(BUILD|SOURCE)DIR")
set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${test_definitions}")
# So would this one, which only QtTest's headers ask for.
get_target_property(network_definitions Qt6::Network INTERFACE_COMPILE_DEFINITIONS)
list(REMOVE_ITEM network_definitions QT_NETWORK_LIB)
set_target_properties(Qt6::Network PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${network_definitions}")

find_package(SQLite3 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBPQ REQUIRED IMPORTED_TARGET libpq)
pkg_check_modules(LIBTASN1 REQUIRED IMPORTED_TARGET libtasn1)
find_program(ZELKA_ASN1PARSER asn1Parser REQUIRED)
find_package(CLI11 REQUIRED)

# One interface target for flags and include paths; warnings are errors.
add_library(zelka_flags INTERFACE)
target_include_directories(zelka_flags INTERFACE "${CMAKE_SOURCE_DIR}" "${CMAKE_BINARY_DIR}/include")
target_compile_options(zelka_flags INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow
                                             $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual>
                                             $<$<BOOL:${ZELKA_CCACHE}>:-fpch-preprocess>)
target_compile_definitions(
  zelka_flags INTERFACE QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS
                        QT_STRICT_ITERATORS ZELKA_BUILD ZELKA_VERSION="${PROJECT_VERSION}")
if(ZELKA_SANITIZE)
  target_compile_options(zelka_flags INTERFACE -fsanitize=${ZELKA_SANITIZE} -fno-omit-frame-pointer
                                               -fno-sanitize-recover=all)
  target_link_options(zelka_flags INTERFACE -fsanitize=${ZELKA_SANITIZE})
endif()

# Declares the library of the current folder: all its .cpp, .h, .ui and .qrc files.
#   zelka_library(NAME zelka_model LINKS zelka_platform Qt6::Core)
function(zelka_library)
  cmake_parse_arguments(ARG "" "NAME" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.ui *.qrc)
  add_library(${ARG_NAME} STATIC ${sources})
  target_link_libraries(${ARG_NAME} PUBLIC zelka_flags ${ARG_LINKS})
  if("Qt6::Widgets" IN_LIST ARG_LINKS)
    target_precompile_headers(${ARG_NAME} PRIVATE <QtWidgets>)
  else()
    target_precompile_headers(${ARG_NAME} PRIVATE <QtCore>)
  endif()
endfunction()

# Declares one program.
function(zelka_program)
  cmake_parse_arguments(ARG "" "NAME;OUTPUT" "SOURCES;LINKS" ${ARGN})
  add_executable(${ARG_NAME} ${ARG_SOURCES})
  if(ARG_OUTPUT)
    set_target_properties(${ARG_NAME} PROPERTIES OUTPUT_NAME ${ARG_OUTPUT})
  endif()
  target_link_libraries(${ARG_NAME} PRIVATE zelka_flags ${ARG_LINKS})
endfunction()

# Folder in which the server of the tests writes where it is.
set(ZELKA_TEST_SERVER "${CMAKE_BINARY_DIR}/test-server")

# Declares one test program: zelka_test(NAME TestWpData LINKS zelka_model [SOURCES more.cpp] [WIDGETS] [ENGINES]).
# The test's own file is NAME.cpp in the current folder. WIDGETS: runs on the offscreen platform. ENGINES: runs
# on SQLite as NAME and on PostgreSQL as NAME-postgresql; DatabaseFixture obeys ZELKA_TEST_ENGINE.
function(zelka_test)
  cmake_parse_arguments(ARG "WIDGETS;ENGINES" "NAME;TIMEOUT" "SOURCES;LINKS" ${ARGN})
  add_executable(${ARG_NAME} ${ARG_NAME}.cpp ${ARG_SOURCES})
  target_link_libraries(${ARG_NAME} PRIVATE zelka_flags Qt6::Test ${ARG_LINKS})
  # Nearly always empty, so that reading the precompiled header would be all the work.
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}_autogen/mocs_compilation.cpp"
                              PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  if(ARG_WIDGETS)
    target_link_libraries(${ARG_NAME} PRIVATE Qt6::Widgets)
    if(NOT TARGET zelka_pch_widgets)
      file(WRITE "${CMAKE_BINARY_DIR}/pch_widgets.cpp" "// Carries the precompiled header of the tests with Widgets.\n")
      add_library(zelka_pch_widgets STATIC "${CMAKE_BINARY_DIR}/pch_widgets.cpp")
      target_link_libraries(zelka_pch_widgets PRIVATE zelka_flags Qt6::Test Qt6::Widgets)
      target_precompile_headers(zelka_pch_widgets PRIVATE <QtWidgets> <QtTest>)
    endif()
    target_precompile_headers(${ARG_NAME} REUSE_FROM zelka_pch_widgets)
  else()
    if(NOT TARGET zelka_pch_core)
      file(WRITE "${CMAKE_BINARY_DIR}/pch_core.cpp" "// Carries the precompiled header of the tests.\n")
      add_library(zelka_pch_core STATIC "${CMAKE_BINARY_DIR}/pch_core.cpp")
      target_link_libraries(zelka_pch_core PRIVATE zelka_flags Qt6::Test)
      target_precompile_headers(zelka_pch_core PRIVATE <QtCore> <QtTest>)
    endif()
    target_precompile_headers(${ARG_NAME} REUSE_FROM zelka_pch_core)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  if(ZELKA_LEAVES_CORE_TESTS AND NOT ARG_WIDGETS)
    set_target_properties(${ARG_NAME} PROPERTIES EXCLUDE_FROM_ALL ON)
    return()
  endif()
  set(environment "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
  add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME})
  set_tests_properties(${ARG_NAME} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${ARG_TIMEOUT})
  if(ARG_ENGINES AND ZELKA_SERVER_TESTS)
    add_test(NAME ${ARG_NAME}-postgresql COMMAND ${ARG_NAME})
    list(APPEND environment "ZELKA_TEST_ENGINE=postgresql" "ZELKA_TEST_SERVER=${ZELKA_TEST_SERVER}")
    set_tests_properties(${ARG_NAME}-postgresql PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${ARG_TIMEOUT}
                                                           FIXTURES_REQUIRED postgresql)
  endif()
endfunction()

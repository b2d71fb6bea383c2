# What every target of the tree shares: warnings as errors, sanitizers, ccache, and the two helpers by which
# a folder declares its library and its tests.

option(CORVANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(CORVANE_THREAD_SANITIZE "Build with the thread sanitizer" OFF)
option(CORVANE_PRECOMPILED "Parse the headers of the standard library and of the toolkit once" OFF)
option(CORVANE_FUZZ "Build the libFuzzer targets (Clang only)" OFF)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Without the sloppiness nothing that uses a precompiled header is ever found again.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
                    -Woverloaded-virtual -Werror)
# The program exports its symbols to the module with the windows; a call within one source is direct all the same.
add_compile_options(-fno-semantic-interposition)
if(CORVANE_PRECOMPILED)
  # Sources that start from the same parsed headers must be compiled alike. In what comes from there GCC 12 takes
  # joined strings for overflows; builds without keep the warnings.
  add_compile_options(-pthread)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-array-bounds -Wno-stringop-overread)
  endif()
endif()
if(CORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(CORVANE_THREAD_SANITIZE)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

if(CORVANE_FUZZ)
  # Every layer is instrumented, so that a fuzzer is led by the coverage of the code under test.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ICU 72 REQUIRED COMPONENTS uc i18n)
find_package(GTest REQUIRED)
find_package(benchmark REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
pkg_check_modules(UUID REQUIRED IMPORTED_TARGET uuid)
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets DBus Svg Multimedia Test)
find_program(MSGFMT_PROGRAM msgfmt REQUIRED)
include(GoogleTest)

# corvane_precompile(<target> <set>)
# Lets a target start from the parsed headers of a set: Core, Test, Ui or UiTest. The first target of a set makes
# it, and no source parses them again; a build that is changed by hand does without.
function(corvane_precompile target set)
  if(NOT CORVANE_PRECOMPILED)
    return()
  endif()
  # Declarations keep the visibility under which they were parsed.
  get_target_property(visibility ${target} CXX_VISIBILITY_PRESET)
  get_target_property(hidden ${target} VISIBILITY_INLINES_HIDDEN)
  set(holder precompiled_${set}_${visibility})
  if(NOT TARGET ${holder})
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/${holder}.cpp CONTENT "// Holds precompiled headers.\n")
    add_library(${holder} OBJECT ${CMAKE_BINARY_DIR}/${holder}.cpp)
    set_target_properties(${holder} PROPERTIES CXX_VISIBILITY_PRESET ${visibility}
      VISIBILITY_INLINES_HIDDEN ${hidden})
    set(headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string>
      <string_view> <unordered_map> <utility> <variant> <vector>)
    if(set MATCHES "Test$")
      list(APPEND headers <filesystem> <gmock/gmock.h> <gtest/gtest.h>)
      target_link_libraries(${holder} PRIVATE GTest::gmock)
      # The headers are for programs, and parsed as for one.
      set_target_properties(${holder} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
      target_compile_options(${holder} PRIVATE -fPIE)
    endif()
    if(set MATCHES "^Ui")
      list(APPEND headers <QApplication> <QBoxLayout> <QDialog> <QEvent> <QLabel> <QLineEdit> <QMenu> <QPainter>
        <QPushButton> <QTimer> <QTreeView> <QWidget>)
      target_compile_definitions(${holder} PRIVATE QT_NO_KEYWORDS)
      target_link_libraries(${holder} PRIVATE Qt6::Widgets)
    endif()
    target_precompile_headers(${holder} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${holder})
endfunction()

# corvane_library(<target> DIR <include dir> SOURCES <files> LINK <targets>)
# A static layer. Its folder is included by consumers as <include dir>.
function(corvane_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;INCLUDE" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_link_libraries(${target} PUBLIC ${ARG_LINK})
  target_include_directories(${target} PUBLIC ${ARG_INCLUDE})
  corvane_precompile(${target} Core)
endfunction()

# corvane_test(<target> SOURCES <files> LINK <targets>)
# One GoogleTest program; each of its cases is a ctest case. The test runner's environment points every
# per-user directory at a scratch folder, so that a test never reads or writes a user's own files.
function(corvane_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE ${ARG_LINK} corvane_test_support GTest::gmock GTest::gtest_main)
  corvane_precompile(${target} Test)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  set(scratch ${CMAKE_BINARY_DIR}/tests/scratch/${target})
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT
    "XDG_CONFIG_HOME=${scratch}/config;XDG_STATE_HOME=${scratch}/state;XDG_CACHE_HOME=${scratch}/cache;XDG_DATA_HOME=${scratch}/data")
endfunction()

# corvane_fuzzer(<target> SOURCES <files> LINK <targets>)
# A libFuzzer program in the build's bin folder; nothing in builds that do not fuzz.
function(corvane_fuzzer target)
  if(NOT CORVANE_FUZZ)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE ${ARG_LINK})
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
endfunction()

# corvane_catalogue(<target> <file.po> <file.mo> [option...])
# Compiles a text of translators to a string table, with further options of msgfmt. Relative paths count from
# the folder's sources and the folder's build.
function(corvane_catalogue target po mo)
  cmake_path(ABSOLUTE_PATH po BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
  cmake_path(ABSOLUTE_PATH mo BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} NORMALIZE)
  cmake_path(GET mo PARENT_PATH folder)
  add_custom_command(OUTPUT ${mo}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${MSGFMT_PROGRAM} --check ${ARGN} --output-file=${mo} ${po}
    DEPENDS ${po} VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${mo})
endfunction()

# corvane_ui_library(<target> LINK <targets>)
# A static layer of the user interface: all sources of its folder. Only such targets see the UI toolkit.
function(corvane_ui_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${target} STATIC ${sources} ${ARG_SOURCES})
  # The toolkit's `signals` and `slots` are names of members in other libraries' headers.
  target_compile_definitions(${target} PUBLIC QT_NO_KEYWORDS)
  target_link_libraries(${target} PUBLIC ${ARG_LINK} Qt6::Widgets)
  target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  # Visible like the core: one hidden copy of an inline function of the core hides it in the whole module, which
  # then no longer takes the program's.
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON CXX_VISIBILITY_PRESET default
    VISIBILITY_INLINES_HIDDEN OFF)
  corvane_precompile(${target} Ui)
endfunction()

# corvane_ui_test(<target> LINK <targets>)
# One GoogleTest program over real widgets that nobody sees: all sources of the folder's tests. It starts the
# toolkit itself, on the offscreen platform.
function(corvane_ui_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tests/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/tests/*.h)
  add_executable(${target} ${sources} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE ${ARG_LINK} corvane_test_ui GTest::gmock Qt6::Test)
  corvane_precompile(${target} UiTest)
  set_target_properties(${target} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  set(scratch ${CMAKE_BINARY_DIR}/tests/scratch/${target})
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;CORVANE_THEME=light;XDG_CONFIG_HOME=${scratch}/config;XDG_STATE_HOME=${scratch}/state;XDG_CACHE_HOME=${scratch}/cache;XDG_DATA_HOME=${scratch}/data")
endfunction()

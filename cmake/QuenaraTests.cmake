# What every test is compiled and linked with. What a test itself does takes little time, but
# optimising it does, above all with the sanitizers' checks. gold links in a quarter of the time.
add_library(quenara_test_flags INTERFACE)
target_link_libraries(quenara_test_flags INTERFACE quenara_flags)
target_compile_options(quenara_test_flags INTERFACE -O0
  # Tests are included by what is compiled, where gcc takes their classes for those of a header.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>
  # What is found among the parts of one argument by another, gcc 14 takes for a part of that one.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-reference>)
if(NOT QUENARA_SANITIZE)
  include(CheckLinkerFlag)
  check_linker_flag(CXX -fuse-ld=gold QUENARA_HAS_GOLD)
  if(QUENARA_HAS_GOLD)
    target_link_options(quenara_test_flags INTERFACE -fuse-ld=gold)
  endif()
endif()

# Compiles the sources of a target a few together.
function(quenara_compile_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 7
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# quenara_add_tests(<name> ROOMS <room>... [QT <module>...] [LINK <target>...] [SOURCES <file>...]
#                   [TWO_SCREENS <test>...] [MIRRORED_SCREEN <test>...] [SMALL_SCREEN <test>...]
#                   [EXCEPT <test>...])
# One executable <name>Tests of every tst_*.cpp of the folder, which are compiled a few together:
# most of what a test costs to compile is the same for all. ctest runs each by itself, offscreen (on
# one screen of 1920 by 1080, on two side by side, on two and another that shows what the first does,
# or on one of 1366 by 768 beside a larger one) and with a home of its own. Every warning of Qt is a
# failure: at once or, for tests with windows, as GuiTest says.
function(quenara_add_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "" ""
    "ROOMS;QT;LINK;SOURCES;TWO_SCREENS;MIRRORED_SCREEN;SMALL_SCREEN;EXCEPT")
  set(rooms ${TEST_ROOMS})
  list(TRANSFORM rooms PREPEND Quenara::)
  set(modules ${TEST_QT})
  list(TRANSFORM modules PREPEND Qt6::)
  set(executable ${name}Tests)
  add_executable(${executable} ${TEST_SOURCES})
  set_source_files_properties(${TEST_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_link_libraries(${executable} PRIVATE ${rooms} ${modules} ${TEST_LINK} Qt6::Test
                                              quenara_test_support quenara_test_flags)
  quenara_compile_together(${executable})
  quenara_precompile_tests(${executable} ${TEST_LINK})

  set(fatalWarnings 1)
  if("quenara_gui_test_support" IN_LIST TEST_LINK)
    set(fatalWarnings 0)
  endif()
  file(GLOB files CONFIGURE_DEPENDS tst_*.cpp)
  foreach(file IN LISTS files)
    cmake_path(GET file STEM test)
    set(screens one-screen)
    if(test IN_LIST TEST_TWO_SCREENS)
      set(screens two-screens)
    elseif(test IN_LIST TEST_MIRRORED_SCREEN)
      set(screens mirrored-screen)
    elseif(test IN_LIST TEST_SMALL_SCREEN)
      set(screens small-screen)
    endif()
    if(NOT test IN_LIST TEST_EXCEPT)
      quenara_add_test_to(${executable} ${test} ${screens} ${fatalWarnings})
    endif()
  endforeach()
endfunction()

function(quenara_add_test_to executable test screens fatalWarnings)
  target_sources(${executable} PRIVATE ${test}.cpp)
  quenara_moc_test(${executable} ${test})
  set(platform offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/GuiSupport/${screens}.json)
  set(home ${CMAKE_CURRENT_BINARY_DIR}/${test}.home)
  file(MAKE_DIRECTORY ${home}/runtime)
  file(CHMOD ${home}/runtime PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  add_test(NAME ${test} COMMAND ${executable} ${test})
  set_tests_properties(${test} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=${platform};QT_FATAL_WARNINGS=${fatalWarnings};QT_HASH_SEED=0;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_STATE_HOME=${home}/state;XDG_RUNTIME_DIR=${home}/runtime;DBUS_SESSION_BUS_ADDRESS=disabled:;LC_ALL=C.UTF-8")
endfunction()

# Has moc read a test, which includes what comes of it. AUTOMOC would compile one more file for each
# test and start two more processes.
function(quenara_moc_test executable name)
  set(generated ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
  qt6_generate_moc(${name}.cpp ${generated})
  target_sources(${executable} PRIVATE ${generated})
  target_include_directories(${executable} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# What nearly every test includes, parsed once for those with windows and once for the others.
function(quenara_precompile_tests target)
  if(NOT QUENARA_PRECOMPILE)
    return()
  endif()
  set(support quenara_test_support)
  set(headers <QSignalSpy> <QTest> <TestSupport.h>)
  if("quenara_gui_test_support" IN_LIST ARGN)
    set(support quenara_gui_test_support)
    list(APPEND headers <QApplication> <QPushButton> <GuiTestSupport.h>)
  endif()

  set(owner ${support}_precompiled)
  if(NOT TARGET ${owner})
    # A precompiled header fits only those that define the same, and Qt would have each folder's
    # tests define its path.
    set_property(TARGET Qt6::Test PROPERTY INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
    set(source ${PROJECT_BINARY_DIR}/precompiled.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${owner} OBJECT ${source})
    target_link_libraries(${owner} PRIVATE ${support} quenara_test_support quenara_test_flags)
    target_precompile_headers(${owner} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

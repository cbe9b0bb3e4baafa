# What every test is compiled and linked with. What a test itself does takes little time, but
# optimising it does, above all with the sanitizers' checks. gold links in a quarter of the time.
add_library(quenara_test_flags INTERFACE)
target_link_libraries(quenara_test_flags INTERFACE quenara_flags)
target_compile_options(quenara_test_flags INTERFACE -O0)
if(NOT QUENARA_SANITIZE)
  include(CheckLinkerFlag)
  check_linker_flag(CXX -fuse-ld=gold QUENARA_HAS_GOLD)
  if(QUENARA_HAS_GOLD)
    target_link_options(quenara_test_flags INTERFACE -fuse-ld=gold)
  endif()
endif()

# quenara_add_test(<name> ROOMS <room>... [QT <module>...] [LINK <target>...] [SOURCES <file>...]
#                  [TWO_SCREENS | SMALL_SCREEN])
# One Qt Test executable from <name>.cpp, run offscreen (on one screen of 1920 by 1080, on two side
# by side, or on one of 1366 by 768 beside a larger one) with a home of its own. Every warning of Qt
# is a failure: at once or, for tests with windows, as GuiTest says.
function(quenara_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "TWO_SCREENS;SMALL_SCREEN" "" "ROOMS;QT;LINK;SOURCES")
  set(rooms ${TEST_ROOMS})
  list(TRANSFORM rooms PREPEND Quenara::)
  set(modules ${TEST_QT})
  list(TRANSFORM modules PREPEND Qt6::)
  add_executable(${name} ${name}.cpp ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${rooms} ${modules} ${TEST_LINK} Qt6::Test
                                        quenara_test_support quenara_test_flags)
  quenara_moc_test(${name})
  quenara_precompile_tests(${name} ${TEST_LINK})

  set(screens one-screen)
  if(TEST_TWO_SCREENS)
    set(screens two-screens)
  elseif(TEST_SMALL_SCREEN)
    set(screens small-screen)
  endif()
  set(platform offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/GuiSupport/${screens}.json)
  set(fatalWarnings 1)
  if("quenara_gui_test_support" IN_LIST TEST_LINK)
    set(fatalWarnings 0)
  endif()
  set(home ${CMAKE_CURRENT_BINARY_DIR}/${name}.home)
  file(MAKE_DIRECTORY ${home}/runtime)
  file(CHMOD ${home}/runtime PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=${platform};QT_FATAL_WARNINGS=${fatalWarnings};QT_HASH_SEED=0;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_STATE_HOME=${home}/state;XDG_RUNTIME_DIR=${home}/runtime;DBUS_SESSION_BUS_ADDRESS=disabled:;LC_ALL=C.UTF-8")
endfunction()

# Has moc read a test, which includes what comes of it. AUTOMOC would compile one more file for each
# test and start two more processes.
function(quenara_moc_test name)
  set(generated ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
  qt6_generate_moc(${name}.cpp ${generated})
  target_sources(${name} PRIVATE ${generated})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
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

# quenara_add_test(<name> ROOMS <room>... [QT <module>...] [SOURCES <file>...] [LABELS <label>...])
# One Qt Test executable from <name>.cpp, run offscreen with a home of its own, in which every
# warning of Qt is a failure.
function(quenara_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "" "" "ROOMS;QT;SOURCES;LABELS")
  set(rooms ${TEST_ROOMS})
  list(TRANSFORM rooms PREPEND Quenara::)
  set(modules ${TEST_QT})
  list(TRANSFORM modules PREPEND Qt6::)
  add_executable(${name} ${name}.cpp ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${rooms} ${modules} Qt6::Test quenara_test_support
                                        quenara_flags)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  quenara_precompile_qt(${name} Gui Test)

  set(home ${CMAKE_CURRENT_BINARY_DIR}/${name}.home)
  file(MAKE_DIRECTORY ${home}/runtime)
  file(CHMOD ${home}/runtime PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    LABELS "${TEST_LABELS}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FATAL_WARNINGS=1;QT_HASH_SEED=0;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_RUNTIME_DIR=${home}/runtime;DBUS_SESSION_BUS_ADDRESS=disabled:;LC_ALL=C.UTF-8")
endfunction()

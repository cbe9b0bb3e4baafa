# quenara_add_room(<name> [DEPENDS <room>...] [QT <module>...] [LINK <target>...]
#                  HEADERS <file>... [SOURCES <file>...])
# One library a room. It exposes the headers of its own folder only and sees those of the rooms it
# depends on, so that including a header of a room above it does not compile.
function(quenara_add_room name)
  cmake_parse_arguments(PARSE_ARGV 1 ROOM "" "" "DEPENDS;QT;LINK;HEADERS;SOURCES")
  set(target Quenara${name})
  set(publicLinks ${ROOM_DEPENDS})
  list(TRANSFORM publicLinks PREPEND Quenara::)
  foreach(module IN LISTS ROOM_QT)
    list(APPEND publicLinks Qt6::${module})
  endforeach()

  add_library(${target} STATIC ${ROOM_HEADERS} ${ROOM_SOURCES})
  add_library(Quenara::${name} ALIAS ${target})
  set_property(GLOBAL APPEND PROPERTY QUENARA_ROOMS ${name})
  target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${publicLinks} PRIVATE ${ROOM_LINK} quenara_flags)
  set_target_properties(${target} PROPERTIES AUTOMOC ON QUENARA_QT "${ROOM_QT}"
    UNITY_BUILD ${QUENARA_UNITY} UNITY_BUILD_BATCH_SIZE 8
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  quenara_precompile_qt(${target} ${ROOM_QT})
endfunction()

# The Qt headers that nearly every file of a module's users includes, parsed once for all of them:
# a precompiled header a target fills a disk. For clang-tidy it is only the broadest one, so that
# little else is read that a file does not ask for.
function(quenara_precompile_qt target)
  if(NOT QUENARA_PRECOMPILE)
    return()
  endif()
  set(module Core)
  set(main <QObject>)
  set(headers <QByteArray> <QDateTime> <QList> <QObject> <QString> <QUrl> <algorithm> <optional>)
  if("Gui" IN_LIST ARGN OR "Widgets" IN_LIST ARGN)
    set(module Gui)
    set(main <QImage>)
    list(APPEND headers <QColor> <QFont> <QImage> <QPainter>)
  endif()
  if("Widgets" IN_LIST ARGN)
    set(module Widgets)
    set(main <QWidget>)
    list(APPEND headers <QWidget>)
  endif()
  if(QUENARA_TIDY)
    set(headers ${main})
  endif()

  set(owner quenara_precompiled_${module})
  if(NOT TARGET ${owner})
    set(source ${PROJECT_BINARY_DIR}/precompiled.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${owner} OBJECT ${source})
    target_link_libraries(${owner} PRIVATE Qt6::${module} quenara_flags)
    target_precompile_headers(${owner} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

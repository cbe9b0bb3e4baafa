# What every target of the project is compiled with.
add_library(quenara_flags INTERFACE)
target_compile_options(quenara_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wimplicit-fallthrough
  # gcc 14 takes an optional that is moved for one that has a value.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,14>>:-Wno-maybe-uninitialized>
  $<$<BOOL:${QUENARA_WARNINGS_AS_ERRORS}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  # Else a precompiled header from ccache is refused when a checkout has touched what it is made of.
  target_compile_options(quenara_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()
target_compile_definitions(quenara_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(QUENARA_SANITIZE)
  add_compile_options(-fsanitize=${QUENARA_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUENARA_SANITIZE})
endif()

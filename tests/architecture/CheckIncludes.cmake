# Fails when a source file includes a project header by a path instead of its bare name, which
# would get around the rooms' include directories.
file(GLOB_RECURSE files ${SOURCE_DIR}/*.h ${SOURCE_DIR}/*.cpp)
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "no sources under ${SOURCE_DIR}")
endif()
foreach(file IN LISTS files)
  file(STRINGS ${file} includes REGEX "^#include \".*/")
  foreach(include IN LISTS includes)
    message(SEND_ERROR "${file}: ${include}")
  endforeach()
endforeach()

# What is installed beside the program of the licences of what it is made of: NOTICE, and the texts
# as the packages have them that it is built from.
set(notice ${CMAKE_CURRENT_BINARY_DIR}/copyright)
configure_file(NOTICE ${notice} COPYONLY)
foreach(package fonts-lato fonts-inter bootstrap-icons rapidjson-dev)
  set(licence /usr/share/doc/${package}/copyright)
  if(EXISTS ${licence})
    file(READ ${licence} text)
    file(APPEND ${notice} "\n\nFrom ${package}:\n\n${text}")
  endif()
endforeach()
install(FILES ${notice} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quenara)

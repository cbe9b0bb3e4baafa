# Installs BUILD to PREFIX, with nothing left of an installation before it, and makes the desktop
# know the types of files it brings.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND update-mime-database ${PREFIX}/share/mime
  COMMAND_ERROR_IS_FATAL ANY)

# Read by CPack once for each package it makes: what differs between them.

# package_holds COMPONENT...: these alone come into the package.
function(package_holds)
  set(projects "")
  foreach(component ${ARGN})
    list(APPEND projects ${CPACK_BUILD_FOLDER} ${CPACK_PACKAGE_NAME} ${component} /)
  endforeach()
  set(CPACK_INSTALL_CMAKE_PROJECTS ${projects} PARENT_SCOPE)
endfunction()

if(CPACK_GENERATOR STREQUAL "NSIS")
  set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-setup)
  package_holds(program)
elseif(CPACK_GENERATOR STREQUAL "ZIP")
  set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-portable)
  package_holds(program portable)
endif()

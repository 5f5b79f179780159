# The packages for Windows: an installer for one user (NSIS.template.in), and an archive that needs no installing.
install(TARGETS quillon quillon-cli bregexp RUNTIME DESTINATION .)
# Named as the program is, which looks for it beside itself.
install(CODE "
  file(GLOB help ${PROJECT_BINARY_DIR}/bin/[Qq]uillon.chm)
  if(help)
    file(INSTALL \${help} DESTINATION \${CMAKE_INSTALL_PREFIX} RENAME Quillon.chm)
  else()
    ${help_missing}
  endif()")

# Texts: made when the packages are, as only they need the libraries' licenses.
add_custom_target(quillon_package_files
  COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR} -D OUTPUT=${files} -D PROJECT_VERSION=${PROJECT_VERSION}
          -D QUILLON_URL=${QUILLON_URL} -D QUILLON_COPYRIGHT=${QUILLON_COPYRIGHT}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/windows/WindowsFiles.cmake
  VERBATIM)
install(FILES ${files}/LICENSE.txt ${files}/LIBRARIES.txt DESTINATION .)
install(FILES ${files}/README.txt DESTINATION . COMPONENT portable)

set(CPACK_GENERATOR NSIS ZIP)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR ${QUILLON_DEVELOPERS})
set(CPACK_PACKAGE_HOMEPAGE_URL ${QUILLON_URL})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_BUILD_FOLDER ${PROJECT_BINARY_DIR})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/windows/EachPackage.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/windows/SameTimes.cmake)
set(CPACK_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/windows)
# What the installer's template shows.
math(EXPR minor "${PROJECT_VERSION_MINOR}")  # "01" is 1
set(CPACK_QUILLON_FILE_VERSION ${PROJECT_VERSION_MAJOR}.${minor}.0.0)
set(CPACK_QUILLON_COPYRIGHT ${QUILLON_COPYRIGHT})
set(CPACK_QUILLON_ICON ${PROJECT_SOURCE_DIR}/resources/windows/Quillon.ico)
include(CPack)

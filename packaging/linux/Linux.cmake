# What belongs to the program on Linux, as debian/ packs it. The program looks for it beside itself: it all lies in a
# folder of its own, and only links to the programs lie where the shell looks for them.
set(program_folder lib/quillon)

install(TARGETS quillon quillon-cli bregexp RUNTIME DESTINATION ${program_folder} LIBRARY DESTINATION ${program_folder})

# The help's pages are data that no architecture changes.
install(CODE "
  if(NOT EXISTS ${PROJECT_BINARY_DIR}/bin/help/index.html)
    ${help_missing}
  endif()")
install(DIRECTORY ${PROJECT_BINARY_DIR}/bin/help/ DESTINATION share/quillon/help OPTIONAL)

# Links, manual pages, icons, what desktops want to know: made when the package is, as only it needs their tools.
add_custom_target(quillon_package_files
  COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR} -D OUTPUT=${files} -D PROJECT_VERSION=${PROJECT_VERSION}
          -D DATE=${QUILLON_DATE} -D QUILLON_URL=${QUILLON_URL} -D QUILLON_COPYRIGHT=${QUILLON_COPYRIGHT}
          -D QUILLON_MAINTAINER=${QUILLON_MAINTAINER} -D QUILLON_APPLICATION_ID=${QUILLON_APPLICATION_ID}
          -D QUILLON_DEVELOPERS=${QUILLON_DEVELOPERS} -D CLI=$<TARGET_FILE:quillon-cli> -P ${CMAKE_CURRENT_SOURCE_DIR}/linux/LinuxFiles.cmake
  VERBATIM)
add_dependencies(quillon_package_files quillon-cli)
install(DIRECTORY ${files}/ DESTINATION .)

# The package for Debian and Ubuntu. The program looks for what belongs to it beside itself: it all lies in a folder of
# its own, and only links to the programs lie where the shell looks for them.
set(program_folder lib/quillon)

install(TARGETS quillon quillon-cli bregexp RUNTIME DESTINATION ${program_folder} LIBRARY DESTINATION ${program_folder})

# The help's pages are data that no architecture changes.
install(CODE "
  if(NOT EXISTS ${PROJECT_BINARY_DIR}/bin/help/index.html)
    ${help_missing}
  endif()")
install(DIRECTORY ${PROJECT_BINARY_DIR}/bin/help/ DESTINATION share/quillon/help OPTIONAL)

# Links, manual pages, icons, what desktops and Debian want to know: made when the package is, as only it needs their
# tools.
add_custom_target(quillon_package_files
  COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR} -D OUTPUT=${files} -D PROJECT_VERSION=${PROJECT_VERSION}
          -D QUILLON_URL=${QUILLON_URL} -D QUILLON_COPYRIGHT=${QUILLON_COPYRIGHT}
          -D QUILLON_MAINTAINER=${QUILLON_MAINTAINER} -D QUILLON_APPLICATION_ID=${QUILLON_APPLICATION_ID}
          -D QUILLON_DEVELOPERS=${QUILLON_DEVELOPERS} -D CLI=$<TARGET_FILE:quillon-cli> -P ${CMAKE_CURRENT_SOURCE_DIR}/linux/LinuxFiles.cmake
  VERBATIM)
add_dependencies(quillon_package_files quillon-cli)
install(DIRECTORY ${files}/ DESTINATION .)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${QUILLON_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# For the sake of a library CPack adds scripts that call ldconfig, unless scripts of their names are listed. The program's
# library is its own, and a file that is not there is passed over.
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/linux/postrm ${CMAKE_CURRENT_BINARY_DIR}/no/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What plays MP3, MIDI, WAVE, MPEG and AVI, the instruments of MIDI, Japanese letters, the look of the window.
set(recommended
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-bad gstreamer1.0-libav gstreamer1.0-x
  "gstreamer1.0-pulseaudio | gstreamer1.0-alsa" "timgm6mb-soundfont | sf2-soundfont-gm"
  "fonts-noto-cjk | fonts-ipafont-gothic | fonts-japanese-gothic" adwaita-icon-theme librsvg2-common)
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
set(CPACK_PACKAGE_DESCRIPTION
"Quillon gives large numbers of files proper names and keeps them in order.
It reads the titles and artists of MIDI and MP3 files from their contents
and turns them into file names, edits names by rules (find and replace,
regular expressions, full and half width, letter case), moves and deletes
files, and plays MIDI, MP3, WAVE, MPEG and AVI files. A rename never
replaces another file.

The user interface is in Japanese. The command-line program quillon-cli does
the same in scripts.")

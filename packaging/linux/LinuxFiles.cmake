# Makes the files of the Linux package that are not programs, in the folders below /usr in which they are installed.
# Run as a script; Linux.cmake says with which variables.
set(templates ${SOURCE}/packaging/linux)
set(share ${OUTPUT}/share)
file(REMOVE_RECURSE ${OUTPUT})

# The time of what is packed, not of the packing, where SOURCE_DATE_EPOCH says it.
string(TIMESTAMP DATE %Y-%m-%d UTC)

foreach(tool rsvg-convert awk gzip)
  find_program(found NAMES ${tool} NO_CACHE)
  if(NOT found)
    message(FATAL_ERROR "${tool} is missing: package.sh installs it.")
  endif()
  unset(found)
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(MAKE_DIRECTORY ${OUTPUT}/bin ${OUTPUT}/lib/quillon)
foreach(program quillon quillon-cli)
  file(CREATE_LINK ../lib/quillon/${program} ${OUTPUT}/bin/${program} SYMBOLIC)
endforeach()
file(CREATE_LINK ../../share/quillon/help ${OUTPUT}/lib/quillon/help SYMBOLIC)

configure_file(${SOURCE}/resources/desktop/quillon.desktop.in ${share}/applications/${QUILLON_APPLICATION_ID}.desktop
               @ONLY)
configure_file(${SOURCE}/resources/desktop/quillon.metainfo.xml.in
               ${share}/metainfo/${QUILLON_APPLICATION_ID}.metainfo.xml @ONLY)

set(drawing ${SOURCE}/resources/icons/quillon.svg)
set(icons ${share}/icons/hicolor)
foreach(size 16 22 24 32 48 64 128 256 512)
  file(MAKE_DIRECTORY ${icons}/${size}x${size}/apps)
  run(rsvg-convert --width ${size} --height ${size} ${drawing} --output ${icons}/${size}x${size}/apps/quillon.png)
endforeach()
file(COPY ${drawing} DESTINATION ${icons}/scalable/apps)

foreach(page quillon quillon-cli ja/quillon ja/quillon-cli)
  get_filename_component(folder ${page} DIRECTORY)
  get_filename_component(name ${page} NAME)
  set(page_file ${share}/man/${folder}/man1/${name}.1)
  configure_file(${SOURCE}/resources/man/${page}.1.in ${page_file} @ONLY)
  run(gzip --best --no-name ${page_file})
endforeach()

# In English, whoever makes the package.
foreach(completion bash-completion/completions/quillon-cli zsh/vendor-completions/_quillon-cli
        fish/vendor_completions.d/quillon-cli.fish)
  string(REGEX MATCH "^[a-z]+" shell ${completion})
  get_filename_component(folder ${share}/${completion} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  run(${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 ${CLI} completion ${shell} OUTPUT_FILE ${share}/${completion})
endforeach()

configure_file(${templates}/lintian-overrides ${share}/lintian/overrides/quillon COPYONLY)

# stanza OUTPUT TEXT: the text as the form of Debian's copyright files wants it.
function(stanza output text)
  string(STRIP "${text}" text)
  string(REPLACE "\n\n" "\n.\n" text "${text}")
  string(REPLACE "\n" "\n " text " ${text}")
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

set(doc ${share}/doc/quillon)
string(REPLACE "Copyright (C) " "" COPYRIGHT_HOLDERS ${QUILLON_COPYRIGHT})
file(READ ${SOURCE}/LICENSE license)
string(REGEX REPLACE "^.*(Permission is hereby)" "\\1" license "${license}")
stanza(EXPAT_TEXT "${license}")
# The package that the headers came from has their license.
file(READ /usr/share/doc/libcli11-dev/copyright license)
string(REGEX REPLACE "^.*\nLicense: BSD-3-clause\n" "" BSD_TEXT "${license}")
string(REGEX REPLACE " *\n" "\n" BSD_TEXT "${BSD_TEXT}")
string(REGEX REPLACE "\n+$" "" BSD_TEXT "${BSD_TEXT}")
configure_file(${templates}/copyright.in ${doc}/copyright @ONLY)
run(awk -v version=${PROJECT_VERSION} -v maintainer=${QUILLON_MAINTAINER} -v date=${DATE} -f ${templates}/changelog.awk
    ${SOURCE}/CHANGELOG.md OUTPUT_FILE ${doc}/changelog)
run(gzip --best --no-name ${doc}/changelog)

# Makes the files of the Linux package that are not programs, in the folders below /usr in which they are installed.
# Run as a script; Linux.cmake says with which variables.
set(share ${OUTPUT}/share)
file(REMOVE_RECURSE ${OUTPUT})

find_program(found NAMES rsvg-convert NO_CACHE)
if(NOT found)
  message(FATAL_ERROR "rsvg-convert is missing (Debian package librsvg2-bin).")
endif()

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
execute_process(COMMAND awk -v version=${PROJECT_VERSION} -v date=${DATE}
                        -f ${SOURCE}/packaging/linux/release-notes.awk ${SOURCE}/CHANGELOG.md
                OUTPUT_VARIABLE RELEASES OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
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
  configure_file(${SOURCE}/resources/man/${page}.1.in ${share}/man/${folder}/man1/${name}.1 @ONLY)
endforeach()

# In English, whoever makes the package.
foreach(completion bash-completion/completions/quillon-cli zsh/vendor-completions/_quillon-cli
        fish/vendor_completions.d/quillon-cli.fish)
  string(REGEX MATCH "^[a-z]+" shell ${completion})
  get_filename_component(folder ${share}/${completion} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  run(${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 ${CLI} completion ${shell} OUTPUT_FILE ${share}/${completion})
endforeach()

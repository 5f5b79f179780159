# Compiles the finished pages of the folder PAGES into the file TARGET. Windows' viewer shows titles, contents and index
# in the system's code page: everything inside is in code page 932.
cmake_policy(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/Contents.cmake)

# Fails when code page 932 does not have a character of the text.
function(write_ansi file text)
  file(WRITE ${WORK}/utf8 "${text}")
  execute_process(COMMAND ${ICONV} -f UTF-8 -t CP932 ${WORK}/utf8 OUTPUT_FILE ${WORK}/${file} ERROR_VARIABLE error
                  RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${file} holds a character that code page 932 does not have: ${error}")
  endif()
  file(REMOVE ${WORK}/utf8)
endfunction()

function(entry indent name page text)
  set(object "${indent}<LI><OBJECT type=\"text/sitemap\">\n${indent}<param name=\"Name\" value=\"${name}\">\n")
  if(page)
    string(APPEND object "${indent}<param name=\"Local\" value=\"${page}\">\n")
  endif()
  set(${text} "${object}${indent}</OBJECT>\n" PARENT_SCOPE)
endfunction()

set(site_start "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<HTML>\n<BODY>\n<UL>\n")
set(site_end "</UL>\n</BODY>\n</HTML>\n")

function(write_contents)
  page_title(${PAGES} index.html title)
  entry("" "${title}" index.html text)
  set(open "")
  foreach(line IN LISTS help_contents)
    if(line MATCHES "^  (.+)$")
      set(page ${CMAKE_MATCH_1})
      page_title(${PAGES} ${page} title)
      entry("  " "${title}" ${page} object)
      string(APPEND text "${object}")
    else()
      entry("" "${line}" "" object)
      string(APPEND text "${open}${object}<UL>\n")
      set(open "</UL>\n")
    endif()
  endforeach()
  write_ansi(help.hhc "${site_start}${text}${open}${site_end}")
endfunction()

function(write_index)
  set(text "")
  foreach(line IN LISTS help_keywords)
    if(line MATCHES "^([^=].*)\\|([^|]+)$")
      entry("" "${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}" object)
      string(APPEND text "${object}")
    endif()
  endforeach()
  write_ansi(help.hhk "${site_start}${text}${site_end}")
endfunction()

function(write_project compiled)
  page_title(${PAGES} index.html title)
  file(GLOB images RELATIVE ${PAGES} ${PAGES}/images/*.png)
  list(JOIN help_pages "\n" pages)
  list(JOIN images "\n" images)
  # A binary index would hold two bytes of whatever lies in the compiler's memory; viewers read the other one, too.
  set(options "Binary Index=No\nCompatibility=1.1 or later\nCompiled file=${compiled}\nContents file=help.hhc\n\
Default topic=index.html\nDefault Window=main\nFull-text search=Yes\nIndex file=help.hhk\nLanguage=0x411\n\
Title=${title}\n")
  set(window "\"${title}\",\"help.hhc\",\"help.hhk\",\"index.html\",\"index.html\",,,,,0x63520,260,0x10304e,\
[80,60,1080,780],,,,,,,0")
  write_ansi(help.hhp
             "[OPTIONS]\n${options}\n[WINDOWS]\nmain=${window}\n\n[FILES]\n${pages}\nstyle.css\n${images}\n")
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
foreach(page IN LISTS help_pages)
  file(READ ${PAGES}/${page} text)
  string(REPLACE "charset=UTF-8" "charset=Shift_JIS" text "${text}")
  write_ansi(${page} "${text}")
endforeach()
file(COPY ${PAGES}/images ${PAGES}/style.css DESTINATION ${WORK})
write_contents()
write_index()
get_filename_component(compiled ${TARGET} NAME)
write_project(${compiled})
execute_process(COMMAND ${CHMCMD} help.hhp WORKING_DIRECTORY ${WORK} OUTPUT_VARIABLE output ERROR_VARIABLE output
                RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT EXISTS ${WORK}/${compiled})
  message(FATAL_ERROR "chmcmd failed:\n${output}")
endif()
# The compiler writes when it did so.
execute_process(COMMAND ${PYTHON} -B ${CMAKE_CURRENT_LIST_DIR}/same_time.py ${WORK}/${compiled}
                COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${WORK}/${compiled} ${TARGET})
message(VERBOSE "${output}")

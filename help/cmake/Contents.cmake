# Reads contents.txt, keywords.txt and the titles of the pages from the folder SOURCE.
#   help_pages      the pages' file names in reading order, index.html first
#   help_contents   lines "chapter title" and "  page.html"
#   help_keywords   lines "= heading" and "keyword|page.html#anchor"
function(read_lines file lines)
  file(STRINGS ${file} read ENCODING UTF-8)
  list(FILTER read EXCLUDE REGEX "^#")
  set(${lines} ${read} PARENT_SCOPE)
endfunction()

read_lines(${SOURCE}/contents.txt help_contents)
read_lines(${SOURCE}/keywords.txt help_keywords)
set(help_pages index.html)
foreach(line IN LISTS help_contents)
  if(line MATCHES "^  (.+\\.html)$")
    list(APPEND help_pages ${CMAKE_MATCH_1})
  endif()
endforeach()

# The page's title as it stands in its <h1>; `folder` holds the bodies or the finished pages.
function(page_title folder page title)
  file(READ ${folder}/${page} text)
  if(NOT text MATCHES "<h1>([^\n]*)</h1>")
    message(FATAL_ERROR "${page} has no title")
  endif()
  set(found "${CMAKE_MATCH_1}")
  string(REPLACE "@PRODUCT@" "${PRODUCT}" found "${found}")
  set(${title} "${found}" PARENT_SCOPE)
endfunction()

# Makes the texts of the Windows packages. Run as a script; Windows.cmake says with which variables.
configure_file(${SOURCE}/LICENSE ${OUTPUT}/LICENSE.txt @ONLY NEWLINE_STYLE CRLF)
configure_file(${SOURCE}/packaging/windows/README.txt.in ${OUTPUT}/README.txt @ONLY NEWLINE_STYLE CRLF)

# The programs hold their libraries, whose licenses have to come along: those of the Debian packages that the libraries,
# or the same versions of them, are from.
set(text "What Quillon's programs for Windows hold of others, and under which conditions.\n")
# TagLib lets its users choose between two licenses.
string(APPEND text "TagLib is used under the Mozilla Public License 1.1. Its source is Debian's source package taglib.\n")
string(REPEAT "=" 78 rule)
foreach(entry "wxWidgets=libwxgtk3.2-dev" "PCRE2=libpcre2-dev" "utf8proc=libutf8proc-dev" "TagLib=libtag1-dev"
        "UTF8-CPP=libutfcpp-dev" "CLI11=libcli11-dev"
        "JSON for Modern C++=nlohmann-json3-dev" "MinGW-w64=mingw-w64-common"
        "the libraries of GCC=gcc-mingw-w64-base")
  string(REGEX REPLACE "=.*" "" library ${entry})
  string(REGEX REPLACE ".*=" "" package ${entry})
  file(READ /usr/share/doc/${package}/copyright license)
  if(license STREQUAL "")
    message(FATAL_ERROR "The license of ${library} is missing: install the package ${package}, with its documentation.")
  endif()
  string(APPEND text "\n${rule}\n${library}\n${rule}\n\n${license}")
endforeach()
string(REPLACE "\n" "\r\n" text "${text}")
file(WRITE ${OUTPUT}/LIBRARIES.txt "${text}")

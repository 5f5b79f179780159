# Third-party libraries. On Linux they are Debian's packages; for Windows, scripts/windows-libraries.sh builds
# them once from Debian's source packages into a cache outside the checkout. On Windows, vcpkg provides all of them
# (vcpkg.json) but wxWidgets, which scripts/ci-windows.sh builds.
if(WIN32)
  if(DEFINED ENV{XDG_CACHE_HOME})
    set(quillon_cache $ENV{XDG_CACHE_HOME}/quillon)
  else()
    set(quillon_cache $ENV{HOME}/.cache/quillon)
  endif()
  set(QUILLON_WINDOWS_LIBRARIES ${quillon_cache}/windows CACHE PATH "Where the libraries for Windows are installed")
  list(APPEND CMAKE_FIND_ROOT_PATH ${QUILLON_WINDOWS_LIBRARIES})
  list(APPEND CMAKE_PREFIX_PATH ${QUILLON_WINDOWS_LIBRARIES})
  find_path(WINDOWS_LIBRARIES_INCLUDE NAMES utf8proc.h)
  if(NOT WINDOWS_LIBRARIES_INCLUDE OR NOT EXISTS ${QUILLON_WINDOWS_LIBRARIES}/lib)
    message(FATAL_ERROR "The libraries for Windows are missing: run scripts/windows-libraries.sh first (on Windows, see "
                        "scripts/ci-windows.sh).")
  endif()
endif()

find_path(UTF8PROC_INCLUDE utf8proc.h REQUIRED)
find_library(UTF8PROC_LIBRARY NAMES utf8proc utf8proc_static REQUIRED)
add_library(utf8proc INTERFACE)
target_include_directories(utf8proc SYSTEM INTERFACE ${UTF8PROC_INCLUDE})
target_link_libraries(utf8proc INTERFACE ${UTF8PROC_LIBRARY})

find_path(PCRE2_INCLUDE pcre2.h REQUIRED)
find_library(PCRE2_LIBRARY NAMES pcre2-8 pcre2-8-static REQUIRED)
add_library(pcre2 INTERFACE)
target_include_directories(pcre2 SYSTEM INTERFACE ${PCRE2_INCLUDE})
target_link_libraries(pcre2 INTERFACE ${PCRE2_LIBRARY})

find_path(TAGLIB_INCLUDE taglib/taglib.h REQUIRED)
find_library(TAGLIB_LIBRARY NAMES tag REQUIRED)
add_library(taglib INTERFACE)
# TagLib's headers include each other without the folder.
target_include_directories(taglib SYSTEM INTERFACE ${TAGLIB_INCLUDE} ${TAGLIB_INCLUDE}/taglib)
target_link_libraries(taglib INTERFACE ${TAGLIB_LIBRARY})
if(WIN32 AND NOT CMAKE_CROSSCOMPILING)
  # vcpkg's library reads compressed frames, too.
  find_package(ZLIB REQUIRED)
  target_link_libraries(taglib INTERFACE ZLIB::ZLIB)
endif()

if(WIN32)
  target_compile_definitions(taglib INTERFACE TAGLIB_STATIC)
  target_compile_definitions(utf8proc INTERFACE UTF8PROC_STATIC)
  target_compile_definitions(pcre2 INTERFACE PCRE2_STATIC)
endif()

find_path(CLI11_INCLUDE CLI/CLI.hpp REQUIRED)
add_library(cli11 INTERFACE)
target_include_directories(cli11 SYSTEM INTERFACE ${CLI11_INCLUDE})

find_path(JSON_INCLUDE nlohmann/json.hpp REQUIRED)
add_library(json INTERFACE)
target_include_directories(json SYSTEM INTERFACE ${JSON_INCLUDE})

if(NOT WIN32)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
  pkg_check_modules(GSTREAMER REQUIRED IMPORTED_TARGET gstreamer-1.0 gstreamer-video-1.0)
  pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-i18n)
  pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
endif()

add_library(wx INTERFACE)
if(WIN32)
  find_package(wxWidgets 3.2 CONFIG REQUIRED COMPONENTS core base)
  # Only the optimised library is built; debug builds use it, too, with its setup.h.
  foreach(part wxcore wxbase)
    get_target_property(folders wx::${part} INTERFACE_INCLUDE_DIRECTORIES)
    string(REPLACE "$<$<CONFIG:Debug>:d>" "" folders "${folders}")
    set_target_properties(wx::${part} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${folders}")
    # MinGW's libuuid and liboleacc both define IID_IAccessible, so the one linked first must provide all needed
    # symbols.
    get_target_property(libraries wx::${part} INTERFACE_LINK_LIBRARIES)
    set_target_properties(wx::${part} PROPERTIES INTERFACE_LINK_LIBRARIES "uuid;${libraries}")
  endforeach()
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
  target_include_directories(wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(wx INTERFACE ${wxWidgets_DEFINITIONS})
  target_compile_options(wx INTERFACE ${wxWidgets_CXX_FLAGS})
endif()
target_link_libraries(wx INTERFACE ${wxWidgets_LIBRARIES})

if(QUILLON_TESTS)
  find_package(GTest REQUIRED)
endif()
if(QUILLON_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()

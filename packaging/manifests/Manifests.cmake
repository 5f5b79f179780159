# Writes what winget, Scoop and Flatpak want to know of the packages in the folder PACKAGES into its folder "manifests":
# each from its template, with the version and the packages' sums. A system whose packages are not there gets none.
# usage: cmake -D PACKAGES=dist -P Manifests.cmake
cmake_policy(VERSION 3.22)
get_filename_component(source ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
include(${source}/cmake/Product.cmake)
file(STRINGS ${source}/CMakeLists.txt line REGEX "^project\\(")
string(REGEX REPLACE ".*VERSION ([0-9.]+).*" "\\1" PROJECT_VERSION "${line}")
string(REGEX REPLACE " <.*" "" QUILLON_DEVELOPERS ${QUILLON_MAINTAINER})

get_filename_component(PACKAGES ${PACKAGES} ABSOLUTE)
set(DOWNLOADS ${QUILLON_URL}files/)
set(manifests ${PACKAGES}/manifests)
file(REMOVE_RECURSE ${manifests})

# write_manifest(TEMPLATE OUTPUT PACKAGE): its sum stands for @SHA256@.
function(write_manifest template output package)
  if(NOT EXISTS ${PACKAGES}/${package})
    return()
  endif()
  file(SHA256 ${PACKAGES}/${package} SHA256)
  set(URL ${DOWNLOADS}${package})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${template} ${manifests}/${output} @ONLY)
endfunction()

set(setup Quillon-${PROJECT_VERSION}-setup.exe)
foreach(kind "" .installer .locale.en-US .locale.ja-JP)
  write_manifest(winget${kind}.yaml.in winget/Quillon.Quillon${kind}.yaml ${setup})
endforeach()
write_manifest(scoop.json.in scoop/quillon.json Quillon-${PROJECT_VERSION}-portable.zip)
write_manifest(flatpak.yaml.in flatpak/${QUILLON_APPLICATION_ID}.yaml quillon_${PROJECT_VERSION}.orig.tar.xz)

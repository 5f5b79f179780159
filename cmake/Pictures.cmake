# Writes ${PROJECT_BINARY_DIR}/generated/PictureData.cpp, which contains the text of every SVG file in resources/icons
# (see src/controls/PictureData.h), and sets `output` to its path. When an SVG file changes, the build runs CMake again.
function(quillon_picture_source output)
  file(GLOB drawings CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/icons/*.svg)
  list(SORT drawings)
  set(entries "")
  foreach(drawing IN LISTS drawings)
    get_filename_component(name ${drawing} NAME_WE)
    file(READ ${drawing} text)
    string(APPEND entries "    {\"${name}\", R\"svg(${text})svg\"},\n")
  endforeach()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${drawings})
  set(source ${PROJECT_BINARY_DIR}/generated/PictureData.cpp)
  # Only replaces the placeholders, and only writes the file if it differs.
  configure_file(${PROJECT_SOURCE_DIR}/cmake/PictureData.cpp.in ${source} @ONLY)
  set(${output} ${source} PARENT_SCOPE)
endfunction()

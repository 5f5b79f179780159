# Gives the executable `target` its icon, manifest and version (resources/windows).
function(quillon_windows_resources target)
  set(resources ${PROJECT_SOURCE_DIR}/resources/windows)
  set(generated ${PROJECT_BINARY_DIR}/generated)
  math(EXPR minor "${PROJECT_VERSION_MINOR}")  # "01" is 1
  set(QUILLON_FILE_VERSION ${PROJECT_VERSION_MAJOR},${minor},0,0)
  set(QUILLON_FILE_VERSION_DOTS ${PROJECT_VERSION_MAJOR}.${minor}.0.0)
  configure_file(${resources}/Quillon.manifest.in ${generated}/Quillon.manifest @ONLY)
  configure_file(${resources}/Quillon.rc.in ${generated}/Quillon.rc @ONLY)
  set_source_files_properties(${generated}/Quillon.rc PROPERTIES OBJECT_DEPENDS
                              "${generated}/Quillon.manifest;${resources}/Quillon.ico")
  target_sources(${target} PRIVATE ${generated}/Quillon.rc)
  if(MSVC)
    target_link_options(${target} PRIVATE /MANIFEST:NO)  # the resources bring it
  endif()
endfunction()

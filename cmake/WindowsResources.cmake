# Adds Windows resources to `target`, whose file is called `resource_file`: version, descriptions, manifest (from
# resources/windows) and, for a program, the icon.
function(quillon_windows_resources target resource_file manifest resource_description_ja resource_description_en)
  set(resources ${PROJECT_SOURCE_DIR}/resources/windows)
  set(generated ${PROJECT_BINARY_DIR}/generated/${target})
  math(EXPR minor "${PROJECT_VERSION_MINOR}")  # "01" is 1
  set(QUILLON_FILE_VERSION ${PROJECT_VERSION_MAJOR},${minor},0,0)
  set(QUILLON_FILE_VERSION_DOTS ${PROJECT_VERSION_MAJOR}.${minor}.0.0)
  get_filename_component(resource_name ${resource_file} NAME_WE)
  set(resource_manifest ${generated}.manifest)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(resource_type VFT_APP)
    set(resource_manifest_id CREATEPROCESS_MANIFEST_RESOURCE_ID)
    # wxWidgets uses the icon "aaaa" for its window class; Explorer uses the alphabetically first one.
    set(resource_icon "aaaa ICON \"${resources}/Quillon.ico\"")
  else()
    set(resource_type VFT_DLL)
    set(resource_manifest_id ISOLATIONAWARE_MANIFEST_RESOURCE_ID)
    set(resource_icon "")
  endif()
  configure_file(${resources}/${manifest}.in ${resource_manifest} @ONLY)
  configure_file(${resources}/Quillon.rc.in ${generated}.rc @ONLY)
  set_source_files_properties(${generated}.rc PROPERTIES OBJECT_DEPENDS "${resource_manifest};${resources}/Quillon.ico")
  target_sources(${target} PRIVATE ${generated}.rc)
  if(MSVC)
    target_link_options(${target} PRIVATE /MANIFEST:NO)  # it is in the resources
  endif()
endfunction()

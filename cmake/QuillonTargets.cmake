# Each folder of src/ is a static library that links only the folders below it, so that upward calls fail to link. Its
# folder "window" is not included: see quillon_windows.
function(quillon_library name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/src/${folder}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()

# Sources for only one system end with _windows.cpp or _linux.cpp, or lie in a folder with the system's name.
function(quillon_keep_system_sources list)
  if(WIN32)
    list(FILTER ${list} EXCLUDE REGEX "_linux\\.cpp$")
  else()
    list(FILTER ${list} EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  set(${list} ${${list}} PARENT_SCOPE)
endfunction()

# The Windows build is tested under Wine, unless it is made on Windows.
set(quillon_under_wine OFF)
if(WIN32 AND CMAKE_CROSSCOMPILING)
  set(quillon_under_wine ON)
endif()

# What brings a test a display of its own, on Linux also a session bus: it does not matter where CTest runs. On Windows
# tests use the desktop.
set(quillon_own_display "")
if(quillon_under_wine)
  set(quillon_own_display ${PROJECT_SOURCE_DIR}/scripts/with-display.sh)
elseif(NOT WIN32)
  set(quillon_own_display ${PROJECT_SOURCE_DIR}/scripts/with-display.sh dbus-run-session --)
endif()

# One test program per folder of tests/, one CTest entry each. ON_DISPLAY is for programs that need a display; under
# Wine these share the one that ./test.sh starts CTest on.
function(quillon_test folder)
  cmake_parse_arguments(PARSE_ARGV 1 test "ON_DISPLAY" "" "")
  set(system linux)
  if(WIN32)
    set(system windows)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp
       ${PROJECT_SOURCE_DIR}/tests/${folder}/${system}/*.cpp)
  quillon_keep_system_sources(sources)
  set(name quillon_${folder}_tests)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE QUILLON_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${test_UNPARSED_ARGUMENTS} quillon_test_support GTest::gmock GTest::gtest GTest::gtest_main)
  target_precompile_headers(${name} REUSE_FROM quillon_test_headers)
  set(command ${name})
  if(test_ON_DISPLAY AND NOT WIN32)
    set(command ${quillon_own_display} $<TARGET_FILE:${name}>)
  endif()
  add_test(NAME ${folder} COMMAND ${command} --gtest_output=xml:../results/${folder}.xml)
  set_tests_properties(${folder} PROPERTIES TIMEOUT 600)
endfunction()

# Hardening options, which make errors harder to exploit. Used in every build.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Adds options that not every compiler or processor supports.
function(quillon_compile_options_if_known)
  set(CMAKE_REQUIRED_FLAGS -Werror)  # some compilers only warn about another processor's option
  foreach(option ${ARGN})
    string(MAKE_C_IDENTIFIER "known${option}" known)
    check_cxx_compiler_flag(${option} ${known})
    if(${known})
      add_compile_options(${option})
    endif()
  endforeach()
endfunction()

if(MSVC)
  add_compile_options(/GS /guard:cf)
  add_link_options(/guard:cf /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT)
else()
  add_compile_options(-fstack-protector-strong)
  if(WIN32)
    # MinGW needs the option at linking, too, for its library. Stacks are always probed on Windows, and GCC cannot make
    # a table of indirect call targets.
    add_link_options(-fstack-protector-strong LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
  else()
    quillon_compile_options_if_known(-fstack-clash-protection -fcf-protection -mbranch-protection=standard)
    add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack)
  endif()
  # Checked calls need the optimiser. The sanitizers do not need them, because they check more.
  if(NOT QUILLON_SANITIZE)
    set(fortified 2)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
      set(fortified 3)
    endif()
    # Some distributions' compilers predefine a level.
    add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${fortified}>")
  endif()
endif()

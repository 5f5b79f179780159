# What makes an error in a program harder to use against its user; every build has it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Options that not every compiler, or not every processor, has.
function(quillon_compile_options_if_known)
  set(CMAKE_REQUIRED_FLAGS -Werror)  # for some, an option of another processor is only worth a warning
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
    # MinGW brings the library for it at linking. Stacks are probed on Windows in any case, and a table of the targets of
    # indirect calls is something that GCC cannot make.
    add_link_options(-fstack-protector-strong LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
  else()
    quillon_compile_options_if_known(-fstack-clash-protection -fcf-protection -mbranch-protection=standard)
    add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack)
  endif()
  # Checked calls are made by the optimiser; the sanitizers check more, and by themselves.
  if(NOT QUILLON_SANITIZE)
    set(fortified 2)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
      set(fortified 3)
    endif()
    # Some distributions' compilers come with a level of their own.
    add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${fortified}>")
  endif()
endif()

# What every program and library is hardened with, in the Debian packages too. On Windows the linker
# does what it can by default.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

add_compile_options(-fstack-protector-strong
  # It checks nothing without optimisation. A distribution's own level gives way.
  "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
add_link_options(-Wl,-z,relro,-z,now)
# Not on every processor.
foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER ${flag} known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()

# One place for the flags that every target shares.
add_library(triaxlab_flags INTERFACE)
target_include_directories(triaxlab_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(triaxlab_flags INTERFACE
  -Wall -Wextra -Wconversion -Wshadow -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor
  # Sums are rounded at each step as the formulas tell; a fused multiply-add would change last digits.
  -ffp-contract=off)
if(TRIAXLAB_WERROR)
  target_compile_options(triaxlab_flags INTERFACE -Werror)
endif()
if(TRIAXLAB_SANITIZE)
  target_compile_options(triaxlab_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(triaxlab_flags INTERFACE -fsanitize=address,undefined)
endif()
if(TRIAXLAB_LTO)
  # Two types or functions of one name, which a linker joins in silence, are found when all is compiled as one.
  target_compile_options(triaxlab_flags INTERFACE -flto=auto -Wodr -Wlto-type-mismatch)
  target_link_options(triaxlab_flags INTERFACE -flto=auto -Wodr -Wlto-type-mismatch)
  if(TRIAXLAB_WERROR)
    target_link_options(triaxlab_flags INTERFACE -Werror)
  endif()
endif()
if(TRIAXLAB_HARDENED)
  # What Debian asks of the programs that it ships; position-independent they are by the compiler's own choice. No path
  # of the machine that built them stays in them.
  target_compile_options(triaxlab_flags INTERFACE
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -Wformat -Werror=format-security
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=./build)
  target_link_options(triaxlab_flags INTERFACE -Wl,-z,relro,-z,now)
endif()
if(TRIAXLAB_FUZZ)
  # libFuzzer steers by the branches that an input reaches, so the readers themselves are instrumented.
  target_compile_options(triaxlab_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(TRIAXLAB_CCACHE ccache)
if(TRIAXLAB_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${TRIAXLAB_CCACHE})
endif()

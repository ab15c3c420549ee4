# Toolchain: Linux on 32 bits, by this machine's own compiler. Sums are rounded at each step, as by the 64-bit program,
# and not as the old arithmetic unit would.
# The kernel's headers are those of the 64-bit system: without the packages gcc-multilib, which a cross compiler puts out,
# nothing else shows them.
set(CMAKE_C_FLAGS_INIT "-m32 -idirafter /usr/include/x86_64-linux-gnu")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT} -msse2 -mfpmath=sse -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(CMAKE_IGNORE_PREFIX_PATH /usr)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/i386-linux-gnu/pkgconfig)

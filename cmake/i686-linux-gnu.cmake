# For 32-bit x86, built by Debian's g++-i686-linux-gnu and run by qemu-user-static. What the project
# needs lies in build/i386-prefix, where scripts/test-i386 puts it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(TRIPLE i686-linux-gnu)
set(CMAKE_C_COMPILER ${TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${TRIPLE}-g++)
# Without these flags the compiler computes in registers that round otherwise; the build refuses that.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")

get_filename_component(PREFIX "${CMAKE_CURRENT_LIST_DIR}/../build/i386-prefix" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${PREFIX} /usr/${TRIPLE})
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-i386-static) # with QEMU_LD_PREFIX=/usr/i686-linux-gnu

# For Windows on 64-bit processors, with Debian's mingw-w64. What the project needs lies in
# build/mingw, where scripts/build-windows puts it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variant with POSIX threads: the other one lacks std::thread and std::mutex.
set(MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_TRIPLE}-windres)

get_filename_component(MINGW_PREFIX "${CMAKE_CURRENT_LIST_DIR}/../build/mingw" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${MINGW_PREFIX} /usr/${MINGW_TRIPLE})
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# No library of the compiler has to be shipped beside what is built.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

# Makes a flaw harder to use: what Debian builds its own packages with, and its equals for Windows.
# scripts/build-xerces gives the same to the parser that is linked in, which is no part of this
# project: so nothing here may need anything of it.

# Without optimisation the checks of _FORTIFY_SOURCE do not exist, and the system's headers say so.
set(OPTIMIZED "$<NOT:$<CONFIG:Debug,>>")

add_compile_options(
  -Wformat -Werror=format-security
  "$<${OPTIMIZED}:-fstack-protector-strong>"
  "$<${OPTIMIZED}:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>")
# On Windows the linker has to know it too: the check is in a library.
add_link_options("$<${OPTIMIZED}:-fstack-protector-strong>")
# The standard library's own checks: an index beyond the end ends the program instead of reading
# what lies there. Where that costs time, vaultry/CMakeLists.txt takes it back.
add_compile_definitions(_GLIBCXX_ASSERTIONS)

if(WIN32)
  add_link_options(LINKER:--dynamicbase,--high-entropy-va,--nxcompat)
elseif(NOT APPLE)
  add_link_options(LINKER:-z,relro,-z,now)
endif()

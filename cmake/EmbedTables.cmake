# Writes OUT, a C++ source with the functions that HEADER declares, each of which gives a file as an array of
# bytes. TABLES lists them: the function, "|", the file.

set(source "// Made by the build; do not edit.\n#include ${HEADER}\n\n")
foreach(row IN LISTS TABLES)
  string(REPLACE "|" ";" row "${row}")
  list(GET row 0 function)
  list(GET row 1 file)
  file(READ "${file}" hex HEX)
  string(REGEX REPLACE "(................................)" "\\1\n    " hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(APPEND source
    "std::string_view ${function}() {\n"
    "    static const unsigned char bytes[] = {\n    ${bytes}\n    };\n"
    "    return {reinterpret_cast<const char*>(bytes), sizeof bytes};\n}\n\n")
endforeach()
file(WRITE "${OUT}" "${source}")

# Writes OUT, a C++ source that holds the tables PIECES and SETTINGS as arrays of bytes.

set(source "// Made by the build; do not edit.\n#include \"tools/stage/CsvRows.h\"\n\n")
foreach(row "Piece|${PIECES}" "Setting|${SETTINGS}")
  string(REPLACE "|" ";" row "${row}")
  list(GET row 0 name)
  list(GET row 1 file)
  file(READ "${file}" hex HEX)
  string(REGEX REPLACE "(................................)" "\\1\n    " hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(APPEND source
    "std::string_view Tarnex::Report::${name}Table() {\n"
    "    static const unsigned char bytes[] = {\n    ${bytes}\n    };\n"
    "    return {reinterpret_cast<const char*>(bytes), sizeof bytes};\n}\n\n")
endforeach()
file(WRITE "${OUT}" "${source}")

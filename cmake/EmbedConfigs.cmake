# Writes OUT, a C++ source that holds each of FILES as an array of bytes under the file's name
# without its ending; data/vaultry.xml is called "default" and comes first. PRESETS is another, by itself.

set(arrays "")
set(rows "")
set(number 0)
foreach(file IN LISTS FILES PRESETS)
  get_filename_component(name "${file}" NAME_WE)
  file(READ "${file}" hex HEX)
  string(REGEX REPLACE "(................................)" "\\1\n    " hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  if(bytes STREQUAL "")
    continue()
  endif()
  string(APPEND arrays "const unsigned char kText${number}[] = {\n    ${bytes}\n};\n")
  set(text "{reinterpret_cast<const char*>(kText${number}), sizeof kText${number}}")
  if(file STREQUAL PRESETS)
    set(presets "${text}")
  elseif(name STREQUAL "vaultry")
    string(PREPEND rows "        {\"default\", ${text}},\n")
  else()
    string(APPEND rows "        {\"${name}\", ${text}},\n")
  endif()
  math(EXPR number "${number} + 1")
endforeach()

set(source "// Made by the build; do not edit.\n#include <vaultry/run/BuiltinConfigs.h>\n\n")
if(rows STREQUAL "")
  string(APPEND source
    "std::span<const Tarnex::BuiltinConfig> Tarnex::BuiltinConfigs() {\n"
    "    return {};\n}\n")
else()
  string(APPEND source
    "namespace {\n${arrays}} // namespace\n\n"
    "std::span<const Tarnex::BuiltinConfig> Tarnex::BuiltinConfigs() {\n"
    "    static const BuiltinConfig configs[] = {\n${rows}    };\n"
    "    return configs;\n}\n\n"
    "std::string_view Tarnex::BuiltinPresets() {\n    return ${presets};\n}\n")
endif()
file(WRITE "${OUT}" "${source}")

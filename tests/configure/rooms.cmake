# Fails where a file includes upward, or a file stands in no room. SOURCE comes from the command line.
cmake_minimum_required(VERSION 3.25)

# What each room may include besides itself. The doors stand above the tools and beside each other.
set(MAY_INCLUDE
  "vaultry/foundation"
  "vaultry/output: vaultry/foundation"
  "vaultry/game: vaultry/foundation vaultry/output"
  "vaultry/catalogue: vaultry/foundation"
  "vaultry/layout: vaultry/foundation vaultry/catalogue"
  "vaultry/gen: vaultry/foundation vaultry/output vaultry/catalogue vaultry/layout"
  "vaultry/run: vaultry/foundation vaultry/output vaultry/game vaultry/catalogue vaultry/layout vaultry/gen"
  "tools/png"
  "tools/text: vaultry"
  "tools/runs: vaultry tools/text"
  "tools/check: vaultry tools/text"
  "tools/plugins: vaultry tools/text"
  "tools/engine: vaultry tools/text"
  "tools/maps: vaultry tools/text tools/plugins tools/png"
  "tools/facts: vaultry tools/text tools/plugins tools/maps"
  "tools/search: vaultry tools/text tools/plugins tools/maps tools/facts"
  "tools/gallery: vaultry tools/text tools/runs tools/maps"
  "tools/stage: vaultry tools/text tools/check tools/plugins"
  "embed: vaultry tools"
  "cli: vaultry tools")

file(GLOB_RECURSE every RELATIVE ${SOURCE}
  ${SOURCE}/vaultry/*.h ${SOURCE}/vaultry/*.cpp ${SOURCE}/tools/*.h ${SOURCE}/tools/*.cpp
  ${SOURCE}/embed/*.h ${SOURCE}/embed/*.cpp ${SOURCE}/cli/*.h ${SOURCE}/cli/*.cpp)
list(REMOVE_ITEM every vaultry/vaultry.h) # the C interface: a door, and no business of any room

foreach(row IN LISTS MAY_INCLUDE)
  string(REGEX MATCHALL "[a-z/]+" allowed "${row}")
  list(GET allowed 0 room)
  list(JOIN allowed "|" allowed)
  set(files ${every})
  list(FILTER files INCLUDE REGEX "^${room}/")
  list(REMOVE_ITEM every ${files})
  if(NOT files)
    message(SEND_ERROR "the room ${room} is empty")
  endif()
  foreach(file IN LISTS files)
    file(STRINGS "${SOURCE}/${file}" includes REGEX "^#include [\"<](vaultry|tools|embed|cli)/")
    foreach(include IN LISTS includes)
      string(REGEX REPLACE "^#include [\"<]([^\">]+).*" "\\1" included "${include}")
      if(NOT included MATCHES "^(${allowed})/"
          OR (included STREQUAL "vaultry/vaultry.h" AND NOT room STREQUAL "embed"))
        message(SEND_ERROR "${file} includes ${included}, which stands above it or beside it")
      endif()
    endforeach()
  endforeach()
endforeach()
if(every)
  message(SEND_ERROR "in no room: ${every}")
endif()

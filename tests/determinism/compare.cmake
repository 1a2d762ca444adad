# Makes every run of catalogue.txt with a program and compares what comes out with the hashes there.
#   cmake -DPROGRAM=build/release/bin/vaultry -DFOLDER=build/determinism [-DREWRITE=ON]
#     [-DEMULATOR=wine] -P tests/determinism/compare.cmake
# FOLDER is for files in between. REWRITE puts the hashes of the program into the catalogue instead.
cmake_minimum_required(VERSION 3.25)

set(CATALOGUE "${CMAKE_CURRENT_LIST_DIR}/catalogue.txt")
# The configurations are named from here.
set(GOLDEN "${CMAKE_CURRENT_LIST_DIR}/../golden")
get_filename_component(PROGRAM "${PROGRAM}" ABSOLUTE)
get_filename_component(FOLDER "${FOLDER}" ABSOLUTE)
set(PLUGIN "${FOLDER}/run.esp")
set(LOG "${FOLDER}/run.log")

# Sets `plugin` and `log` to the hashes of what a run with these options writes; `fault` says why
# there are none.
function(make_run options)
  separate_arguments(words UNIX_COMMAND "${options}")
  file(REMOVE "${PLUGIN}" "${LOG}")
  # The bytes do not depend on what the program does where it is not told.
  set(size "")
  set(cell "")
  if(NOT options MATCHES "--size|--fixed")
    set(size --size Random)
  endif()
  if(NOT options MATCHES "--cell")
    set(cell --cell "Vaultry Dungeon")
  endif()
  execute_process(
    COMMAND ${EMULATOR} "${PROGRAM}" generate --quiet --out "${PLUGIN}" --log "${LOG}" ${words}
      ${size} ${cell}
    WORKING_DIRECTORY "${GOLDEN}"
    RESULT_VARIABLE status
    ERROR_VARIABLE said)
  set(fault "" PARENT_SCOPE)
  if(NOT status EQUAL 0 OR NOT EXISTS "${PLUGIN}")
    set(fault "no plug-in, exit status ${status}\n${said}" PARENT_SCOPE)
    return()
  endif()
  file(SHA256 "${PLUGIN}" hash)
  set(plugin ${hash} PARENT_SCOPE)
  file(SHA256 "${LOG}" hash)
  set(log ${hash} PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY "${FOLDER}")
file(STRINGS "${CATALOGUE}" lines ENCODING UTF-8)
list(LENGTH lines count)
set(rewritten "")
set(failures "")
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^([^ ]+) ([^ ]+) (--.+)$")
    message(FATAL_ERROR "${CATALOGUE}: not \"hash hash options\": ${line}")
  endif()
  set(expected_plugin ${CMAKE_MATCH_1})
  set(expected_log ${CMAKE_MATCH_2})
  set(options "${CMAKE_MATCH_3}")
  make_run("${options}")
  string(APPEND rewritten "${plugin} ${log} ${options}\n")
  if(fault)
    string(APPEND failures "vaultry generate ${options}\n  ${fault}\n")
  elseif(REWRITE)
    continue()
  endif()
  foreach(kind plugin log)
    if(NOT fault AND NOT ${kind} STREQUAL expected_${kind})
      string(APPEND failures "vaultry generate ${options}\n"
        "  ${kind}: ${${kind}} instead of ${expected_${kind}}\n")
    endif()
  endforeach()
endforeach()

if(failures)
  message(FATAL_ERROR "These runs give other bytes than the catalogue says:\n${failures}")
endif()
if(REWRITE)
  file(WRITE "${CATALOGUE}" "${rewritten}")
endif()
message(STATUS "${count} runs give the bytes of the catalogue")

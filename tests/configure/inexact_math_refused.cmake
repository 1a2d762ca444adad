# Configures the project with each flag that changes floating-point results and sees it refused with
# the flag's name; flags that change nothing pass. SOURCE, FOLDER and CXX come from the command line.
cmake_minimum_required(VERSION 3.25)

# The default build type of whoever runs the tests is not that of these.
unset(ENV{CMAKE_BUILD_TYPE})

# Configures in a fresh folder; the environment and further arguments carry the flags.
function(configure name)
  file(REMOVE_RECURSE "${FOLDER}/${name}")
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env "CXXFLAGS=${environment}"
      "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${FOLDER}/${name}" -G Ninja
      "-DCMAKE_CXX_COMPILER=${CXX}" -DVAULTRY_BUILD_APPS=OFF -DVAULTRY_BUILD_TESTS=OFF ${ARGN}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE said
    ERROR_VARIABLE said)
  string(REGEX REPLACE "[ \n]+" " " said "${said}")
  set(status ${status} PARENT_SCOPE)
  set(said "${said}" PARENT_SCOPE)
endfunction()

function(expect_refusal name words)
  configure(${name} ${ARGN})
  string(FIND "${said}" "${words}" place)
  if(status EQUAL 0 OR place EQUAL -1)
    message(SEND_ERROR "${name}: status ${status}, not refused with \"${words}\":\n${said}")
  endif()
endfunction()

set(environment "")
foreach(flag -ffast-math -Ofast -funsafe-math-optimizations -fassociative-math -freciprocal-math
    -ffinite-math-only -ffp-contract=fast /fp:fast)
  string(MAKE_C_IDENTIFIER "flag${flag}" name)
  expect_refusal(${name} "The flag ${flag} lets the compiler change"
    -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 ${flag}")
endforeach()
expect_refusal(everywhere "The flag -ffast-math lets the compiler change"
  "-DCMAKE_CXX_FLAGS=-O2 -ffast-math")

set(environment "-O2 -ffast-math")
expect_refusal(environment "The flag -ffast-math lets the compiler change")
set(environment "")

# A compiler that is like that by itself.
file(WRITE "${FOLDER}/wrapper" "#!/bin/sh\nexec '${CXX}' -ffast-math \"$@\"\n")
file(CHMOD "${FOLDER}/wrapper" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
expect_refusal(hidden "does not keep floating-point results exact"
  "-DCMAKE_CXX_COMPILER=${FOLDER}/wrapper")

configure(harmless "-DCMAKE_CXX_FLAGS=-O2 -fno-fast-math -fno-math-errno")
if(NOT status EQUAL 0)
  message(SEND_ERROR "harmless flags were refused:\n${said}")
endif()

# Installs the project into an empty folder, moves it to another, and uses it from there as strangers
# would: a C++ project through find_package, a C program through pkg-config, a Python program through
# the module, and the program itself; PNG if it was built with that. Arguments: BUILD, SOURCE,
# WORK, GENERATOR, CXX, CC, LIBDIR, PYTHON, PKG_CONFIG, HARDENED, PNG.

# What whoever runs the tests has set for builds of their own.
foreach(variable DESTDIR CFLAGS CXXFLAGS CPPFLAGS LDFLAGS CMAKE_GENERATOR CMAKE_BUILD_TYPE
    CMAKE_PREFIX_PATH CMAKE_INSTALL_PREFIX PKG_CONFIG_SYSROOT_DIR PYTHONHOME PYTHONPATH
    VAULTRY_LIBRARY)
  unset(ENV{${variable}})
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " call)
    message(FATAL_ERROR "${call}\nended with ${status}:\n${output}")
  endif()
  set(OUTPUT "${output}" PARENT_SCOPE)
endfunction()

function(require_same a b)
  run(${CMAKE_COMMAND} -E compare_files ${a} ${b})
endfunction()

set(PREFIX ${WORK}/prefix)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${PREFIX})
set(CONFIG ${PREFIX}/share/vaultry/vaultry.xml)
set(LIBRARY_PATH ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${PREFIX}/${LIBDIR})

foreach(file man/man1/vaultry.1 bash-completion/completions/vaultry zsh/site-functions/_vaultry
    fish/vendor_completions.d/vaultry.fish)
  if(NOT EXISTS ${PREFIX}/share/${file})
    message(FATAL_ERROR "share/${file} is not installed")
  endif()
endforeach()

run(${SOURCE}/scripts/check-links ${PREFIX}/share/doc/vaultry)
if(HARDENED)
  run(${SOURCE}/scripts/check-hardening ${PREFIX}/bin/vaultry ${PREFIX}/${LIBDIR}/libvaultry.so)
endif()

run(${PREFIX}/bin/vaultry generate --config ${CONFIG} --seed 7 --stamp 1 --size Small
  --cell Keep --out program.esp)
if(PNG)
  run(${PREFIX}/bin/vaultry map --seed 7 --map program.png)
endif()

run(${CMAKE_COMMAND} -S ${SOURCE}/examples/embed -B embed -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${PREFIX})
run(${CMAKE_COMMAND} --build embed)
run(embed/embed embedded.esp)
if(NOT OUTPUT MATCHES "Generating Layouts\n.*step 3 of 3.*level 3: [0-9]+ of [0-9]+ rooms")
  message(FATAL_ERROR "The embedding program printed:\n${OUTPUT}")
endif()

set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
run(${PKG_CONFIG} --cflags --libs vaultry)
separate_arguments(FLAGS UNIX_COMMAND "${OUTPUT}")
run(${CC} -std=c99 -Wall -Wextra -Wpedantic -Werror ${SOURCE}/examples/c/generate.c
  ${FLAGS} -o generate)
run(${LIBRARY_PATH} ./generate ${CONFIG} c.esp 7)
if(NOT OUTPUT MATCHES "seed 7\n{\n  \"schema\": 1,.*\"levels\": \\[\n    {\n      \"level\": 1,")
  message(FATAL_ERROR "The C program printed:\n${OUTPUT}")
endif()

set(DOCUMENTS ${PREFIX}/share/doc/vaultry)
run(${LIBRARY_PATH} PYTHONPATH=${DOCUMENTS}/python ${PYTHON} -B ${DOCUMENTS}/examples/python/generate.py
  ${CONFIG} python.esp seed=7 stamp=1 size=Small cell=Keep)
if(NOT OUTPUT MATCHES "seed 7\nlevel 1: [0-9]+ of [0-9]+ rooms")
  message(FATAL_ERROR "The Python program printed:\n${OUTPUT}")
endif()
require_same(program.esp python.esp)

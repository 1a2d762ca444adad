# Refuses to configure when the compiler would be free to change the results of floating-point
# arithmetic: the same seed would then give other dungeons in one build than in another.

set(INEXACT_FLAGS
  -ffast-math -Ofast -funsafe-math-optimizations -fassociative-math -freciprocal-math
  -ffinite-math-only -fno-signed-zeros -fcx-limited-range -ffp-model=fast -ffp-contract=fast
  -mfpmath=387 -mfpmath=both /fp:fast -fp:fast)

# From every place that flags for all targets come from; CMAKE_CXX_FLAGS begins as the environment's
# CXXFLAGS.
set(EVERY_FLAG "${CMAKE_CXX_FLAGS}")
set(configurations ${CMAKE_CONFIGURATION_TYPES} ${CMAKE_BUILD_TYPE})
foreach(configuration IN LISTS configurations)
  string(TOUPPER "${configuration}" upper)
  string(APPEND EVERY_FLAG " ${CMAKE_CXX_FLAGS_${upper}}")
endforeach()
get_directory_property(options COMPILE_OPTIONS)
string(APPEND EVERY_FLAG " ${options}")
string(REPLACE ";" " " EVERY_FLAG "${EVERY_FLAG}")
separate_arguments(EVERY_FLAG NATIVE_COMMAND "${EVERY_FLAG}")

foreach(flag IN LISTS INEXACT_FLAGS)
  if(flag IN_LIST EVERY_FLAG)
    message(FATAL_ERROR
      "The flag ${flag} lets the compiler change floating-point results, and the same seed would "
      "give other dungeons. Take it out of CMAKE_CXX_FLAGS and the environment's CXXFLAGS.")
  endif()
endforeach()

# What no list of flags can tell: a compiler that is like that by itself, or by flags hidden in a
# response file or a wrapper.
file(WRITE "${CMAKE_BINARY_DIR}/CMakeFiles/exact_math.cpp" [[
#include <cfloat>
#if defined(__FAST_MATH__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__) || \
    defined(_M_FP_FAST)
#error results may change
#endif
static_assert(FLT_EVAL_METHOD == 0, "intermediate results carry another precision");
int main() {}
]])
try_compile(VAULTRY_EXACT_MATH "${CMAKE_BINARY_DIR}/CMakeFiles/exact_math"
  SOURCES "${CMAKE_BINARY_DIR}/CMakeFiles/exact_math.cpp"
  OUTPUT_VARIABLE exact_math_output)
if(NOT VAULTRY_EXACT_MATH)
  message(FATAL_ERROR
    "This compiler, with these flags, does not keep floating-point results exact (fast math, or "
    "x87 arithmetic), and the same seed would give other dungeons.\n${exact_math_output}")
endif()
unset(VAULTRY_EXACT_MATH CACHE)

/* SPDX-License-Identifier: MIT */
/* What a program in C does with the library. */
#ifndef C_PROGRAM_H
#define C_PROGRAM_H

#ifdef __cplusplus
extern "C" {
#endif

/* Generates to the path `plugin`. Returns what did not hold, as text; null for nothing. */
const char* RunCProgram(const char* config, const char* plugin);

#ifdef __cplusplus
}
#endif

#endif

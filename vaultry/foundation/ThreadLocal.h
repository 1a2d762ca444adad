// SPDX-License-Identifier: MIT
// Variables that each thread has of its own. Not installed.
#pragma once

/// Put before a variable of a thread that is asked for all the time. Where the loader can give it
/// its place once and for all it costs a single load instead of a call; libraries that are loaded
/// late share few bytes of such places, so it is for pointers only.
#if defined(__ELF__)
#define VAULTRY_FIXED_PLACE __attribute__((tls_model("initial-exec")))
#else
#define VAULTRY_FIXED_PLACE
#endif

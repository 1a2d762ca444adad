// SPDX-License-Identifier: MIT
// The marks of what the shared library exports.
#pragma once

// VAULTRY_STATIC: the sources are linked in directly (tests, static builds).
// VAULTRY_BUILDING: set only while the library's own objects are compiled.
#if defined(VAULTRY_STATIC)
#define VAULTRY_API
#elif defined(_WIN32)
#if defined(VAULTRY_BUILDING)
#define VAULTRY_API __declspec(dllexport)
#else
#define VAULTRY_API __declspec(dllimport)
#endif
#else
#define VAULTRY_API __attribute__((visibility("default")))
#endif

// SPDX-License-Identifier: MIT
// The marks of what the shared library exports.
#pragma once

/// Marks what the shared library exports. Define VAULTRY_STATIC where the library's objects are
/// linked in directly; VAULTRY_BUILDING is set only while they are compiled.
///
/// Programs that find the library by CMake or pkg-config define neither.
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

// SPDX-License-Identifier: MIT
// The system that this program runs on, and what it tells programs.
#pragma once

#include <vaultry/foundation/Export.h>

#include <filesystem>
#include <functional>
#include <string>

namespace Tarnex {

/// Whose paths, variables and quotation marks count.
enum class System { Posix, Windows };

/// The one this program runs on.
#ifdef _WIN32
inline constexpr System kThisSystem = System::Windows;
#else
inline constexpr System kThisSystem = System::Posix;
#endif

/// The value of an environment variable, in UTF-8; empty for none.
using Environment = std::function<std::string(const char* name)>;

/// The environment of this program.
VAULTRY_API std::string EnvironmentValue(const char* name);

/// A path as text, in UTF-8 on every system.
VAULTRY_API std::string Utf8(const std::filesystem::path& path);

} // namespace Tarnex

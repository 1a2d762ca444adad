// SPDX-License-Identifier: MIT
// The configurations and presets that are part of the library.
#pragma once

#include <vaultry/foundation/Export.h>

#include <span>
#include <string_view>

namespace Tarnex {

class GenMgr;

/// One configuration document. It lives as long as the program.
struct BuiltinConfig {
    std::string_view name; ///< as in "builtin:NAME"
    std::string_view text; ///< the whole document, byte for byte
};

/// The configurations, the one called "default" first.
VAULTRY_API std::span<const BuiltinConfig> BuiltinConfigs();

/// The configuration that "builtin" or "builtin:NAME" stands for; null for anything else.
VAULTRY_API const BuiltinConfig* FindBuiltinConfig(std::string_view source);

/// Options that belong together, as JSON: a list of objects with `name`, `description` and
/// `options`, each by the name of its switch, "config" among them. It lives as long as the program.
VAULTRY_API std::string_view BuiltinPresets();

/// Reads one into a manager; its log calls it `name`. Whoever names the caves wants a cave:
/// "caves" and "grottoes" begin with their first cave tile set and their first cave layout, while
/// the same documents read from a file begin with their rooms, as all files do.
///
/// @code
/// Tarnex::LoadBuiltin(manager, Tarnex::BuiltinConfigs().front(), "builtin");
/// @endcode
VAULTRY_API void LoadBuiltin(GenMgr& manager, const BuiltinConfig& config, const char* name);

} // namespace Tarnex

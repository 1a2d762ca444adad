// SPDX-License-Identifier: MIT
// The configurations that are part of the library.
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

/// Reads one into a manager; its log calls it `name`. Whoever names the caves wants a cave:
/// "caves" and "grottoes" begin with their first cave tile set and their first cave layout, while
/// the same documents read from a file begin with their rooms, as all files do.
///
/// @code
/// Tarnex::LoadBuiltin(manager, Tarnex::BuiltinConfigs().front(), "builtin");
/// @endcode
VAULTRY_API void LoadBuiltin(GenMgr& manager, const BuiltinConfig& config, const char* name);

} // namespace Tarnex

// SPDX-License-Identifier: MIT
// The configurations that are part of the program.
#pragma once

#include <span>
#include <string_view>

namespace Tarnex::Cli {

/// One configuration document.
struct BuiltinConfig {
    std::string_view name; ///< as in "builtin:NAME"
    std::string_view text; ///< the whole document, byte for byte
};

/// The configurations, the one called "default" first.
std::span<const BuiltinConfig> BuiltinConfigs();

} // namespace Tarnex::Cli

// SPDX-License-Identifier: MIT
// The options of the C interface.
#pragma once

#include "embed/Generator.h"

#include <string>
#include <string_view>

namespace Tarnex {

/// Takes back every name that was set: they are those of another configuration.
void ForgetNames(vaultry_generator& generator);

/// The name of an option, counted from 0; null past the last one.
const char* OptionName(std::size_t index);

/// Sets an option from its text (both UTF-8). Returns what is wrong with them; empty for nothing,
/// otherwise the generator is as it was.
std::string
SetOption(vaultry_generator& generator, std::string_view option, std::string_view value);

} // namespace Tarnex

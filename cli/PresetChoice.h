// SPDX-License-Identifier: MIT
// From a preset to the options it stands for.
#pragma once

#include "cli/Console.h"
#include "cli/Options.h"

#include <string>

namespace Tarnex::Cli {

/// The options with those of the preset that was chosen, by name or by the seed, which is drawn for
/// that unless it is given. What was typed goes before what the preset says. Throws UsageError for
/// a preset that there is not, and for a file of presets that cannot be used.
GenerateOptions WithPreset(const GenerateOptions& typed);

/// Which preset asks for the option, and where that stands, as the end of a message; empty when
/// none does.
std::string AskedByPreset(const GenerateOptions& options, const OptionRow& row);

/// Says which preset was chosen, if there is one.
void SayPreset(const GenerateOptions& options, const Console& console);

} // namespace Tarnex::Cli

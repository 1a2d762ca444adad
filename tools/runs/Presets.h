// SPDX-License-Identifier: MIT
// Options that belong together under one name.
#pragma once

#include "tools/runs/RunLine.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnex::Report {

/// A kind of dungeon. All text is UTF-8.
struct Preset {
    std::string name;
    std::string description; ///< one line
    /// What it sets, by the name of each option, "config" among them, and the text that sets it.
    std::vector<std::pair<std::string, std::string>> options;
};

/// Those that are part of the library, in the order in which they are listed.
const std::vector<Preset>& BuiltinPresetList();

/// Reads presets from JSON, a list of objects with "name", "description" and "options". Throws
/// UsageError, which names `file` and the line and says what would be right, for anything else, and
/// for an option that there is not or does not take the value.
std::vector<Preset> ReadPresets(std::string_view text, const std::string& file);

/// The preset of a name, whatever its case. Throws UsageError, offering the names there are.
const Preset& FindPreset(const std::vector<Preset>& presets, const std::string& name);

/// The preset that a seed draws: the seed times 2654435769, of which the lower 32 bits say how far
/// into the list it stands, so that neighbouring seeds draw different ones. The list is not empty.
const Preset& PresetOfSeed(const std::vector<Preset>& presets, std::uint32_t seed);

/// Sets what the preset says, and nothing else.
void Apply(const Preset& preset, RunRequest& request);

} // namespace Tarnex::Report

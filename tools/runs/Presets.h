// SPDX-License-Identifier: MIT
// Options that belong together under one name.
#pragma once

#include "tools/runs/RunLine.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// What a preset sets: an option by its name, or "config".
struct PresetOption {
    std::string name;
    std::string text;     ///< that sets it
    std::size_t line = 0; ///< where it stands, from 1
};

/// A kind of dungeon. All text is UTF-8.
struct Preset {
    std::string file; ///< where it stands, for messages
    std::string name;
    std::string description; ///< one line, or empty
    std::vector<PresetOption> options;
};

/// Those that are part of the library, in the order in which they are listed.
const std::vector<Preset>& BuiltinPresetList();

/// Reads presets from JSON, a list of objects with "name", "description" and "options". Throws
/// UsageError, which names `file` and the line and says what would be right, for anything else, and
/// for an option that there is not or does not take the value.
std::vector<Preset> ReadPresets(std::string_view text, const std::string& file);

/// Likewise of a file of the system. Throws UsageError when it cannot be read.
std::vector<Preset> ReadPresetFile(const std::string& path);

/// The preset of a name, whatever its case. Throws UsageError, offering the names there are.
const Preset& FindPreset(const std::vector<Preset>& presets, const std::string& name);

/// The preset that a seed draws: the seed times 2654435769, of which the lower 32 bits say how far
/// into the list it stands, so that neighbouring seeds draw different ones. The list is not empty.
const Preset& PresetOfSeed(const std::vector<Preset>& presets, std::uint32_t seed);

/// Sets what the preset says, and nothing else.
void Apply(const Preset& preset, RunRequest& request);

} // namespace Tarnex::Report

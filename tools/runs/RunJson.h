// SPDX-License-Identifier: MIT
// What a run came to, for other programs.
#pragma once

#include "tools/runs/Presets.h"
#include "tools/runs/RunLine.h"
#include "tools/text/Json.h"

#include <vaultry/run/Run.h>

#include <string>

namespace Tarnex::Report {

/// The levels of a run, in order; valid UTF-8 whatever their names hold.
Json LevelsJson(const GenReport& report);

/// What each level that was made was made from, or a fixed interior.
Json ChosenJson(const GenReport& report);

/// The options that reports tell, each under its name; null for one that is not given.
Json OptionsJson(const RunOptions& options);

/// A list of presets, each with its options.
Json PresetsJson(const std::vector<Preset>& presets);

/// Every option of a run: its kind, bounds and words, what it stands in place of, and its default.
std::string OptionListJson();

/// What a command line asks for: its configuration, and every option that is not the default as the
/// text that sets it.
std::string ToJson(const RunRequest& request);

/// A run as one JSON object. `options` are its own, as they were given.
std::string ToJson(const RunResult& run, const RunOptions& options);

} // namespace Tarnex::Report

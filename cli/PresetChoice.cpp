// SPDX-License-Identifier: MIT
#include "cli/PresetChoice.h"

#include "tools/text/UsageError.h"

#include <vaultry/run/Run.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

std::uint32_t SeedOf(const GenerateOptions& options) {
    RunOptions drawn = options;
    FixChance(drawn);
    return *drawn.seed;
}

// A name that was typed is not left to chance, whatever the preset does.
void TakeTyped(const GenerateOptions& typed, Report::RunRequest& request) {
    for (const OptionRow* row : typed.typed) {
        const OptionRow* const chance =
            row->choice != nullptr && row->yields != nullptr ? FindRunOption(row->yields) : nullptr;
        if (chance != nullptr) {
            ResetOption(request, *chance);
        }
    }
    for (const OptionRow* row : typed.typed) {
        SetOption(request, *row, TextOf(ValueOf(typed, *row)));
    }
    request.config = typed.preset.config.value_or(request.config);
    request.keepGoing = typed.keepGoing;
}

} // namespace

GenerateOptions WithPreset(const GenerateOptions& typed) {
    const PresetOptions& choice = typed.preset;
    GenerateOptions options = typed;
    if (!choice.name && !choice.random) {
        if (choice.file) {
            throw UsageError("--presets needs --preset or --random-preset to choose one of them");
        }
        return options;
    }
    const std::vector<Report::Preset> presets =
        choice.file ? Report::ReadPresetFile(*choice.file) : Report::BuiltinPresetList();
    options.seed = choice.random ? SeedOf(typed) : typed.seed;
    options.preset.chosen = choice.random ? Report::PresetOfSeed(presets, *options.seed)
                                          : Report::FindPreset(presets, *choice.name);
    Report::RunRequest request;
    Report::Apply(*options.preset.chosen, request);
    const std::optional<std::uint32_t> seed = options.seed;
    TakeTyped(typed, request);
    static_cast<Report::RunRequest&>(options) = request;
    options.seed = seed ? seed : request.seed;
    return options;
}

std::string AskedByPreset(const GenerateOptions& options, const OptionRow& row) {
    const auto& chosen = options.preset.chosen;
    if (!chosen || std::ranges::find(options.typed, &row) != options.typed.end()) {
        return {};
    }
    const auto asked = std::ranges::find(chosen->options, row.name, &Report::PresetOption::name);
    if (asked == chosen->options.end()) {
        return {};
    }
    const std::string place =
        options.preset.file ? ", \"" + chosen->file + "\", line " + std::to_string(asked->line)
                            : std::string();
    return "; the preset \"" + chosen->name + "\" asks for it" + place;
}

void SayPreset(const GenerateOptions& options, const Console& console) {
    if (const auto& chosen = options.preset.chosen) {
        console.Say("preset " + chosen->name +
                    (chosen->description.empty() ? "" : ": " + chosen->description));
    }
}

} // namespace Tarnex::Cli

// SPDX-License-Identifier: MIT
#include "cli/PresetChoice.h"

#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/Run.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace Tarnex::Cli {

namespace {

std::vector<Report::Preset> PresetsOf(const std::optional<std::string>& path) {
    if (!path) {
        return Report::BuiltinPresetList();
    }
    Report::RequireOrdinaryFile(*path);
    std::ifstream stream(PathFromUtf8(*path), std::ios::binary);
    if (!stream) {
        throw UsageError("the presets \"" + *path + "\" cannot be opened");
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return Report::ReadPresets(text, *path);
}

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
    const std::vector<Report::Preset> presets = PresetsOf(choice.file);
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

void SayPreset(const GenerateOptions& options, const Console& console) {
    if (const auto& chosen = options.preset.chosen) {
        console.Say("preset " + chosen->name + ": " + chosen->description);
    }
}

} // namespace Tarnex::Cli

// SPDX-License-Identifier: MIT
#include "embed/Generator.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex {

namespace {

// Nobody sees here what the game will make of a letter that it lacks, so none is taken.
std::string FaultOfText(std::string_view text) {
    if (text.empty()) {
        return "is not a text";
    }
    const std::vector<std::string> missing = MissingFromCodePage(text);
    return missing.empty() ? "" : "has letters that the game lacks: " + JoinWords(missing);
}

std::string Set(vaultry_generator& generator, const OptionRow& row, std::string_view value) {
    RunOptions options = generator.options;
    std::string fault = SetOption(options, row, value);
    if (fault.empty() && row.choice != nullptr) {
        const std::vector<const OptionRow*> unknown = SpellNames(options, generator.manager);
        const bool known = std::ranges::find(unknown, &row) == unknown.end();
        fault = known ? "" : "is not a name of the configuration";
    } else if (fault.empty() && KindOf(row) == OptionKind::Text) {
        fault = FaultOfText(value);
    }
    if (fault.empty()) {
        generator.options = std::move(options);
    }
    return fault;
}

} // namespace

void ForgetNames(vaultry_generator& generator) {
    for (const OptionRow& row : RunOptionRows()) {
        if (row.choice != nullptr) {
            ResetOption(generator.options, row);
        }
    }
}

std::string
SetOption(vaultry_generator& generator, std::string_view option, std::string_view value) {
    const OptionRow* const row = FindRunOption(option);
    if (row == nullptr) {
        return "there is no option \"" + std::string(option) + "\"";
    }
    const std::string fault = Set(generator, *row, value);
    return fault.empty() ? fault
                         : std::string(option) + ": \"" + std::string(value) + "\" " + fault;
}

} // namespace Tarnex

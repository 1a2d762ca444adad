// SPDX-License-Identifier: MIT
#include "cli/GenerateWords.h"

#include <vaultry/foundation/HarmlessText.h>

namespace Tarnex::Cli {

namespace {

void Add(std::string& line, const std::string& option, const std::string& text) {
    // Behind a blank, what begins with a hyphen would be taken for an option.
    line += " --" + option + (text.starts_with('-') ? "=" : " ") + ForShell(text);
}

struct AddValue {
    void operator()(std::monostate /*missing*/) const {}
    void operator()(bool given) const { line += given ? " --" + option : ""; }
    void operator()(std::int64_t number) const {
        line += " --" + option + ' ' + std::to_string(number);
    }
    void operator()(const std::string& text) const { Add(line, option, text); }

    std::string& line;
    std::string option;
};

// Appends the options for that use which are not as they are by default.
void AddOptions(std::string& line, const RunOptions& options, OptionUse use) {
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & use) != 0 && !IsDefault(options, row)) {
            std::visit(AddValue{line, row.name}, ValueOf(options, row));
        }
    }
}

} // namespace

std::string LevelWords(const RunOptions& options) {
    std::string words;
    AddOptions(words, options, kShapesLevels);
    return words.empty() ? words : words.substr(1);
}

std::string GenerateCommandLine(const GenerateOptions& options, std::uint32_t seed) {
    static const GenerateOptions usual;
    std::string line = "vaultry generate --seed " + std::to_string(seed);
    if (options.config != usual.config) {
        Add(line, "config", options.config);
    }
    line += options.keepGoing ? " --keep-going" : "";
    AddOptions(line, options, kRepeats);
    return line;
}

} // namespace Tarnex::Cli

// SPDX-License-Identifier: MIT
#include "cli/GenerateWords.h"

#include <vaultry/foundation/HarmlessText.h>

namespace Tarnex::Cli {

namespace {

// Appends what differs from the default.
class Words {
public:
    explicit Words(std::string start = {}) : text(std::move(start)) {}

    const std::string& Text() const { return text; }

    void Add(const std::string& word) {
        if (!word.empty()) {
            text += (text.empty() ? "" : " ") + word;
        }
    }

    void Flag(const char* option, bool given) {
        if (given) {
            Add(option);
        }
    }

    void Name(const std::string& option, const std::optional<std::string>& name) {
        if (name) {
            // Behind a blank, what begins with a hyphen would be taken for an option.
            Add(option + (name->starts_with('-') ? "=" : " ") + ForShell(*name));
        }
    }

    void Name(const char* option, const std::string& name, const std::string& byDefault) {
        if (name != byDefault) {
            Name(option, name);
        }
    }

    template <typename Number>
    void Count(const char* option, const std::optional<Number>& number) {
        if (number) {
            Add(option);
            Add(std::to_string(*number));
        }
    }

    template <typename Number>
    void Count(const char* option, Number number, Number byDefault) {
        if (number != byDefault) {
            Count(option, std::optional(number));
        }
    }

private:
    std::string text;
};

void AddRandom(Words& words, const RandomGenInfo& random) {
    const RandomGenInfo usual;
    const auto size = static_cast<std::size_t>(random.levelSize);
    const auto spacing = static_cast<std::size_t>(random.roomSpacing);
    words.Count("--levels", random.numLevels, usual.numLevels);
    words.Count("--min-level", random.minLevel, usual.minLevel);
    words.Count("--max-level", random.maxLevel, usual.maxLevel);
    if (random.levelSize != usual.levelSize) {
        words.Name("--size", RandomGenInfo::GetLevelSizeStrings().at(size));
    }
    if (random.roomSpacing != usual.roomSpacing) {
        words.Name("--spacing", RandomGenInfo::GetRoomSpacingStrings().at(spacing));
    }
    words.Flag("--random-tileset", random.randomTileSet);
    words.Flag("--random-theme", random.randomTheme);
    words.Flag("--random-creature-theme", random.randomCreatureTheme);
    words.Flag("--random-treasure-theme", random.randomTreasureTheme);
}

} // namespace

std::string LevelWords(const GenerateOptions& options) {
    Words words;
    words.Flag("--fixed", options.fixed);
    words.Name("--tileset", options.tileSet);
    words.Name("--cave-tileset", options.caveTileSet);
    words.Name("--template", options.layout);
    words.Name("--cave-template", options.caveLayout);
    words.Name("--theme", options.theme);
    words.Name("--creature-theme", options.creatureTheme);
    words.Name("--treasure-theme", options.treasureTheme);
    AddRandom(words, options.random);
    words.Flag("--platforms", options.platforms);
    return words.Text();
}

std::string GenerateCommandLine(const GenerateOptions& options, std::uint32_t seed) {
    const GenerateOptions usual;
    Words words("vaultry generate --seed " + std::to_string(seed));
    words.Name("--config", options.config, usual.config);
    words.Flag("--keep-going", options.keepGoing);
    words.Name("--cell", options.cell, usual.cell);
    words.Add(LevelWords(options));
    words.Name("--master", options.master);
    words.Count("--master-size", options.masterSize);
    words.Count("--stamp", options.stamp);
    return words.Text();
}

} // namespace Tarnex::Cli

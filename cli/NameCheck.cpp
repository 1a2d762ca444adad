// SPDX-License-Identifier: MIT
#include "cli/NameCheck.h"

#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <vaultry/foundation/Text.h>
#include <vaultry/run/GameIds.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kLongestName = 63;

// The ends of the files that the game and OpenMW list.
constexpr std::array<std::string_view, 3> kListed = {".esp", ".esm", ".omwaddon"};

// Of the last of several levels, whose name is the longest.
std::string LastCellName(const GenerateOptions& options, const std::string& name) {
    const bool numbered = !options.fixed && options.numLevels > 1;
    return numbered ? name + ", Level " + std::to_string(options.numLevels) : name;
}

// In the line that one pastes the name stands between quotation marks.
bool IsLostInConsole(char c) {
    constexpr char kDelete = '\x7F';
    return (static_cast<unsigned char>(c) < ' ') || c == '"' || c == kDelete;
}

bool RoomsLackPlatforms(const GenerateOptions& options) {
    return options.platforms && options.fixed && !options.caveTileSet;
}

} // namespace

std::vector<std::string> NameWarnings(const GenerateOptions& options) {
    std::vector<std::string> warnings;
    bool lost = false;
    const std::string name = FromUtf8(options.cell.value_or(""), &lost);
    if (lost) {
        warnings.push_back("the name of the cell has letters that the game lacks; it becomes \"" +
                           Tarnex::ToUtf8(name) + '"');
    }
    if (std::ranges::any_of(name, IsLostInConsole)) {
        warnings.emplace_back("the game's console takes no name with quotation marks or control "
                              "characters: the lines that take one into the cell do not work");
    }
    const std::size_t number = LastCellName(options, name).size() - name.size();
    const std::size_t length = name.size() + number;
    if (length > kLongestName) {
        warnings.push_back("the name of the cell has " + std::to_string(length) +
                           " bytes in Windows-1252, of which the game reads " +
                           std::to_string(kLongestName) +
                           (number > 0 ? ", so that levels become one cell; " : "; ") +
                           std::to_string(kLongestName - number) + " are left for --cell");
    }
    FromUtf8(options.master.value_or(""), &lost);
    if (lost) {
        warnings.emplace_back("the name of the master file has letters that the game lacks");
    }
    return warnings;
}

std::vector<std::string> IdleWarnings(const GenerateOptions& options) {
    std::vector<std::string> warnings;
    const auto add = [&warnings](const std::string& option, const std::string& why) {
        if (!why.empty()) {
            warnings.push_back("--" + option + " has no effect " + why);
        }
    };
    for (const OptionRow* row : options.typed) {
        add(row->name, WhyIdle(options, *row));
    }
    const MapFileOptions& maps = options.maps;
    const bool png = maps.map && Report::PictureFormatOf(*maps.map) == Report::MapFormat::Png;
    const bool scaled = maps.scale != MapFileOptions().scale;
    // Where a configuration begins with caves the set has its name by now.
    add("platforms", RoomsLackPlatforms(options) ? "without a --cave-tileset" : "");
    add("look",
        maps.look != MapFileOptions().look && !maps.AreWanted() ? "without --map or --html" : "");
    add("scale", scaled && !png ? "without a --map that ends in .png" : "");
    add("keep-going", options.keepGoing && options.strict ? "beside --strict" : "");
    return warnings;
}

std::vector<std::string> IdWarnings(const RunOptions& options) try {
    const GameIds ids = options.ids ? LoadIds(options.ids->path) : BuiltinIds();
    if (options.trap == 0 || !ids.Of(IdRole::Trap).empty()) {
        return {};
    }
    return {"--trap has no effect: no spell is known to be in every game; name those of yours in a "
            "file for --ids, a line \"trap,ID,SOURCE\" each below \"role,id,source\""};
} catch (const IdsError& e) {
    throw UsageError(e.what());
}

std::vector<std::string> CellNameWarnings(const std::string& path, const std::string& cell) {
    if (path.find(cell) != std::string::npos) {
        return {};
    }
    return {"the cell is called \"" + cell +
            "\": the file's name is too long for a cell, or has letters that cells cannot have; "
            "--cell gives it another name"};
}

std::vector<std::string> FileNameWarnings(const std::string& path) {
    const bool listed = std::ranges::any_of(kListed, [&path](std::string_view end) {
        return path.size() > end.size() &&
               EqualsNoCase(std::string_view(path).substr(path.size() - end.size()), end);
    });
    std::error_code unknown;
    const auto status = std::filesystem::status(PathFromUtf8(path), unknown);
    const bool special = exists(status) && !is_regular_file(status);
    if (listed || special) {
        return {};
    }
    return {'"' + path + "\" ends in none of " + JoinWords({kListed.begin(), kListed.end()}) +
            ", so that the game does not list it"};
}

std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames) {
    std::vector<std::string> names;
    names.reserve(codePageNames.size());
    for (const std::string& name : codePageNames) {
        names.push_back(Tarnex::ToUtf8(name));
    }
    return names;
}

} // namespace Tarnex::Cli

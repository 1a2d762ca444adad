// SPDX-License-Identifier: MIT
#include <vaultry/embed/GeneratorOptions.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>

namespace Tarnex {

namespace {

// Takes a value and returns what is wrong with it; nothing when it was right.
using Setter = std::function<std::string(std::string_view value)>;

template <typename Number>
Setter SetNumber(std::optional<Number>& target, Number least, Number most) {
    return [&target, least, most](std::string_view value) -> std::string {
        Number number{};
        const char* end = value.data() + value.size();
        const auto [rest, fault] = std::from_chars(value.data(), end, number);
        if (fault != std::errc() || rest != end || number < least || number > most) {
            return "is not a whole number from " + std::to_string(least) + " to " +
                   std::to_string(most);
        }
        target = number;
        return {};
    };
}

Setter SetNumber(std::uint32_t& target, std::uint32_t least, std::uint32_t most = UINT32_MAX) {
    return [&target, least, most](std::string_view value) {
        std::optional<std::uint32_t> number;
        std::string fault = SetNumber(number, least, most)(value);
        target = number.value_or(target);
        return fault;
    };
}

Setter SetSwitch(bool& target) {
    return [&target](std::string_view value) -> std::string {
        if (value != "true" && value != "false") {
            return "is not \"true\" or \"false\"";
        }
        target = value == "true";
        return {};
    };
}

template <typename Enum>
Setter SetWord(Enum& target, const std::vector<std::string>& words) {
    return [&target, &words](std::string_view value) -> std::string {
        const auto word = std::ranges::find_if(
            words, [value](const std::string& known) { return EqualsNoCase(known, value); });
        if (word == words.end()) {
            return "is not one of " + JoinWords(words);
        }
        target = static_cast<Enum>(word - words.begin());
        return {};
    };
}

template <typename Text>
Setter SetText(Text& target) {
    return [&target](std::string_view value) -> std::string {
        if (value.empty()) {
            return "is not a text";
        }
        const std::vector<std::string> missing = MissingFromCodePage(value);
        if (!missing.empty()) {
            return "has letters that the game lacks: " + JoinWords(missing);
        }
        target = std::string(value);
        return {};
    };
}

// Each name is looked for before it is set, since the library ignores some unknown names.
template <typename T, typename Set>
Setter SetName(const std::vector<DiPtr<T>>& list, const Set& set) {
    return [&list, set](std::string_view value) -> std::string {
        bool lost = false;
        const std::string name = FromUtf8(value, &lost);
        const bool known = std::ranges::any_of(
            list, [&name](const DiPtr<T>& object) { return object->GetName() == name; });
        if (lost || !known) {
            return "is not a name of the configuration";
        }
        set(name.c_str());
        return {};
    };
}

struct Option {
    const char* name; // of the command line's switch
    Setter (*setter)(vaultry_generator& generator);
};

using G = vaultry_generator;

const std::array<Option, 23> kOptions = {{
    {"cell", [](G& g) { return SetText(g.cell); }},
    {"fixed", [](G& g) { return SetSwitch(g.fixed); }},
    {"tileset",
     [](G& g) {
         return SetName(g.manager.GetRoomTileSets(),
                        [&g](auto name) { g.manager.SetDefaultTileSet(name, false); });
     }},
    {"cave-tileset",
     [](G& g) {
         return SetName(g.manager.GetCaveTileSets(),
                        [&g](auto name) { g.manager.SetDefaultTileSet(name, true); });
     }},
    {"template",
     [](G& g) {
         return SetName(g.manager.GetRoomLayouts(),
                        [&g](auto name) { g.manager.SetDefaultTemplate(name, false); });
     }},
    {"cave-template",
     [](G& g) {
         return SetName(g.manager.GetCaveLayouts(),
                        [&g](auto name) { g.manager.SetDefaultTemplate(name, true); });
     }},
    {"theme",
     [](G& g) {
         return SetName(g.manager.GetThemes(),
                        [&g](auto name) { g.manager.SetDefaultTheme(name); });
     }},
    {"creature-theme",
     [](G& g) {
         return SetName(g.manager.GetCreatureThemes(),
                        [&g](auto name) { g.manager.SetDefaultCreatureTheme(name); });
     }},
    {"treasure-theme",
     [](G& g) {
         return SetName(g.manager.GetTreasureThemes(),
                        [&g](auto name) { g.manager.SetDefaultTreasureTheme(name); });
     }},
    {"levels", [](G& g) { return SetNumber(g.manager.randomInfo.numLevels, 1, kMaxLevels); }},
    {"min-level", [](G& g) { return SetNumber(g.manager.randomInfo.minLevel, 0); }},
    {"max-level", [](G& g) { return SetNumber(g.manager.randomInfo.maxLevel, 0); }},
    {"size",
     [](G& g) {
         return SetWord(g.manager.randomInfo.levelSize, RandomGenInfo::GetLevelSizeStrings());
     }},
    {"spacing",
     [](G& g) {
         return SetWord(g.manager.randomInfo.roomSpacing, RandomGenInfo::GetRoomSpacingStrings());
     }},
    {"random-tileset", [](G& g) { return SetSwitch(g.manager.randomInfo.randomTileSet); }},
    {"random-theme", [](G& g) { return SetSwitch(g.manager.randomInfo.randomTheme); }},
    {"random-creature-theme",
     [](G& g) { return SetSwitch(g.manager.randomInfo.randomCreatureTheme); }},
    {"random-treasure-theme",
     [](G& g) { return SetSwitch(g.manager.randomInfo.randomTreasureTheme); }},
    {"platforms", [](G& g) { return SetSwitch(g.manager.addPlatforms); }},
    {"master", [](G& g) { return SetText(g.master); }},
    {"master-size", [](G& g) { return SetNumber(g.masterSize, 0); }},
    {"seed", [](G& g) { return SetNumber(g.seed, 0U, UINT32_MAX); }},
    {"stamp", [](G& g) { return SetNumber(g.stamp, std::int64_t{0}, kMaxStamp); }},
}};

} // namespace

const char* OptionName(std::size_t index) {
    return index < kOptions.size() ? kOptions[index].name : nullptr;
}

std::string
SetOption(vaultry_generator& generator, std::string_view option, std::string_view value) {
    const auto row = std::ranges::find(kOptions, option, &Option::name);
    if (row == kOptions.end()) {
        return "there is no option \"" + std::string(option) + "\"";
    }
    const std::string fault = row->setter(generator)(value);
    if (fault.empty()) {
        return {};
    }
    return std::string(option) + ": \"" + std::string(value) + "\" " + fault;
}

} // namespace Tarnex

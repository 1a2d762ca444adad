// SPDX-License-Identifier: MIT
#include <vaultry/run/RunOptions.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/output/RefLock.h>

#include <algorithm>
#include <charconv>
#include <type_traits>

namespace Tarnex {

namespace {

using Options = RunOptions;

template <auto List>
std::vector<std::string> NamesIn(GenMgr& manager) {
    std::vector<std::string> names;
    for (const auto& object : (manager.*List)()) {
        names.push_back(object->GetName());
    }
    return names;
}

// `IsCave` is given where one setter serves two lists, of rooms and of caves.
template <auto Set, bool... IsCave>
void Choose(GenMgr& manager, const char* name) {
    (manager.*Set)(name, IsCave...);
}

using M = GenMgr;

// clang-format off
constexpr NamedChoice kRoomSet    {"room tile set",  NamesIn<&M::GetRoomTileSets>,   Choose<&M::SetDefaultTileSet, false>};
constexpr NamedChoice kCaveSet    {"cave tile set",  NamesIn<&M::GetCaveTileSets>,   Choose<&M::SetDefaultTileSet, true>};
constexpr NamedChoice kRoomLayout {"room layout",    NamesIn<&M::GetRoomLayouts>,    Choose<&M::SetDefaultTemplate, false>};
constexpr NamedChoice kCaveLayout {"cave layout",    NamesIn<&M::GetCaveLayouts>,    Choose<&M::SetDefaultTemplate, true>};
constexpr NamedChoice kTheme      {"theme",          NamesIn<&M::GetThemes>,         Choose<&M::SetDefaultTheme>};
constexpr NamedChoice kCreatures  {"creature theme", NamesIn<&M::GetCreatureThemes>, Choose<&M::SetDefaultCreatureTheme>};
constexpr NamedChoice kTreasure   {"treasure theme", NamesIn<&M::GetTreasureThemes>, Choose<&M::SetDefaultTreasureTheme>};

constexpr unsigned kEverywhere = kForMaps | kForSearch | kRepeats | kReported;
constexpr unsigned kShape = kEverywhere | kShapesLevels;
constexpr unsigned kHeader = kForSearch | kRepeats | kReported;

OptionRow Named(const char* name, OptionField field, const char* help, const NamedChoice& choice, const char* rival = nullptr) {
    OptionRow row{name, field, help, OptionGroup::Dungeon, kShape};
    row.choice = &choice;
    row.rival = rival;
    return row;
}

OptionRow Bounded(OptionRow row, std::int64_t least, std::int64_t most) {
    row.least = least;
    row.most = most;
    return row;
}

OptionRow Needs(const char* other, OptionRow row) {
    row.needs = other;
    return row;
}

OptionRow Yields(const char* other, OptionRow row) {
    row.yields = other;
    return row;
}

std::vector<OptionRow>& Table() {
    static std::vector<OptionRow> rows = {
        {"cell",                  &Options::cell, "The cell (default: as the file, or dungeon)", OptionGroup::Dungeon, kEverywhere | kNamed, "n"},
        {"fixed",                 &Options::fixed, "One cell from a layout instead of random levels", OptionGroup::Dungeon, kShape},
        Yields("random-tileset", Named("tileset", &Options::tileSet, "The room tile set (default: first)", kRoomSet, "cave-tileset")),
        Yields("random-tileset", Named("cave-tileset", &Options::caveTileSet, "A cave tile set instead", kCaveSet, "tileset")),
        Needs("fixed", Named("template", &Options::layout, "The layout of --fixed (default: first)", kRoomLayout, "cave-template")),
        Needs("fixed", Named("cave-template", &Options::caveLayout, "A cave layout instead", kCaveLayout, "template")),
        Yields("random-theme", Named("theme", &Options::theme, "The furniture (default: first)", kTheme)),
        Yields("random-creature-theme", Named("creature-theme", &Options::creatureTheme, "The creatures (default: none)", kCreatures)),
        Yields("random-treasure-theme", Named("treasure-theme", &Options::treasureTheme, "The treasure (default: first)", kTreasure)),
        Yields("fixed", Bounded({"levels", &Options::numLevels, "Levels, each a cell (default: 1)", OptionGroup::Shape, kShape}, 1, kMaxLevels)),
        Needs("random-creature-theme", {"min-level", &Options::minLevel, "Lowest level of a random creature theme (default: 1)", OptionGroup::Chance, kShape}),
        Needs("random-creature-theme", {"max-level", &Options::maxLevel, "Highest level of a random creature theme (default: 5)", OptionGroup::Chance, kShape}),
        Yields("fixed", {"size", &Options::levelSize, "Level size (default: Medium)", OptionGroup::Shape, kShape | kNamed}),
        Yields("fixed", {"spacing", &Options::roomSpacing, "Room spacing (default: Random)", OptionGroup::Shape, kShape}),
        Yields("fixed", {"random-tileset", &Options::randomTileSet, "Choose the tile set by chance", OptionGroup::Chance, kShape}),
        Yields("fixed", {"random-theme", &Options::randomTheme, "Choose the furniture by chance", OptionGroup::Chance, kShape}),
        Yields("fixed", {"random-creature-theme", &Options::randomCreatureTheme, "Choose the creatures by chance", OptionGroup::Chance, kShape}),
        Yields("fixed", {"random-treasure-theme", &Options::randomTreasureTheme, "Choose the treasure by chance", OptionGroup::Chance, kShape}),
        // The seed that was found makes a walkable dungeon by itself.
        {"ensure-walkable",       &Options::ensureWalkable, "Try further seeds until every room can be reached", OptionGroup::Shape, kForMaps | kReported},
        {"ensure-closed",         &Options::ensureClosed, "Try further seeds until nothing opens onto nothing", OptionGroup::Shape, kForMaps | kReported},
        Needs("fixed", {"platforms", &Options::platforms, "Raise platforms in fixed cave interiors", OptionGroup::Dungeon, kShape}),
        // Stands apart in lines and reports: a run always has one.
        {"seed",                  &Options::seed, "Repeats a run (default: by chance)", OptionGroup::Repeat, kForMaps},
        {"content-seed",          &Options::contentSeed, "Other contents in the plan of the seed (default: the seed's)", OptionGroup::Repeat, kShape},
        {"master",                &Options::master, "The master file (default: the game's)", OptionGroup::Plugin, kHeader},
        {"master-size",           &Options::masterSize, "The master file's size in bytes", OptionGroup::Plugin, kHeader},
        Bounded({"stamp",         &Options::stamp, "The number in container identifiers (default: by chance)", OptionGroup::Repeat, kForSearch | kRepeats}, 0, kMaxStamp),
        {"describe",              &Options::describe, "Keep the line that makes it with the plug-in", OptionGroup::Plugin, kRepeats | kReported},
        {"strict",                &Options::strict, "Write nothing if there was an error", OptionGroup::Plugin, kReported},
        {"playable",              &Options::playable, "All of these that need no answer", OptionGroup::Playable, kShape},
        Yields("playable", {"path-grid", &Options::pathGrid, "Ways by which creatures wander and follow", OptionGroup::Playable, kHeader}),
        Yields("playable", {"unique-references", &Options::uniqueReferences, "No number of a reference twice in the plug-in", OptionGroup::Playable, kHeader}),
        Yields("fixed", {"close-openings", &Options::closeOpenings, "Close what opens onto nothing", OptionGroup::Playable, kShape}),
        Yields("fixed", Bounded({"tidy-halls", &Options::tidyHalls, "Leave no way round in halls of that many pieces or fewer", OptionGroup::Playable, kShape}, 0, 1000)),
        {"entrance",              &Options::entrance, "A door in the world that leads in, and one that leads back (default: none)", OptionGroup::Playable, kHeader},
        Needs("entrance", {"entrance-cell", &Options::entranceCell, "The interior of the game that has the entrance (default: the world)", OptionGroup::Playable, kHeader}),
        Needs("entrance", Yields("entrance-cell", {"entrance-region", &Options::entranceRegion, "The region of the entrance, instead of the game's files", OptionGroup::Playable, kHeader})),
        Needs("entrance", {"game", &Options::game, "The game's files for the entrance (default: as in openmw.cfg)", OptionGroup::Playable, kHeader}),
        Bounded({"lock",          &Options::lock, "Percent of doors and containers with a lock (default: 0)", OptionGroup::Playable, kEverywhere}, 0, 100),
        Needs("lock", Bounded({"lock-levels", &Options::lockLevels, "How hard locks are, 1 to 100 (default: 10..50)", OptionGroup::Playable, kEverywhere}, kLeastLock, kMostLock)),
        Bounded({"trap",          &Options::trap, "Percent of doors and containers with a trap (default: 0)", OptionGroup::Playable, kEverywhere}, 0, 100),
        {"ids",                   &Options::ids, "Ids of your game, traps among them (default: built-in)", OptionGroup::Playable, kEverywhere},
    };
    return rows;
}
// clang-format on

const RunOptions& Usual() {
    static const RunOptions usual;
    return usual;
}

template <typename T>
struct Plain {
    using Type = T;
};
template <typename T>
struct Plain<std::optional<T>> {
    using Type = T;
};
// What an option that may be missing holds.
template <typename Field>
using Held = typename Plain<std::remove_cvref_t<Field>>::Type;

const std::vector<std::string>& WordsFor(RandomGenInfo::LevelSizeT /*kind*/) {
    return RandomGenInfo::GetLevelSizeStrings();
}

const std::vector<std::string>& WordsFor(RandomGenInfo::RoomSpacingT /*kind*/) {
    return RandomGenInfo::GetRoomSpacingStrings();
}

std::string Read(std::string_view text, const OptionRow& /*row*/, bool& value) {
    if (text != "true" && text != "false") {
        return "is not \"true\" or \"false\"";
    }
    value = text == "true";
    return {};
}

std::string Read(std::string_view text, const OptionRow& /*row*/, std::string& value) {
    value = text;
    return {};
}

std::string Read(std::string_view text, const OptionRow& /*row*/, EntrancePlace& value) {
    return ReadPlace(text, value);
}

std::string Read(std::string_view text, const OptionRow& /*row*/, InputFolder& value) {
    value.path = text;
    return text.empty() ? "is no folder" : "";
}

std::string Read(std::string_view text, const OptionRow& /*row*/, InputFile& value) {
    if (text.empty()) {
        return "is no path";
    }
    value.path = text;
    return {};
}

// To the last letter, without signs.
bool IsNumber(std::string_view text, std::int64_t& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && rest == end && !text.starts_with('-');
}

std::string Read(std::string_view text, const OptionRow& row, LockLevels& value) {
    constexpr std::string_view kBetween = "..";
    const std::size_t middle = std::min(text.find(kBetween), text.size());
    std::int64_t least = 0;
    std::int64_t most = 0;
    const bool spelt = IsNumber(text.substr(0, middle), least) && middle < text.size() &&
                       IsNumber(text.substr(middle + kBetween.size()), most);
    if (!spelt || least < row.least || most > row.most || least > most) {
        return "is not A..B, two whole numbers from " + std::to_string(row.least) + " to " +
               std::to_string(row.most) + " of which the second is not the smaller";
    }
    value = {static_cast<std::uint32_t>(least), static_cast<std::uint32_t>(most)};
    return {};
}

template <typename Number>
requires std::is_integral_v<Number> std::string
Read(std::string_view text, const OptionRow& row, Number& value) {
    std::int64_t number = 0;
    if (!IsNumber(text, number) || number < row.least || number > row.most) {
        return "is not a whole number from " + std::to_string(row.least) + " to " +
               std::to_string(row.most);
    }
    value = static_cast<Number>(number);
    return {};
}

template <typename Word>
requires std::is_enum_v<Word> std::string
Read(std::string_view text, const OptionRow& /*row*/, Word& value) {
    const std::vector<std::string>& words = WordsFor(value);
    const auto word = std::ranges::find_if(
        words, [text](const std::string& known) { return EqualsNoCase(known, text); });
    if (word == words.end()) {
        return "is none of " + JoinWords(words);
    }
    value = static_cast<Word>(word - words.begin());
    return {};
}

template <typename T>
OptionValue Shown(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return WordsFor(value).at(static_cast<std::size_t>(value));
    } else if constexpr (std::is_same_v<T, EntrancePlace>) {
        return TextOf(value);
    } else if constexpr (std::is_same_v<T, InputFolder> || std::is_same_v<T, InputFile>) {
        return value.path;
    } else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::string>) {
        return value;
    } else if constexpr (std::is_same_v<T, LockLevels>) {
        return std::to_string(value.least) + ".." + std::to_string(value.most);
    } else {
        return static_cast<std::int64_t>(value);
    }
}

template <typename T>
OptionValue Shown(const std::optional<T>& value) {
    return value ? Shown(*value) : OptionValue();
}

// Two names may differ in the case alone: the same letters go before.
std::optional<std::string> Spelling(const std::vector<std::string>& names, std::string_view text) {
    bool lost = false;
    const std::string name = FromUtf8(text, &lost);
    auto known = std::ranges::find(names, name);
    if (known == names.end()) {
        known = std::ranges::find_if(
            names, [&name](const std::string& other) { return EqualsNoCase(other, name); });
    }
    return lost || known == names.end() ? std::nullopt : std::optional(ToUtf8(*known));
}

// What a cell's name holds besides ", Level 1000".
constexpr std::size_t kLongestCell = 51;

bool IsUnfit(char letter) {
    return letter == '?' || letter == '"' || static_cast<unsigned char>(letter) < ' ' ||
           letter == '\x7F';
}

} // namespace

std::span<const OptionRow> RunOptionRows() {
    return Table();
}

const OptionRow* FindRunOption(std::string_view name) {
    const auto row = std::ranges::find(
        Table(), name, [](const OptionRow& r) { return std::string_view(r.name); });
    return row == Table().end() ? nullptr : &*row;
}

AddedOption::AddedOption(const OptionRow& row) {
    Table().push_back(row);
}

AddedOption::~AddedOption() {
    Table().pop_back();
}

OptionKind KindOf(const OptionRow& row) {
    return std::visit(
        [](auto field) {
            using Value = Held<decltype(Usual().*field)>;
            return std::is_same_v<Value, bool>            ? OptionKind::Switch
                   : std::is_same_v<Value, std::string>   ? OptionKind::Text
                   : std::is_same_v<Value, EntrancePlace> ? OptionKind::Place
                   : std::is_same_v<Value, InputFolder>   ? OptionKind::Folder
                   : std::is_enum_v<Value>                ? OptionKind::Word
                   : std::is_same_v<Value, LockLevels>    ? OptionKind::Range
                   : std::is_same_v<Value, InputFile>     ? OptionKind::File
                                                          : OptionKind::Number;
        },
        row.field);
}

std::vector<std::string> WordsOf(const OptionRow& row) {
    return std::visit(
        [](auto field) -> std::vector<std::string> {
            using Value = Held<decltype(Usual().*field)>;
            if constexpr (std::is_enum_v<Value>) {
                return WordsFor(Value());
            } else {
                return {};
            }
        },
        row.field);
}

std::string SetOption(RunOptions& options, const OptionRow& row, std::string_view text) {
    std::string fault = std::visit(
        [&](auto field) {
            Held<decltype(options.*field)> value{};
            std::string wrong = Read(text, row, value);
            if (wrong.empty()) {
                options.*field = std::move(value);
            }
            return wrong;
        },
        row.field);
    if (fault.empty() && row.rival != nullptr) {
        ResetOption(options, *FindRunOption(row.rival));
    }
    return fault;
}

void ResetOption(RunOptions& options, const OptionRow& row) {
    std::visit([&options](auto field) { options.*field = Usual().*field; }, row.field);
}

OptionValue ValueOf(const RunOptions& options, const OptionRow& row) {
    return std::visit([&options](auto field) { return Shown(options.*field); }, row.field);
}

std::string TextOf(const OptionValue& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Value = std::remove_cvref_t<decltype(held)>;
            if constexpr (std::is_same_v<Value, bool>) {
                return held ? "true" : "false";
            } else if constexpr (std::is_same_v<Value, std::int64_t>) {
                return std::to_string(held);
            } else if constexpr (std::is_same_v<Value, std::string>) {
                return held;
            } else {
                return {};
            }
        },
        value);
}

bool IsDefault(const RunOptions& options, const OptionRow& row) {
    return std::visit([&options](auto field) { return options.*field == Usual().*field; },
                      row.field);
}

std::string WhyIdle(const RunOptions& options, const OptionRow& row) {
    const auto counts = [&options](const char* other) {
        const OptionRow& found = *FindRunOption(other);
        return !IsDefault(options, found) && WhyIdle(options, found).empty();
    };
    if (row.needs != nullptr && !counts(row.needs)) {
        return std::string("without --") + row.needs;
    }
    if (row.yields != nullptr && counts(row.yields)) {
        return std::string("beside --") + row.yields;
    }
    return {};
}

std::vector<const OptionRow*> SpellNames(RunOptions& options, GenMgr& manager) {
    std::vector<const OptionRow*> unknown;
    for (const OptionRow& row : Table()) {
        const OptionValue value = ValueOf(options, row);
        if (row.choice == nullptr || !std::holds_alternative<std::string>(value)) {
            continue;
        }
        const auto known = Spelling(row.choice->names(manager), std::get<std::string>(value));
        if (known) {
            SetOption(options, row, *known);
        } else {
            unknown.push_back(&row);
        }
    }
    return unknown;
}

std::string CellNameOf(std::string_view path) {
    std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    const std::size_t dot = name.rfind('.');
    name = dot == 0 ? name : name.substr(0, dot);
    // What is lost becomes a question mark.
    std::string cell = FromUtf8(name).substr(0, kLongestCell);
    std::ranges::replace_if(cell, IsUnfit, '_');
    cell.erase(cell.find_last_not_of(' ') + 1);
    const bool empty = cell.find_first_not_of("_ ") == std::string::npos;
    return empty ? kDefaultCell : ToUtf8(cell);
}

void NameDefaults(RunOptions& options, GenMgr& manager) {
    options.cell = options.cell.value_or(kDefaultCell);
    const DiPtr<TileSet> set = manager.GetDefaultTileSet();
    const bool drawn = options.randomTileSet && !options.fixed;
    if (set && set->IsCave() && !drawn && !options.tileSet && !options.caveTileSet) {
        options.caveTileSet = ToUtf8(set->GetName());
    }
    const auto& layouts = manager.GetCaveLayouts();
    const DiPtr<LayoutTemplate> layout = manager.GetDefaultTemplate();
    const bool ofCave = std::ranges::find(layouts, layout) != layouts.end();
    if (ofCave && options.fixed && !options.layout && !options.caveLayout) {
        options.caveLayout = ToUtf8(layout->GetName());
    }
}

} // namespace Tarnex

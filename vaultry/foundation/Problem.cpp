// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Problem.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/RunState.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Tarnex {

namespace {

enum class Severity : std::uint8_t { Info, Error };

struct KindRow {
    ProblemKind kind;
    const char* word;
    Severity severity;
    const char* source;
    std::string_view text; // %s stands for the next name, %l and %c for line and column
};

using enum ProblemKind;
using enum Severity;

constexpr const char* kManager = "GenMgr";
constexpr const char* kParser = "XML Parser";
constexpr const char* kGenerator = "Generator";

// clang-format off
constexpr auto kKinds = std::to_array<KindRow>({
    {TooMany,            "too-many",              Error, "Logger",   "There are more than %s errors; no more are kept."},
    {ParserUnavailable,  "parser-unavailable",    Error, kManager,   "Error during XML parser initialization: %s"},
    {Broken,             "broken",                Error, kParser,    "Fatal Error parsing XML line %l col %c:  %s"},
    {Invalid,            "invalid",               Error, kParser,    "Error parsing XML line %l col %c:  %s"},
    {Odd,                "odd",                   Info,  kParser,    "XML Warning at line %l col %c:  %s"},
    {UnknownElement,     "unknown-element",       Error, kParser,    "Unrecognized tag in XML:  '%s'"},
    {UnusualTileSize,    "unusual-tile-size",     Error, kParser,    "Unusual tile set size (%s) for tile set '%s'."},
    {UnknownTileSetType, "unknown-tile-set-type", Error, kParser,    "Unrecognized TileSet Type '%s' in TileSet '%s'."},
    {UnknownLayoutType,  "unknown-layout-type",   Error, kParser,    "Unrecognized Layout Type '%s' in Layout '%s'."},
    {LayoutTooLarge,     "layout-too-large",      Error, kParser,    "Layout size too large (H=%s, W=%s) for Layout set '%s'.  Max = %s."},
    {LayoutsTooLarge,    "layouts-too-large",     Error, kParser,    "Layouts too large together (H=%s, W=%s) for Layout set '%s'.  Max = %s cells in all."},
    {CellOutside,        "cell-outside",          Error, kParser,    "Too many rows/cols in Layout '%s' at Row %s Col %s."},
    {TileTwice,          "tile-twice",            Error, "TileSet",  "Duplicate tile '%s' encountered in TileSet '%s.'"},
    {PieceTwice,         "piece-twice",           Error, "Platform", "Duplicate tile '%s' encountered in Platform '%s.'"},
    {UnknownContentKind, "unknown-content-kind",  Error, "Content",  "Unrecognized content type '%s'"},
    {UnknownContentList, "unknown-content-list",  Error, "Internal", "Unrecognized content type '%s'."},
    {ReadMemory,         "read-memory",           Error, kManager,   "Unable to read the configuration:  Out of memory."},
    {UnknownName,        "unknown-name",          Error, "Run",      "The configuration has no %s \"%s\"."},
    {UnusableIds,        "unusable-ids",          Error, "Run",      "Unable to generate:  %s"},
    {NoTileSet,          "no-tile-set",           Error, kManager,   "Unable to generate:  No default tile set."},
    {NoLayout,           "no-layout",             Error, kManager,   "Unable to generate:  No default layout template."},
    {TooManyLevels,      "too-many-levels",       Error, kGenerator, "The run asks for %s levels; %s are made."},
    {NoTheme,            "no-theme",              Error, kGenerator, "No matching furniture themes."},
    {NoCreatureTheme,    "no-creature-theme",     Error, kGenerator, "No creature themes with %s <= Level <= %s."},
    {NoTreasureTheme,    "no-treasure-theme",     Error, kGenerator, "No matching treasure themes."},
    {RoomTooNested,      "room-too-nested",       Error, kGenerator, "Layout '%s' has %s layouts inside; it makes no room.  Max = %s."},
    {LevelTooLarge,      "level-too-large",       Error, kGenerator, "Level too large (H=%s, W=%s).  Max = %s cells."},
    {RoomsUnconnected,   "rooms-unconnected",     Error, kGenerator, "Internal:  Giving up.  Failed to connect rooms in layout."},
    {MissingTile,        "missing-tile",          Error, kGenerator, "Tile Set '%s' does not have a Tile '%s', called for by Layout '%s'."},
    {UnknownThemeItem,   "unknown-theme-item",    Error, kGenerator, "Unrecognized theme item type '%s' in %s '%s'."},
    {UnknownUniqueName,  "unknown-unique-name",   Error, kGenerator, "Unrecognized UniqueName '%s' in ThemeItem Type='%s'."},
    {TooManyPlacements,  "too-many-placements",   Error, kGenerator, "Theme '%s' asks for %s placements of '%s'; %s were tried."},
    {TooMuchPlacing,     "too-much-placing",      Error, kGenerator, "The themes ask for more than %s steps of placing; nothing more is placed."},
    {UnknownPlatform,    "unknown-platform",      Error, kGenerator, "Internal error. Unrecognized tile type '%s' for platform."},
    {PlatformTooFine,    "platform-too-fine",     Error, kGenerator, "Platform '%s' asks for %s x %s floor pieces in a cell.  Max = %s."},
    {PlatformsTooFine,   "platforms-too-fine",    Error, kGenerator, "Platform '%s' asks for more than %s floor pieces in all; the rest of the walls stay without."},
    {RunMemory,          "run-memory",            Error, kManager,   "Generation failed:  Out of memory."},
    {RunTooLarge,        "run-too-large",         Error, kManager,   "The run asks for more than %s MiB of memory; it is given up."},
    {RunFailed,          "run-failed",            Error, kManager,   "Internal:  Generation failed: %s"},
    {NothingGenerated,   "nothing-generated",     Error, kManager,   "Unable to write the plug-in:  Nothing was generated."},
    {WriteMemory,        "write-memory",          Error, kManager,   "Unable to write the plug-in:  Out of memory."},
    {FieldTooLong,       "field-too-long",        Error, "XmlOut",   "Output string ('%s') exceeded maximum field length of %s."},
    {NoWayOut,           "no-way-out",            Error, kGenerator, "No wall of '%s' is free for a door that leads out; try another seed or tile set."},
    {NoEntrance,         "no-entrance",           Error, "Run",      "There is no place for the entrance:  %s."},
});
// clang-format on

static_assert([] {
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (static_cast<std::size_t>(kKinds[i].kind) != i) {
            return false;
        }
    }
    return true;
}());

const KindRow& RowOf(ProblemKind kind) {
    return kKinds.at(static_cast<std::size_t>(kind));
}

// The log's numbers have a sign.
std::string Number(std::uint64_t number) {
    return std::to_string(static_cast<std::int32_t>(number));
}

Problem TooManyProblems() {
    return {ProblemKind::TooMany, {std::to_string(Logger::kMaxErrors)}};
}

std::string MessageOf(const Problem& problem) {
    std::string message;
    auto name = problem.names.begin();
    const std::string_view text = RowOf(problem.kind).text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            message += text[at];
            continue;
        }
        switch (text[++at]) {
        case 'l':
            message += Number(problem.place.line);
            break;
        case 'c':
            message += Number(problem.place.column);
            break;
        default:
            message += name == problem.names.end() ? "" : (name++)->c_str();
        }
    }
    message.resize(std::min(message.size(), Logger::kMaxMessage));
    return message;
}

} // namespace

std::string TextOf(const Problem& problem) {
    return std::string(RowOf(problem.kind).source) + " : " + MessageOf(problem);
}

const char* WordOf(ProblemKind kind) {
    return RowOf(kind).word;
}

std::vector<std::string> ErrorLines(const std::vector<Problem>& problems) {
    std::vector<std::string> lines;
    for (const Problem& problem : problems) {
        if (RowOf(problem.kind).severity == Error) {
            lines.push_back("Error : " + ToUtf8(TextOf(problem)));
        }
    }
    return lines;
}

void ReportProblem(const Problem& problem) {
    const KindRow& row = RowOf(problem.kind);
    const std::size_t before = Logger::GetErrors().size();
    const std::string message = MessageOf(problem);
    const auto write = row.severity == Info ? Logger::WriteInfo : Logger::WriteError;
    write(row.source, "%s", message.c_str());
    ProblemListener* const listener = CurrentRunState().problems;
    const bool kept = row.severity == Info || Logger::GetErrors().size() > before;
    if (listener != nullptr && kept) {
        const bool replaced = row.severity == Error && before == Logger::kMaxErrors;
        listener->Hear(replaced ? TooManyProblems() : problem);
    }
}

ProblemListener::ProblemListener()
    : innermost(CurrentRunState().problems), outer(std::exchange(innermost, this)) {}

ProblemListener::~ProblemListener() {
    innermost = outer;
}

void ProblemListener::PassOn(const Problem& problem) const {
    if (outer != nullptr) {
        outer->Hear(problem);
    }
}

ProblemList::ProblemList(std::vector<Problem> known) : problems(std::move(known)) {}

void ProblemList::Hear(const Problem& problem) {
    problems.push_back(problem);
    PassOn(problem);
}

} // namespace Tarnex

// SPDX-License-Identifier: MIT
// What is wrong, as a value, and the log's text of it.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// A place in a document; 0 where it is not known.
struct DocumentPlace {
    /// Whether it is the same place.
    bool operator==(const DocumentPlace&) const = default;

    std::uint64_t line = 0;   ///< from 1
    std::uint64_t column = 0; ///< from 1 [characters]
};

/// What can be wrong, each with the names that it is told with. Word, source and text of each stand
/// in one table. A front end that shows them in words of its own goes by the kind and takes the
/// names in their order; numbers are decimal digits.
enum class ProblemKind : std::uint8_t {
    TooMany,            ///< the most that are kept: what comes behind is not told
    ParserUnavailable,  ///< the parser's words: it could not be started
    Broken,             ///< its words, or those of a limit: the document is not read any further
    Invalid,            ///< its words: it reads on
    Odd,                ///< its words: no error
    UnknownElement,     ///< the element
    UnusualTileSize,    ///< the size and the tile set
    UnknownTileSetType, ///< the type and the tile set
    UnknownLayoutType,  ///< the type and the layout
    LayoutTooLarge,     ///< height, width, layout, and the most of either
    LayoutsTooLarge,    ///< height, width, layout, and the most cells of all layouts
    CellOutside,        ///< the layout, row and column from 1
    TileTwice,          ///< the tile and the tile set
    PieceTwice,         ///< the piece and the platform
    UnknownContentKind, ///< the kind
    UnknownContentList, ///< the kind that was asked for
    ReadMemory,         ///< there was too little to read the configuration
    UnknownName,        ///< what the options name, and the name
    UnusableIds,        ///< what is wrong with the table of ids that the options name
    NoTileSet,          ///< the configuration has none that a run could begin with
    NoLayout,           ///< likewise
    TooManyLevels,      ///< the levels asked for, and the most
    NoTheme,            ///< for the furniture
    NoCreatureTheme,    ///< the lowest and the highest level asked for
    NoTreasureTheme,    ///< there is none to choose from
    RoomTooNested,      ///< the layout, the layouts inside it, and the most
    LevelTooLarge,      ///< height, width, and the most cells
    RoomsUnconnected,   ///< a level was given up
    MissingTile,        ///< the tile set, the tile and the layout
    UnknownThemeItem,   ///< the type, the kind of theme and the furniture theme
    UnknownUniqueName,  ///< the name and the type of the theme item
    TooManyPlacements,  ///< the theme, the placements, the type of the item, and the most
    TooMuchPlacing,     ///< the most steps of a run
    UnknownPlatform,    ///< the tile that a platform cannot stand on
    PlatformTooFine,    ///< the platform, columns, rows, and the most floor pieces of an element
    PlatformsTooFine,   ///< the platform, and the most floor pieces of a cell
    RunMemory,          ///< there was too little to generate
    RunTooLarge,        ///< the most memory of a run [MiB]
    RunFailed,          ///< what an exception says: a fault inside
    NothingGenerated,   ///< there is nothing to write
    WriteMemory,        ///< there was too little to write the plug-in
    FieldTooLong,       ///< the text, and how long its field is [bytes]
    NoWayOut,           ///< the cell that was to have a door out of the dungeon
    NoEntrance,         ///< why there is no place for a door into the dungeon, a sentence
};

/// Something that is wrong. All text is Windows-1252, but for the file's name. A plain value: it
/// refers to nothing and may go to other threads.
struct Problem {
    /// Whether they are the same in everything.
    bool operator==(const Problem&) const = default;

    ProblemKind kind = ProblemKind::Broken; ///< what is wrong
    std::vector<std::string> names = {};    ///< in the order that the kind tells them, numbers too
    DocumentPlace place = {};               ///< up to which the document was read
    std::string file = {};                  ///< the document's name [UTF-8]; empty outside of one
};

/// What the log says behind the kind of line: "source : message". In Windows-1252, cut after
/// Logger::kMaxMessage bytes behind the source. The texts are for people and may change their
/// wording; programs go by the kind.
VAULTRY_API std::string TextOf(const Problem& problem);

/// The word by which programs know what can be wrong. In lower case with hyphens, "tile-twice" for
/// one; it lives as long as the program.
VAULTRY_API const char* WordOf(ProblemKind kind);

/// Those of the problems that are errors, as the log has them, in UTF-8 and with
/// "Error" in front. What is no error, such as a warning of the parser, is left out.
VAULTRY_API std::vector<std::string> ErrorLines(const std::vector<Problem>& problems);

/// Logs the problem and tells it to the innermost listener. Listeners hear nothing of what the
/// log's list no longer keeps, but once that there are more (ProblemKind::TooMany).
VAULTRY_API void ReportProblem(const Problem& problem);

/// While one lives it hears the problems that are reported through the state in use when it was
/// made (RunState.h), but for those that the log does not keep. They may be nested.
///
/// That state has to outlive it, and those that are nested end in the opposite order. A Run tells
/// what it meets in its result instead: listeners around it hear nothing of it.
class VAULTRY_API ProblemListener {
public:
    ProblemListener();
    virtual ~ProblemListener();
    ProblemListener(const ProblemListener&) = delete;
    ProblemListener& operator=(const ProblemListener&) = delete;

    /// Called once for each problem, after its line was logged. On the thread that met it, in the
    /// middle of reading or generating: it should be quick, and neither throw nor report.
    virtual void Hear(const Problem& problem) = 0;

protected:
    /// Tells a problem to the listener around this one, if there is one.
    void PassOn(const Problem& problem) const;

private:
    ProblemListener*& innermost;
    ProblemListener* outer;
};

/// Collects what it hears, for a front end to show.
///
/// @code
/// const Tarnex::ProblemList problems;
/// manager.Init("vaultry.xml");
/// for (const Tarnex::Problem& problem : problems.Get()) {
///     std::cerr << problem.file << ':' << problem.place.line << ": "
///               << Tarnex::WordOf(problem.kind) << '\n';
/// }
/// @endcode
class VAULTRY_API ProblemList : public ProblemListener {
public:
    /// Begins with what is known already.
    explicit ProblemList(std::vector<Problem> known = {});

    /// That, and what was heard so far, in its order. The reference is good as long as the list,
    /// those to its elements until the next problem.
    const std::vector<Problem>& Get() const { return problems; }

    /// Keeps the problem and tells the listener around this one.
    void Hear(const Problem& problem) override;

private:
    std::vector<Problem> problems;
};

} // namespace Tarnex

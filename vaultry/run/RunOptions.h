// SPDX-License-Identifier: MIT
// Everything that decides what a run makes, and the one table of it.
#pragma once

#include <vaultry/foundation/Export.h>
#include <vaultry/gen/RandomGenInfo.h>
#include <vaultry/run/EntrancePlace.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Tarnex {

class GenMgr;

/// A folder that a run reads from.
struct InputFolder {
    std::string path; ///< UTF-8

    /// Equality of the texts.
    bool operator==(const InputFolder&) const = default;
};

/// How hard locks are to pick, from `least` to `most`. [1 to 100]
struct LockLevels {
    std::uint32_t least = 10; ///< not above `most`
    std::uint32_t most = 50;  ///< not below `least`

    /// Whether both are the same.
    bool operator==(const LockLevels&) const = default;
};

/// A file that a run reads.
struct InputFile {
    std::string path; ///< UTF-8

    /// Whether the path is spelt the same.
    bool operator==(const InputFile&) const = default;
};

/// What a run is asked for, besides the configuration. All text is UTF-8. An optional name that is
/// not given stands for the manager's default: the configuration's first, of creature themes none,
/// unless another was set. Every front end has these defaults; those of a RandomGenInfo alone are
/// the manager's.
///
/// @code
/// Tarnex::RunOptions options;
/// options.cell = "Old Crypt";
/// options.numLevels = 2;
/// options.creatureTheme = "Undead"; // a name of the configuration
/// options.seed = 7;                 // the same dungeon every time
/// const Tarnex::RunResult result = Tarnex::Run(manager, options).Generate();
/// @endcode
///
/// A name that the configuration lacks refuses the run; its case does not matter. Texts that come
/// from a user go through SetOption, which knows the bounds.
struct VAULTRY_API RunOptions : RandomGenInfo {
    /// Small seeds would make tiny levels alone of a size left to chance.
    RunOptions() { levelSize = Medium; }

    /// The cell, or what the cells of levels begin with; without one, kDefaultCell. Who writes a
    /// file names the cell after it: see CellNameOf.
    std::optional<std::string> cell;
    bool fixed = false;                       ///< one cell from a layout template
    std::optional<std::string> tileSet;       ///< of rooms
    std::optional<std::string> caveTileSet;   ///< instead of `tileSet`
    std::optional<std::string> layout;        ///< of --fixed
    std::optional<std::string> caveLayout;    ///< instead of `layout`
    std::optional<std::string> theme;         ///< the furniture
    std::optional<std::string> creatureTheme; ///< the creatures
    std::optional<std::string> treasureTheme; ///< what is in containers
    bool ensureWalkable = false;              ///< try further seeds until every room can be reached
    bool ensureClosed = false;                ///< likewise until nothing opens onto nothing
    bool platforms = false;                   ///< raised ones in fixed cave interiors
    std::optional<std::uint32_t> seed;        ///< by chance without
    std::optional<std::string> master;        ///< the master file; the game's without
    std::optional<std::uint32_t> masterSize;  ///< [bytes]
    std::optional<std::int64_t> stamp;        ///< in container identifiers; by chance without
    bool describe = false; ///< to whoever writes: the plug-in tells what line makes it again
    bool strict = false;   ///< to whoever writes: nothing if there was an error
    bool playable = false; ///< all of the following that needs no answer
    bool uniqueReferences = false;             ///< numbers of references go on from cell to cell
    bool pathGrid = false;                     ///< a path grid for every cell
    std::optional<EntrancePlace> entrance;     ///< a door in the world that leads in, and one out
    std::optional<std::string> entranceRegion; ///< of that place, instead of the game's files
    std::optional<std::string> entranceCell;   ///< an interior of the game that has the place
    std::optional<InputFolder> game;           ///< its files, instead of those of openmw.cfg
    std::uint32_t lock = 0;       ///< of a hundred doors and containers how many are locked
    LockLevels lockLevels;        ///< of those
    std::uint32_t trap = 0;       ///< of a hundred doors and containers how many have a trap
    std::optional<InputFile> ids; ///< the game's, in place of those that are built in; see LoadIds
};

/// Where an option stands. The kind of option follows from the type. An option of an optional field
/// is not given while that is empty.
using OptionField = std::variant<bool RunOptions::*,
                                 std::string RunOptions::*,
                                 std::optional<std::string> RunOptions::*,
                                 std::uint32_t RunOptions::*,
                                 std::optional<std::uint32_t> RunOptions::*,
                                 std::optional<std::int64_t> RunOptions::*,
                                 std::optional<EntrancePlace> RunOptions::*,
                                 std::optional<InputFolder> RunOptions::*,
                                 RandomGenInfo::LevelSizeT RunOptions::*,
                                 RandomGenInfo::RoomSpacingT RunOptions::*,
                                 LockLevels RunOptions::*,
                                 std::optional<InputFile> RunOptions::*>;

/// The list of a configuration that an option names an object of.
struct NamedChoice {
    const char* what; ///< is named, in words
    /// The names there are, in the order of the configuration, in Windows-1252.
    std::vector<std::string> (*names)(GenMgr& manager);
    /// Makes an object of the list the default.
    void (*choose)(GenMgr& manager, const char* name);
};

/// Where an option counts besides `generate` and the C interface, which know every one.
enum OptionUse : unsigned {
    kForMaps = 1,      ///< `map` takes it
    kForSearch = 2,    ///< `search` takes it
    kShapesLevels = 4, ///< without it a level is another: it stands in the margin of maps
    kRepeats = 8,      ///< stands in the line that makes a dungeon again
    kReported = 16,    ///< stands among the options of reports, where its value says enough
    kNamed = 32,       ///< where it counts, lines and margins name its default too
};

/// Under what help and documents list an option.
enum class OptionGroup {
    Dungeon, ///< what a dungeon is made of
    Shape,   ///< the shape of random levels
    Chance,  ///< leaving things to chance
    Repeat,  ///< repeating a run
    Plugin,  ///< the plug-in
    Playable ///< what the game needs besides, instead of its editor
};

/// One option. Texts live as long as the program.
struct OptionRow {
    const char* name;                    ///< of its switch, without the dashes
    OptionField field;                   ///< where its value stands
    const char* help;                    ///< one line, with the default
    OptionGroup group;                   ///< where it is listed
    unsigned uses = 0;                   ///< of OptionUse
    const char* letter = nullptr;        ///< the short switch, if there is one
    std::int64_t least = 0;              ///< of a number, or of the two of a range
    std::int64_t most = UINT32_MAX;      ///< likewise
    const char* rival = nullptr;         ///< the option in whose place it is given
    const NamedChoice* choice = nullptr; ///< what a name is looked up in
    const char* needs = nullptr;         ///< the switch without which it has no effect
    const char* yields = nullptr;        ///< the switch beside which it has no effect
};

/// All options, in the order of help. It changes by AddedOption only.
///
/// @code
/// for (const Tarnex::OptionRow& row : Tarnex::RunOptionRows()) {
///     std::cout << "--" << row.name << "  " << row.help << '\n';
/// }
/// @endcode
///
/// Any thread may read it.
VAULTRY_API std::span<const OptionRow> RunOptionRows();

/// The row of a name; null for none. To the letter: in lower case and without the dashes.
VAULTRY_API const OptionRow* FindRunOption(std::string_view name);

/// While one lives, the table has one row more, a second name for a field: for tests that want to
/// see who reads the table. Nothing else may use the table when it comes and goes, the last one
/// first.
class VAULTRY_API AddedOption {
public:
    /// The row stands behind all others.
    explicit AddedOption(const OptionRow& row);
    ~AddedOption();
    AddedOption(const AddedOption&) = delete;
    AddedOption& operator=(const AddedOption&) = delete;
};

/// What kind of value an option takes; a text is a name too, and a range two numbers within bounds
/// with ".." between them, "10..50" for one. It tells a front end what to show: a tick, a field, a
/// number, a choice, a place as ReadPlace takes it, a folder to choose, two numbers or a file to
/// choose.
enum class OptionKind { Switch, Text, Number, Word, Place, Folder, Range, File };

/// The kind of an option's value.
VAULTRY_API OptionKind KindOf(const OptionRow& row);

/// The words that an option takes; empty when it takes no words. A word's position is its value;
/// case does not matter where one is set.
VAULTRY_API std::vector<std::string> WordsOf(const OptionRow& row);

/// Sets an option from its text, a switch from "true" or "false", and takes back its rival. Returns
/// what is wrong with the text, the second half of a sentence; empty for nothing, otherwise the
/// options are as they were. That a name exists is not asked here: see SpellNames.
VAULTRY_API std::string SetOption(RunOptions& options, const OptionRow& row, std::string_view text);

/// Puts an option back to its default. Its rival stays as it is.
VAULTRY_API void ResetOption(RunOptions& options, const OptionRow& row);

/// A value: nothing, a switch, a number, or a text or word.
using OptionValue = std::variant<std::monostate, bool, std::int64_t, std::string>;

/// What an option is set to. Nothing stands for an optional one that is not given.
VAULTRY_API OptionValue ValueOf(const RunOptions& options, const OptionRow& row);

/// The text that sets an option to a value; empty for nothing.
VAULTRY_API std::string TextOf(const OptionValue& value);

/// True when the option is as it is without being set.
VAULTRY_API bool IsDefault(const RunOptions& options, const OptionRow& row);

/// Why an option has no effect beside the others, as the rest of a sentence: "without --fixed";
/// empty for one that has.
VAULTRY_API std::string WhyIdle(const RunOptions& options, const OptionRow& row);

/// Spells every name as the configuration does, whatever case it was given in, and returns the rows
/// whose names it lacks. In the order of the table; empty when the run can have all its names. The
/// manager is only read.
VAULTRY_API std::vector<const OptionRow*> SpellNames(RunOptions& options, GenMgr& manager);

/// The cell of a run that is not told another.
inline constexpr const char* kDefaultCell = "dungeon";

/// The name of the cell in a file (a path, UTF-8): the file's own without folder and ending, since
/// cells of one name are one to the game. Letters that the game lacks, control characters and
/// double quotes become underscores. It is cut to 51 bytes of Windows-1252, so that the number of a
/// level still fits into a cell's 63; kDefaultCell where nothing is left.
VAULTRY_API std::string CellNameOf(std::string_view path);

/// Names what would come of the defaults of the moment, so that a line made of the options means
/// the same for ever: the cell, and cave tile set and layout where a configuration begins with
/// them.
VAULTRY_API void NameDefaults(RunOptions& options, GenMgr& manager);

} // namespace Tarnex

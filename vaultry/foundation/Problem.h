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
    std::uint64_t line = 0;   ///< from 1
    std::uint64_t column = 0; ///< from 1 [characters]
};

/// What can be wrong, each with the names that it is told with. Source and text of each stand in
/// one table.
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
};

/// Something that is wrong. All text is Windows-1252, but for the file's name.
struct Problem {
    ProblemKind kind = ProblemKind::Broken; ///< what is wrong
    std::vector<std::string> names = {};    ///< in the order that the kind tells them, numbers too
    DocumentPlace place = {};               ///< up to which the document was read
    std::string file = {};                  ///< the document's name [UTF-8]; empty outside of one
};

/// What the log says behind the kind of line: "source : message".
VAULTRY_API std::string TextOf(const Problem& problem);

/// Logs the problem and tells it to the innermost listener.
VAULTRY_API void ReportProblem(const Problem& problem);

/// While one lives it hears the problems that are reported through the state in use when it was
/// made (RunState.h), but for those that the log does not keep. They may be nested.
class VAULTRY_API ProblemListener {
public:
    ProblemListener();
    virtual ~ProblemListener();
    ProblemListener(const ProblemListener&) = delete;
    ProblemListener& operator=(const ProblemListener&) = delete;

    /// Called once for each problem, after its line was logged.
    virtual void Hear(const Problem& problem) = 0;

protected:
    /// Tells a problem to the listener around this one, if there is one.
    void PassOn(const Problem& problem) const;

private:
    ProblemListener*& innermost;
    ProblemListener* outer;
};

/// Collects what it hears, for a front end to show.
class VAULTRY_API ProblemList : public ProblemListener {
public:
    /// What was heard so far, in its order.
    const std::vector<Problem>& Get() const { return problems; }

    /// Keeps the problem and tells the listener around this one.
    void Hear(const Problem& problem) override;

private:
    std::vector<Problem> problems;
};

} // namespace Tarnex

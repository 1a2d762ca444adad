// SPDX-License-Identifier: MIT
// Taking back changes to the tiles of a grid.
#pragma once

#include <vaultry/foundation/DiPos.h>
#include <vaultry/layout/Layout.h>

#include <vector>

namespace Tarnex {

/// Remembers the cells of a grid whose tiles are about to change, so that an attempt can be taken
/// back at the cost of what it changed, not of the whole grid.
///
/// Cells may share their elements with the layouts they came from, which see every change. The
/// first Rollback ends that: the grid gets elements of its own, and those layouts keep theirs as
/// the failed attempt left them.
class GridJournal {
public:
    /// The grid must outlive the journal.
    explicit GridJournal(Layout& grid);

    /// Starts an attempt: from here on Rollback takes back to this moment.
    void Begin() { entries.clear(); }
    /// Remembers a cell; to be called before it is filled or its tiles change. A place outside the
    /// grid is ignored.
    void Touch(const DiPos& pos);
    /// Undoes every change since Begin; the attempt may go on from there.
    void Rollback();

private:
    struct Entry {
        DiPos pos;
        bool wasEmpty;
        GridElmt::Tiles tiles;
    };

    void OwnElements();

    Layout& grid;
    std::vector<Entry> entries;
    bool ownsElements = false;
};

} // namespace Tarnex

// SPDX-License-Identifier: MIT
// The plug-in file being built.
#pragma once

#include <vaultry/foundation/DiPtr.h>
#include <vaultry/output/Cell.h>
#include <vaultry/output/Container.h>
#include <vaultry/output/FileHeader.h>
#include <vaultry/output/Key.h>
#include <vaultry/output/PathGrid.h>
#include <vaultry/output/WorldCell.h>

#include <vector>

namespace Tarnex {

/// A plug-in: one header, the keys of its doors, the containers made for generated contents, the
/// generated cells. Cells and containers belong to it through their handles; generators hold
/// further handles while they fill them.
///
/// A front end meets it as `mod` of its GenMgr after a run: to count what was made, to add to it,
/// or to write it elsewhere than into a file:
///
/// @code
/// std::ostringstream bytes;
/// manager.mod.Write(bytes);
/// @endcode
class VAULTRY_API Mod : public Element {
public:
    Mod() = default;

    /// See FileHeader::SetMasterFile.
    void SetMasterFile(const char* name, std::uint32_t size);

    /// See FileHeader::SetDescription.
    void SetDescription(const char* text);

    /// Whether the numbers of references go on from cell to cell; off at first, when those of every
    /// cell begin with 1.
    void SetUniqueReferences(bool unique) { uniqueReferences = unique; }

    /// Makes a cell of that name at the end of the cell list. `name` is not null; nothing keeps two
    /// cells from having the same name.
    DiPtr<Cell> CreateCell(const char* name);
    /// Makes an empty container at the end of the container list. It has to be given an identifier
    /// before it is written; see NextContainerId.
    DiPtr<Container> CreateContainer();

    /// Makes a key of that identifier at the end of the list of keys. Not null; no other key of the
    /// plug-in may have it.
    DiPtr<Key> CreateKey(const char* id);

    /// Makes an empty path grid, at the end of their list, for the cell of that name, which is not
    /// null. The cell has to be one of this plug-in: a grid for one of the game's takes the place
    /// of its own.
    DiPtr<PathGrid> CreatePathGrid(const char* cell);

    /// Makes a cell at the end of the list of those of the game that the plug-in adds to.
    DiPtr<WorldCell> CreateWorldCell(CellHead head);

    /// The cells, in the order made.
    const std::vector<DiPtr<Cell>>& GetCells() const { return cells; }
    /// The containers, in the order made.
    const std::vector<DiPtr<Container>>& GetContainers() const { return containers; }

    /// The keys, in the order made.
    const std::vector<DiPtr<Key>>& GetKeys() const { return keys; }

    /// The path grids, in the order made.
    const std::vector<DiPtr<PathGrid>>& GetPathGrids() const { return pathGrids; }

    /// The cells of the game that the plug-in adds to, in the order made.
    const std::vector<DiPtr<WorldCell>>& GetWorldCells() const { return worldCells; }

    /// Drops all keys, cells, containers and path grids; the header stays. What others hold of them
    /// lives on, outside of the plug-in.
    void ResetContent();

    /// Writes header, keys, containers, cells, those of the game and path grids, in that order, to
    /// a stream in binary mode. Can be repeated, and gives the same bytes each time. Whether they
    /// arrived is for the stream to say.
    void Write(std::ostream& stream) override;

private:
    FileHeader header;
    bool uniqueReferences = false;
    std::vector<DiPtr<Key>> keys;
    std::vector<DiPtr<Container>> containers;
    std::vector<DiPtr<Cell>> cells;
    std::vector<DiPtr<WorldCell>> worldCells;
    std::vector<DiPtr<PathGrid>> pathGrids;
};

} // namespace Tarnex

// SPDX-License-Identifier: MIT
// A fixture for reading configuration files.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>

#include <string>
#include <string_view>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

/// Reads documents from files of the test's own folder into a fresh store.
class LoaderTest : public LogTest {
protected:
    using Lines = std::vector<std::string>;
    using Names = std::vector<std::string>;

    LoaderTest();

    /// Reads a document that holds `body` in its root. Whatever an earlier one filed goes.
    void Load(std::string_view body);
    /// Reads a document given byte by byte.
    void LoadDocument(std::string_view bytes);
    /// Reads a document whose DOCTYPE declares what `subset` says.
    void LoadWithSubset(std::string_view subset, std::string_view body);

    /// The only fatal error line so far; empty and a failure when there is another number of them.
    static std::string FatalLine();

    /// The identifier of a tile of the first room tile set; "(none)" without such a tile.
    std::string TileId(const std::string& kindName) const;
    const Tile& TileOf(const std::string& kindName) const;
    const TileSet& RoomSet() const;
    LayoutTemplate& RoomLayout() const;

    ConfigMgr config;
};

/// The names in a cell as one text, each in brackets; "-" for an empty cell.
std::string CellText(const LayoutTemplate& layout, std::uint32_t row, std::uint32_t col);

/// All cells of a layout: blanks between the cells, a line for each row.
std::string GridText(const LayoutTemplate& layout);

/// `text` in UTF-16 of that byte order, with the mark in front.
std::string ToUtf16(std::string_view ascii, bool bigEndian);

} // namespace Tarnex::Test

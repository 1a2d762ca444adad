// SPDX-License-Identifier: MIT
// Layouts drawn as text.
//
// A map is one line per row, cells separated by blanks; blank lines and leading blanks do not
// count. A cell is the codes of its tiles in list order, joined by '&', then its marks.
//
//   .               no element
//   o               an element without tiles
//   wN wS wE wW     WallN WallS WallE WallW
//   NW NE SW SE     CornerNW CornerNE CornerSW CornerSE
//   c  c2           Center Center_22
//   dN dS dE dW     DoorwayN DoorwayS DoorwayE DoorwayW
//   jN jS jE jW     DoorjambN DoorjambS DoorjambE DoorjambW
//   lN lS lE lW     DoorN DoorS DoorE DoorW (the leaf alone)
//   DN DS DE DW     a doorway with its door: DoorwayN, DoorjambN, DoorN in this order, ...
//   NWw NWn         DoorwayNW_W DoorwayNW_N, a doorway in one of the two walls of a corner;
//   NEn NEe         DoorwayNE_N DoorwayNE_E
//   SEe SEs         DoorwaySE_E DoorwaySE_S
//   SWs SWw         DoorwaySW_S DoorwaySW_W
//   |  |2           HallNS HallNS_2
//   -  -2           HallEW HallEW_2
//   +               Hall4Way
//   ,- -,           HallCornerNW (opens east and south), HallCornerNE (west and south)
//   `- -'           HallCornerSW (opens east and north), HallCornerSE (west and north)
//   ^  v  >  <      HallEndN HallEndS HallEndE HallEndW: points to the closed side
//   uN uS uE uW     StairsUpN StairsUpS StairsUpE StairsUpW; uN2 ...: StairsUpN_2 ...
//   nN nS nE nW     StairsDnN StairsDnS StairsDnE StairsDnW; nN2 ...: StairsDnN_2 ...
//   ?Name           a tile of any other name
//
//   ~               mark: a shadow
//   !               mark: a teleporting door
//
// So "DN!" is a doorway in a north wall with a teleporting door, "|~" the shadow of a straight hall
// and "c&uN" a floor with stairs on it.
#pragma once

#include <vaultry/catalogue/TileSet.h>
#include <vaultry/layout/Layout.h>

#include <string>
#include <string_view>

namespace Tarnex::Test {

/// A tile set that holds every kind of the vocabulary, each tile's id being the kind's name. It is
/// named "Full".
DiPtr<TileSet> MakeFullTileSet(const char* type = "Room", int size = 256);

/// The map as ToText prints it: each column padded to its widest cell, no blanks at line ends.
/// Compare `EXPECT_EQ(ToText(*layout), Map(R"(...)"))`.
std::string Map(std::string_view text);

/// A layout as a map; children do not show.
std::string ToText(const Layout& layout);
/// One cell of a map; "." for null.
std::string ToText(const DiPtr<GridElmt>& elmt);

/// A new layout that looks like the map, with vertical extent `zSize`; all rows must be of one
/// length. Throws std::invalid_argument, naming the cell, for an uneven map, an unknown code or a
/// tile that the set lacks.
DiPtr<Layout> ToLayout(std::string_view text, const TileSet& tiles, int zSize = 1);
/// A new element for one cell of a map; null for ".".
DiPtr<GridElmt> ToElmt(std::string_view cell, const TileSet& tiles);
/// Draws the map into the layout with its north-west cell at (row, col); "." clears.
void Draw(Layout& layout, int row, int col, std::string_view text, const TileSet& tiles);

} // namespace Tarnex::Test

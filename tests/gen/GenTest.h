// SPDX-License-Identifier: MIT
// The bench on which the stages of interior generation are tested.
#pragma once

#include <vaultry/gen/GenIntBase.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/support/Draws.h>
#include <tests/support/LogTest.h>
#include <tests/support/TextGrid.h>
#include <vector>

namespace Tarnex::Test {

/// A generator that shows its stages and its state.
class OpenGen : public GenIntBase {
public:
    using GenIntBase::AddContents;
    using GenIntBase::AddCtrTreasure;
    using GenIntBase::AddPlatform;
    using GenIntBase::AddPlatforms;
    using GenIntBase::cell;
    using GenIntBase::containers;
    using GenIntBase::CvtContents;
    using GenIntBase::CvtPlatforms;
    using GenIntBase::CvtTiles;
    using GenIntBase::DetermineQty;
    using GenIntBase::ElmtList;
    using GenIntBase::GenIntBase;
    using GenIntBase::InitCell;
    using GenIntBase::LayoutToCell;
    using GenIntBase::PlaceContainers;
    using GenIntBase::PlaceCreatures;
    using GenIntBase::PlaceCtrTreasure;
    using GenIntBase::PlaceFurniture;
    using GenIntBase::PlaceItem;
    using GenIntBase::PlaceItems;
    using GenIntBase::PlaceRugs;
    using GenIntBase::PlaceTapestries;
    using GenIntBase::RemoveBySubtype;
    using GenIntBase::RemoveFullElmts;
    using GenIntBase::SelectContent;
    using GenIntBase::SelectItem;
    using GenIntBase::SortedElmts;
    using GenIntBase::SortLayout;
    using GenIntBase::TemplateToLayout;
    using GenIntBase::ThemeItemToContent;
    using GenIntBase::tileSet;
};

/// A run's context with the full tile set as default, fresh container identifiers ("Ctr7_1", ...)
/// and a known seed.
class GenTest : public LogTest {
protected:
    GenTest();

    /// Adds content to the catalogue; the fields may be changed through the reference.
    ContentTemplate& Add(const char* kind, const char* uniqueName, const char* subtype = "");
    ContentTemplate& AddTreasure(const char* subtype, const char* uniqueName);

    GenInfo info;
    DiPtr<TileSet> tiles = MakeFullTileSet();
};

/// A line of a theme with everything that placement reads.
struct ItemSpec {
    const char* type = "Furniture";
    std::vector<std::string> names = {};
    float ratio = 1.0F;
    float chance = 1.0F;
    int minimum = -1;
    int maximum = -1;
};
ThemeItem MakeItem(const ItemSpec& line);
DiPtr<Theme> MakeTheme(const char* name, const std::vector<ItemSpec>& items);

/// A template that looks like the map (see TextGrid.h; marks play no part).
DiPtr<LayoutTemplate> ToTemplate(std::string_view map, const char* name = "Plan");

/// One line per reference: "id x y z" with " r<rotation about z>" unless 0, " s<scale>" unless 1
/// and " -> <destination, written likewise>" for teleporting doors. Numbers have nine digits.
std::vector<std::string> RefLines(const Cell& cell);
/// The same without the first reference, the north marker.
std::vector<std::string> PlacedLines(const Cell& cell);

/// The unique names of the contents of an element.
std::vector<std::string> ContentNames(const GridElmt& elmt);
/// The contents of each cell of a layout, row by row: "bed", "bed,rat"; "." for none.
std::string ContentMap(const Layout& layout);

using Lines = std::vector<std::string>;
using Draws = std::vector<std::int32_t>;

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>
#include <tests/support/TextGrid.h>
#include <vector>

namespace Tarnex::Test {

namespace {

struct CodeRow {
    std::string_view code;
    std::string_view name;
};

// clang-format off
constexpr std::array<CodeRow, TileKind::kCount> kCodes = {{
    {"NW",  "CornerNW"},     {"NE",  "CornerNE"},     {"SW",  "CornerSW"},     {"SE",  "CornerSE"},
    {"wN",  "WallN"},        {"wS",  "WallS"},        {"wE",  "WallE"},        {"wW",  "WallW"},
    {"c",   "Center"},       {"c2",  "Center_22"},
    {"dN",  "DoorwayN"},     {"dS",  "DoorwayS"},     {"dE",  "DoorwayE"},     {"dW",  "DoorwayW"},
    {"jN",  "DoorjambN"},    {"jS",  "DoorjambS"},    {"jE",  "DoorjambE"},    {"jW",  "DoorjambW"},
    {"lN",  "DoorN"},        {"lS",  "DoorS"},        {"lE",  "DoorE"},        {"lW",  "DoorW"},
    {"NWw", "DoorwayNW_W"},  {"NWn", "DoorwayNW_N"},  {"NEn", "DoorwayNE_N"},  {"NEe", "DoorwayNE_E"},
    {"SEe", "DoorwaySE_E"},  {"SEs", "DoorwaySE_S"},  {"SWs", "DoorwaySW_S"},  {"SWw", "DoorwaySW_W"},
    {"|",   "HallNS"},       {"-",   "HallEW"},       {"|2",  "HallNS_2"},     {"-2",  "HallEW_2"},
    {"^",   "HallEndN"},     {"v",   "HallEndS"},     {">",   "HallEndE"},     {"<",   "HallEndW"},
    {",-",  "HallCornerNW"}, {"-,",  "HallCornerNE"}, {"`-",  "HallCornerSW"}, {"-'",  "HallCornerSE"},
    {"+",   "Hall4Way"},
    {"uN",  "StairsUpN"},    {"uS",  "StairsUpS"},    {"uE",  "StairsUpE"},    {"uW",  "StairsUpW"},
    {"nN",  "StairsDnN"},    {"nS",  "StairsDnS"},    {"nE",  "StairsDnE"},    {"nW",  "StairsDnW"},
    {"uN2", "StairsUpN_2"},  {"uS2", "StairsUpS_2"},  {"uE2", "StairsUpE_2"},  {"uW2", "StairsUpW_2"},
    {"nN2", "StairsDnN_2"},  {"nS2", "StairsDnS_2"},  {"nE2", "StairsDnE_2"},  {"nW2", "StairsDnW_2"},
}};

// Kinds of which MirrorTile makes others, and those that stand alone.
constexpr std::array<std::string_view, 16> kGivenKinds = {
    "CornerNW", "WallN", "DoorwayN", "DoorjambN", "DoorN", "HallNS", "HallCornerNW", "HallEndN",
    "StairsUpN", "DoorwayNW_N", "DoorwayNW_W", "HallNS_2", "StairsUpN_2",
    "Center", "Center_22", "Hall4Way",
};

// A code for several tiles at once, as halls cut their doorways.
constexpr std::array<CodeRow, 4> kGroups = {{
    {"DN", "dN&jN&lN"},
    {"DS", "dS&jS&lS"},
    {"DE", "dE&jE&lE"},
    {"DW", "dW&jW&lW"},
}};
// clang-format on

using Cells = std::vector<std::vector<std::string>>;

Cells Split(std::string_view text) {
    Cells rows;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream cells(line);
        std::vector<std::string> row;
        for (std::string cell; cells >> cell;) {
            row.push_back(cell);
        }
        if (!row.empty()) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::string Join(const Cells& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t c = 0; c < row.size(); ++c) {
            widths[c] = std::max(widths[c], row[c].size());
        }
    }
    std::string text = "\n";
    for (const auto& row : rows) {
        for (std::size_t c = 0; c < row.size(); ++c) {
            text += row[c];
            if (c + 1 < row.size()) {
                text.append(widths[c] - row[c].size() + 1, ' ');
            }
        }
        text += '\n';
    }
    return text;
}

[[noreturn]] void Refuse(std::string_view what, std::string_view where) {
    throw std::invalid_argument(std::string(what) + " '" + std::string(where) + "'");
}

void AddTileOf(GridElmt& elmt, std::string_view code, const TileSet& tiles) {
    const auto row = std::ranges::find(kCodes, code, &CodeRow::code);
    std::string_view name;
    if (row != kCodes.end()) {
        name = row->name;
    } else if (code.starts_with('?')) {
        name = code.substr(1);
    } else {
        Refuse("unknown code in a map:", code);
    }
    const DiPtr<Tile>& tile = tiles.Get(TileKindName(name));
    if (!tile) {
        Refuse("the tile set lacks", name);
    }
    elmt.AddTile(tile);
}

void AddTilesOf(GridElmt& elmt, std::string_view codes, const TileSet& tiles) {
    while (!codes.empty()) {
        const std::size_t end = std::min(codes.find('&'), codes.size());
        const std::string_view code = codes.substr(0, end);
        const auto group = std::ranges::find(kGroups, code, &CodeRow::code);
        if (group != kGroups.end()) {
            AddTilesOf(elmt, group->name, tiles);
        } else {
            AddTileOf(elmt, code, tiles);
        }
        codes.remove_prefix(std::min(end + 1, codes.size()));
    }
}

std::string CodeOf(const Tile& tile) {
    const auto row = std::ranges::find(kCodes, tile.kindName.Kind().Name(), &CodeRow::name);
    return row == kCodes.end() ? "?" + tile.kindName.Text() : std::string(row->code);
}

// The codes of the tiles, a group standing for its tiles wherever they follow each other.
std::string CodesOf(const GridElmt& elmt) {
    std::string codes;
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        codes += (codes.empty() ? "" : "&") + CodeOf(*tile);
    }
    for (const CodeRow& group : kGroups) {
        const std::size_t at = codes.find(group.name);
        if (at != std::string::npos) {
            codes.replace(at, group.name.size(), group.code);
        }
    }
    return codes;
}

} // namespace

DiPtr<TileSet> MakeFullTileSet(const char* type, int size) {
    auto set = MakeDi<TileSet>();
    set->SetName("Full");
    set->SetType(type);
    set->SetTileSize(size);
    for (const std::string_view name : kGivenKinds) {
        Tile tile;
        tile.kindName = TileKindName(name);
        set->Set(tile);
    }
    for (const CodeRow& row : kCodes) {
        set->Get(TileKind::Of(row.name))->id = std::string(row.name);
    }
    return set;
}

std::string Map(std::string_view text) {
    return Join(Split(text));
}

std::string ToText(const DiPtr<GridElmt>& elmt) {
    if (!elmt) {
        return ".";
    }
    std::string text = elmt->tiles.empty() ? "o" : CodesOf(*elmt);
    if (elmt->isShadow) {
        text += '~';
    }
    if (elmt->isTeleport) {
        text += '!';
    }
    return text;
}

std::string ToText(const Layout& layout) {
    Cells rows(layout.GetHeight());
    for (std::uint32_t r = 0; r < layout.GetHeight(); ++r) {
        for (const DiPtr<GridElmt>& elmt : layout.GetRow(r)) {
            rows[r].push_back(ToText(elmt));
        }
    }
    return Join(rows);
}

DiPtr<GridElmt> ToElmt(std::string_view cell, const TileSet& tiles) {
    if (cell == ".") {
        return nullptr;
    }
    auto elmt = MakeDi<GridElmt>();
    for (; cell.ends_with('~') || cell.ends_with('!'); cell.remove_suffix(1)) {
        (cell.back() == '~' ? elmt->isShadow : elmt->isTeleport) = true;
    }
    if (cell != "o") {
        AddTilesOf(*elmt, cell, tiles);
    }
    return elmt;
}

void Draw(Layout& layout, int row, int col, std::string_view text, const TileSet& tiles) {
    const Cells rows = Split(text);
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            layout.SetElmt(
                ToElmt(rows[r][c], tiles), row + static_cast<int>(r), col + static_cast<int>(c));
        }
    }
}

DiPtr<Layout> ToLayout(std::string_view text, const TileSet& tiles, int zSize) {
    const Cells rows = Split(text);
    const std::size_t width = rows.empty() ? 0 : rows.front().size();
    for (const auto& row : rows) {
        if (row.size() != width) {
            Refuse("a row of another length in a map:", Join({row}));
        }
    }
    DiPtr<Layout> layout =
        Layout::Create(DiPos(static_cast<int>(width), static_cast<int>(rows.size()), zSize));
    Draw(*layout, 0, 0, text, tiles);
    return layout;
}

} // namespace Tarnex::Test

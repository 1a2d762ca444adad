// SPDX-License-Identifier: MIT
// The page about configurations tells the grammar that the loader reads.
#include <vaultry/catalogue/ConfigFormat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace Tarnex {

namespace {

// What a table says of an attribute.
struct Described {
    std::string type;
    std::string initial;
    bool operator==(const Described&) const = default;
};

void PrintTo(const Described& described, std::ostream* out) {
    *out << described.type << ' ' << described.initial;
}

using Table = std::map<std::string, Described>;

std::vector<std::string> Cells(const std::string& row) {
    std::vector<std::string> cells;
    std::istringstream text(row.substr(1));
    for (std::string cell; std::getline(text, cell, '|');) {
        const std::size_t start = cell.find_first_not_of(' ');
        const bool blank = start == std::string::npos;
        cells.push_back(blank ? "" : cell.substr(start, cell.find_last_not_of(' ') + 1 - start));
    }
    return cells;
}

std::vector<std::string> QuotedWords(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream parts(text);
    std::string part;
    while (std::getline(parts, part, '`') && std::getline(parts, part, '`')) {
        words.push_back(part);
    }
    return words;
}

std::string Page() {
    std::ifstream file(VAULTRY_SOURCE_DIR "/docs/configuration.md");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The attributes below a table's first cell, each with its type and default.
Table TableUnder(const std::string& title) {
    Table table;
    std::istringstream page(Page());
    std::size_t initial = 0; // the column; 0 outside of the table
    for (std::string line; std::getline(page, line);) {
        const std::vector<std::string> cells =
            line.starts_with('|') ? Cells(line) : std::vector<std::string>{};
        if (cells.empty()) {
            initial = 0;
        } else if (cells.front() == title) {
            initial = static_cast<std::size_t>(std::find(cells.begin(), cells.end(), "default") -
                                               cells.begin());
        } else if (initial > 0) {
            for (const std::string& name : QuotedWords(cells.front())) {
                table[name] = {cells.at(1), cells.at(initial)};
            }
        }
    }
    return table;
}

std::string Shown(const AttributeFormat& format, const std::string& type) {
    if (format.initial == nullptr) {
        return {};
    }
    const double initial = format.initial();
    if (initial < 0) {
        return "not given";
    }
    std::ostringstream text;
    text << initial << (type == "real" && initial > 0 ? ".0" : "");
    return text.str();
}

// Words are taken as they stand: which of them the page calls keywords is its own matter.
Described FromGrammar(const AttributeFormat& format, const Described& page) {
    switch (format.kind) {
    case ValueKind::Whole:
        return {"integer", Shown(format, "integer")};
    case ValueKind::Real:
        return {"real", Shown(format, "real")};
    case ValueKind::List:
        return {"list", page.initial};
    case ValueKind::Keyword:
        return {"keyword", page.initial};
    default:
        return {page.type == "integer" || page.type == "real" ? "text" : page.type, page.initial};
    }
}

struct TitleRow {
    const char* title;
    ElementClass element;
};

class ConfigurationPageTest : public ::testing::TestWithParam<TitleRow> {};

TEST_P(ConfigurationPageTest, TellsAttributesTypesAndDefaults) {
    const Table page = TableUnder(GetParam().title);
    Table grammar;
    for (const AttributeFormat& format : AttributesOf(GetParam().element)) {
        const std::string name(format.name);
        const auto found = page.find(name);
        grammar[name] = FromGrammar(format, found == page.end() ? Described() : found->second);
    }
    EXPECT_EQ(page, grammar);
}

INSTANTIATE_TEST_SUITE_P(
    Tables,
    ConfigurationPageTest,
    ::testing::Values(TitleRow{"attribute of `TileSet`", ElementClass::TileSet},
                      TitleRow{"attribute of a tile", ElementClass::Tile},
                      TitleRow{"attribute of `Layout`", ElementClass::Layout},
                      TitleRow{"attribute", ElementClass::Content},
                      TitleRow{"attribute of `Theme`, `CreatureTheme`, `TreasureTheme`",
                               ElementClass::Theme},
                      TitleRow{"attribute of `ThemeItem`", ElementClass::ThemeItem},
                      TitleRow{"attribute of a piece", ElementClass::PlatformTile}));

TEST(ConfigurationPage, TellsEveryElementAndItsTypes) {
    const std::string page = Page();
    for (const ElementFormat& format : ElementFormats()) {
        EXPECT_NE(page.find('`' + std::string(format.name) + '`'), std::string::npos)
            << format.name;
        for (const std::string_view type : format.types) {
            EXPECT_NE(page.find('`' + std::string(type) + '`'), std::string::npos) << type;
        }
    }
}

} // namespace

} // namespace Tarnex

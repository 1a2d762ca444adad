// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>

#include <array>
#include <cstdio>
#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

std::string Number(float value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.9g", static_cast<double>(value));
    return text.data();
}

std::string RefLine(const Ref& ref) {
    const Di3Point& at = ref.position;
    std::string line = ref.GetName() + " " + Number(at.x) + " " + Number(at.y) + " " + Number(at.z);
    if (ref.rotation.x != 0.0F || ref.rotation.y != 0.0F) {
        line += " tilted";
    }
    if (ref.rotation.z != 0.0F) {
        line += " r" + Number(ref.rotation.z);
    }
    if (ref.scale != 1.0F) {
        line += " s" + Number(ref.scale);
    }
    if (ref.GetDestination()) {
        line += " -> " + RefLine(*ref.GetDestination());
    }
    return line;
}

} // namespace

GenTest::GenTest() {
    info.defTileSet = tiles;
    SetContainerStamp(7);
    SeedRandom(1);
}

ContentTemplate& GenTest::Add(const char* kind, const char* uniqueName, const char* subtype) {
    auto content = MakeDi<ContentTemplate>();
    content->contentKind = kind;
    content->uniqueName = uniqueName;
    content->subtype = subtype;
    info.config.contentMgr->Add(content);
    return *content;
}

ContentTemplate& GenTest::AddTreasure(const char* subtype, const char* uniqueName) {
    return Add("Treasure", uniqueName, subtype);
}

ThemeItem MakeItem(const ItemSpec& line) {
    ThemeItem item;
    item.type = line.type;
    item.uniqueNames = line.names;
    item.ratio = line.ratio;
    item.chance = line.chance;
    item.minimum = line.minimum;
    item.maximum = line.maximum;
    return item;
}

DiPtr<Theme> MakeTheme(const char* name, const std::vector<ItemSpec>& items) {
    auto theme = MakeDi<Theme>();
    theme->SetName(name);
    for (const ItemSpec& line : items) {
        theme->items.push_back(MakeDi<ThemeItem>(MakeItem(line)));
    }
    return theme;
}

DiPtr<LayoutTemplate> ToTemplate(std::string_view map, const char* name) {
    const DiPtr<TileSet> tiles = MakeFullTileSet();
    const DiPtr<Layout> drawn = ToLayout(map, *tiles);
    auto plan = MakeDi<LayoutTemplate>(DiPos(drawn->GetSize().x, drawn->GetSize().y, 0));
    plan->SetName(name);
    for (std::uint32_t r = 0; r < drawn->GetHeight(); ++r) {
        for (std::uint32_t c = 0; c < drawn->GetWidth(); ++c) {
            const DiPtr<GridElmt>& elmt = drawn->GetElmt(r, c);
            if (!elmt) {
                continue;
            }
            const auto cell = MakeDi<TemplateElmt>();
            for (const DiPtr<Tile>& tile : elmt->tiles) {
                cell->tileNames.push_back(tile->kindName);
            }
            plan->SetElmt(cell, static_cast<std::int32_t>(r), static_cast<std::int32_t>(c));
        }
    }
    return plan;
}

std::vector<std::string> RefLines(const Cell& cell) {
    Lines lines;
    for (const Ref& ref : cell.GetRefs()) {
        lines.push_back(RefLine(ref));
    }
    return lines;
}

std::vector<std::string> PlacedLines(const Cell& cell) {
    Lines lines = RefLines(cell);
    lines.erase(lines.begin());
    return lines;
}

std::vector<std::string> ContentNames(const GridElmt& elmt) {
    Lines names;
    for (const DiPtr<ContentItem>& item : elmt.contents) {
        names.push_back(item->uniqueName);
    }
    return names;
}

std::string ContentMap(const Layout& layout) {
    std::string map;
    for (std::uint32_t r = 0; r < layout.GetHeight(); ++r) {
        for (const DiPtr<GridElmt>& elmt : layout.GetRow(r)) {
            std::string cell;
            for (const std::string& name : elmt ? ContentNames(*elmt) : Lines()) {
                cell += (cell.empty() ? "" : ",") + name;
            }
            map += (cell.empty() ? "." : cell) + " ";
        }
        map += '\n';
    }
    return Map(map);
}

} // namespace Tarnex::Test

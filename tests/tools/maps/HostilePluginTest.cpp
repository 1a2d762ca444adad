// SPDX-License-Identifier: MIT
// What plug-ins that are made to cost much do cost.
#include "tools/maps/MapHtml.h"
#include "tools/maps/MapLabels.h"
#include "tools/maps/MapSvg.h"
#include "tools/maps/MapText.h"
#include "tools/maps/PluginMap.h"
#include "tools/plugins/DiffReport.h"
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/PluginChecks.h"

#include <vaultry/gen/GenMgr.h>
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <ostream>
#include <sstream>
#include <tests/support/Contains.h>
#include <tests/support/HostilePlugins.h>
#include <tests/tools/maps/SampleMap.h>
#ifdef __linux__
#include <malloc.h>
#endif

#ifdef __linux__
namespace {

std::atomic<std::int64_t> held = 0;
std::atomic<std::int64_t> most = 0;

void Count(void* memory, int sign) {
    held += sign * static_cast<std::int64_t>(malloc_usable_size(memory));
    most = std::max(most.load(), held.load());
}

} // namespace

// All that this program asks for is counted, in every way of asking: the sanitizers bring forms of
// their own, whose memory must not be given back here.
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
    void* memory = std::malloc(size);
    Count(memory, 1);
    return memory;
}

void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    Count(memory, -1);
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
#endif

namespace Tarnex::Test {

namespace {

constexpr std::size_t kBytes = 100'000;

// Takes everything and keeps its size.
class CountingBuffer : public std::streambuf {
public:
    std::size_t Count() const { return count; }

protected:
    int_type overflow(int_type c) override {
        ++count;
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char* /*bytes*/, std::streamsize size) override {
        count += static_cast<std::size_t>(size);
        return size;
    }

private:
    std::size_t count = 0;
};

template <typename Print>
std::size_t SizeOf(const Print& print) {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    print(out);
    return buffer.Count();
}

class HostilePluginTest : public ::testing::TestWithParam<Hostility> {
protected:
    static void SetUpTestSuite() {
        GenMgr manager;
        manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
        pieces = std::make_unique<Report::PieceIndex>(manager.config);
    }
    static void TearDownTestSuite() { pieces.reset(); }

    // As many cells as one drawing takes.
    static Report::PluginLevels Levels(const PluginFile& file) {
        constexpr std::size_t kMostCells = 100;
        std::vector<const PluginCell*> cells;
        for (const PluginCell& cell : file.cells) {
            if (cells.size() < kMostCells) {
                cells.push_back(&cell);
            }
        }
        return {cells, file, *pieces};
    }

    static std::unique_ptr<Report::PieceIndex> pieces;
};

std::unique_ptr<Report::PieceIndex> HostilePluginTest::pieces;

const Report::MapCaption kCaption{0, "", "", "hostile.esp"};

// Everything that can be made of a plug-in, by name.
template <typename Visitor>
void ForEachOutput(const Report::LoadedPlugin& plugin,
                   const Report::LoadedPlugin& partner,
                   Report::MapLevels& levels,
                   const Visitor& visit) {
    const auto inspect = [&](const auto& use) {
        const std::vector<PluginFinding> findings = Report::FindInconsistencies(plugin.file);
        use(Report::Inspection{plugin.path, plugin.file, findings});
    };
    visit("inspect", [&](std::ostream& out) {
        inspect([&](const auto& inspection) { Report::PrintInspection(inspection, true, out); });
    });
    visit("inspect --json", [&](std::ostream& out) {
        inspect([&](const auto& inspection) { out << Report::ToJson(inspection); });
    });
    visit("diff",
          [&](std::ostream& out) { Report::PrintDiff(Report::Diff(plugin, partner), out); });
    visit("diff --json",
          [&](std::ostream& out) { out << Report::ToJson(Report::Diff(plugin, partner)); });
    const Report::MapSurvey survey = Report::SurveyOf(levels);
    visit("map", [&](std::ostream& out) {
        for (std::size_t i = 0; i < levels.Count(); ++i) {
            Report::PrintMap(levels.Level(i), {}, out);
        }
    });
    visit("map .svg", [&](std::ostream& out) {
        Report::SvgDocument(survey, kCaption)
            .Write(levels, Report::MapLook::Auto, Report::MapTitles::Yes, out);
    });
    visit("map .html", [&](std::ostream& out) {
        Report::WriteHtml(levels, survey, kCaption, Report::MapLook::Auto, out);
    });
}

Report::LoadedPlugin Loaded(std::string bytes) {
    Report::LoadedPlugin plugin{"hostile.esp", std::move(bytes), {}};
    plugin.file = ReadPlugin(plugin.bytes);
    return plugin;
}

// The bounds that docs/reliability.md states.
TEST_P(HostilePluginTest, OutputGrowsWithThePlugin) {
    const Report::LoadedPlugin plugin = Loaded(GetParam().make(kBytes));
    const Report::LoadedPlugin partner = Loaded(HostilePartner(GetParam().name, kBytes));
    Report::PluginLevels levels = Levels(plugin.file);
    ForEachOutput(plugin, partner, levels, [&](const char* name, const auto& print) {
        EXPECT_LT(SizeOf(print), 100 * plugin.bytes.size()) << name;
    });
}

#ifdef __linux__
TEST_P(HostilePluginTest, MemoryGrowsWithThePlugin) {
    constexpr std::int64_t kAny = 20'000'000; // the largest grid, and what a page begins with
    const std::string bytes = GetParam().make(kBytes);
    const auto size = static_cast<std::int64_t>(bytes.size());
    const std::int64_t before = held;
    const Report::LoadedPlugin plugin = Loaded(bytes);
    const Report::LoadedPlugin partner = Loaded(HostilePartner(GetParam().name, kBytes));
    Report::PluginLevels levels = Levels(plugin.file);
    ForEachOutput(plugin, partner, levels, [&](const char* name, const auto& print) {
        most = held.load();
        SizeOf(print);
        EXPECT_LT(most - before, kAny + 250 * size) << name;
    });
}
#endif

INSTANTIATE_TEST_SUITE_P(Hostilities,
                         HostilePluginTest,
                         ::testing::ValuesIn(Hostilities().begin(), Hostilities().end()),
                         [](const auto& hostility) {
                             std::string name(hostility.param.name);
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

TEST(ListedItemsTest, AChestIsListedOnceWhateverItHolds) {
    Report::ListedItems listed;
    Report::MapChest chest;
    chest.items.resize(Report::ListedItems::kMostListedAgain + 1);
    EXPECT_TRUE(listed.Claim(chest));
    EXPECT_FALSE(listed.Claim(chest));
}

TEST(ListedItemsTest, ChestsAreListedAgainUpToTheBound) {
    Report::ListedItems listed;
    Report::MapChest chest;
    chest.items.resize(Report::ListedItems::kMostListedAgain / 2);
    EXPECT_TRUE(listed.Claim(chest));
    EXPECT_TRUE(listed.Claim(chest));
    EXPECT_TRUE(listed.Claim(chest));
    EXPECT_FALSE(listed.Claim(chest));
    Report::MapChest other;
    other.items.resize(1);
    EXPECT_TRUE(listed.Claim(other));
    EXPECT_FALSE(listed.Claim(other));
}

// What a page says of a container that is not listed again.
TEST(ListedItemsTest, ThePageLeadsBackToTheList) {
    auto chest = std::make_shared<Report::MapChest>();
    chest->name = "Chest";
    chest->items.resize(Report::ListedItems::kMostListedAgain + 1, {"coin", 1});
    Report::LevelMap map = SampleMap();
    const Report::MapContent content{Report::MapSign::Container, "chest_01", "Chest", chest};
    map.Held(0, 0).contents = {content, content};
    Report::MapCollector levels = Levels({map});
    std::ostringstream page;
    Report::WriteHtml(levels, Report::SurveyOf(levels), kCaption, Report::MapLook::Auto, page);
    EXPECT_TRUE(Contains(page.str(), "<td>10001 items, listed above</td>"));
    EXPECT_TRUE(Contains(page.str(), "1 x coin\nChest\n  10001 items</title>"));
}

TEST(MapLabelsTest, TheFirstHundredDoorsAreLabelled) {
    Report::LevelMap map;
    constexpr std::int32_t kDoors = 101;
    std::vector<DiPos> places;
    for (std::int32_t i = 0; i < kDoors; ++i) {
        places.emplace_back(i, 0, 0);
    }
    map.Frame(places);
    for (Report::MapCell& cell : map.cells) {
        cell.teleport = true;
    }
    EXPECT_EQ(Report::PlaceLabels(map).size(), Report::kMostLabels);
    map.cells.back().teleport = false;
    EXPECT_EQ(Report::PlaceLabels(map).size(), Report::kMostLabels);
    map.cells.front().teleport = false;
    EXPECT_EQ(Report::PlaceLabels(map).size(), Report::kMostLabels - 1);
}

// A letter may take several bytes.
TEST(MapLabelsTest, NamesOfMoreThanThirtyLettersAreCutBetweenLetters) {
    const auto letters = [](std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) {
            text += "\u00E9";
        }
        return text;
    };
    Report::LevelMap map;
    map.Frame({DiPos()});
    map.cells[0].teleport = true;
    map.cells[0].leadsTo = letters(30);
    EXPECT_EQ(Report::PlaceLabels(map)[0].text, "\u2192 " + letters(30));
    map.cells[0].leadsTo = letters(31);
    EXPECT_EQ(Report::PlaceLabels(map)[0].text, "\u2192 " + letters(29) + "\u2026");
}

} // namespace

} // namespace Tarnex::Test

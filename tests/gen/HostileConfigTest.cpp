// SPDX-License-Identifier: MIT
// Damaged documents and numbers that no one would write: every run ends, with a plug-in or without.
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/output/PluginReader.h>

#include <tests/support/LogTest.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

// A bit of everything.
const std::string kConfig = R"(<?xml version="1.0"?>
<OstrelData>
<TileSet TsName="C" TsType="Cave" TsSize="256" WallThickness="8">
<CornerNW ZRotate="0" Scale="1" OffsetX="1">a</CornerNW><WallN DeltaZ="0" Area="HalfSize">b</WallN>
<Center OffsetZ="-128" Requires="WallN">c</Center><DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>
<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>i</HallEndN>
<Hall4Way>j</Hall4Way><StairsUpN DeltaZ="256">k</StairsUpN></TileSet>
<Platform Name="P"><Floor UniqueName="l" SizeX="64" SizeY="64" SizeZ="8" OffsetY="0"/>
<Beam UniqueName="m" SizeX="8" SizeY="8" OffsetX="0"/><StairsUpN UniqueName="n" SizeZ="9"/></Platform>
<Layout LayoutName="L" Type="Cave" Width="3" Height="3" OffsetX="0">
<Row><Col>CornerNW</Col><Col>WallN,DoorN</Col><Col>CornerNE</Col></Row>
<Row><Col>WallW</Col><Col>Center</Col><Col>DoorwayE</Col></Row>
<Row><Col>CornerSW</Col><Col>WallS</Col><Col>CornerSE</Col></Row>
<Layout Width="1" Height="1" OffsetX="3" OffsetY="1" OffsetZ="0"><Row><Col>WallE</Col></Row></Layout>
</Layout>
<Container UniqueName="o" ModelFile="o.nif" Weight="50" SizeX="9" SizeY="9" SizeZ="9" ZRotate="0"/>
<Creature UniqueName="p" Level="1" Value="0" OffsetZ="0"/><Rug UniqueName="q" OffsetX="0"/>
<Treasure Type="Gold" UniqueName="r" Max="9" Value="1" Weight="1"/>
<Theme Name="T" Level="1"><ThemeItem Type="Container" Ratio="1" Chance="1" Min="1" Max="9"/>
<ThemeItem Type="Rug" UniqueName="q,q" Ratio="1" Chance="0.5"/></Theme>
<CreatureTheme Name="U" Level="1"><ThemeItem Type="Creature" Min="1"/></CreatureTheme>
<TreasureTheme Name="V" Level="1"><ThemeItem Type="Gold" Ratio="2" Min="1" Max="9"/></TreasureTheme>
</OstrelData>
)";

class HostileConfigTest : public LogTest {
protected:
    HostileConfigTest() {
        Logger::Close();
        Logger::InitWithoutFile();
    }

    // Reads the document and generates what can be; the plug-in, or an empty text.
    static std::string Run(const std::string& document, bool fixedLayout) {
        Logger::ResetErrors();
        GenMgr mgr;
        mgr.InitFromMemory(document, "hostile.xml");
        mgr.SetDefaultTileSet("C", true);
        mgr.SetDefaultTemplate("L", true);
        mgr.SetDefaultCreatureTheme("U");
        mgr.SetAddPlatforms(true);
        RandomGenInfo random;
        random.levelSize = RandomGenInfo::Tiny;
        mgr.SetRandomInfo(random);
        SeedRandom(1);
        SetContainerStamp(1);
        if (mgr.Generate("Hostile", fixedLayout) != ModResult::Written) {
            return {};
        }
        std::ostringstream plugin;
        mgr.mod.Write(plugin);
        return plugin.str();
    }

    static void ExpectReadable(const std::string& plugin) {
        if (!plugin.empty()) {
            const PluginFile file = ReadPlugin(plugin);
            EXPECT_TRUE(file.isPlugin);
            EXPECT_TRUE(file.complete);
        }
    }
};

// Where the value of each number begins and ends.
std::vector<std::pair<std::size_t, std::size_t>> NumbersIn(const std::string& document) {
    std::vector<std::pair<std::size_t, std::size_t>> numbers;
    const std::size_t body = document.find("<OstrelData>");
    for (std::size_t at = document.find("=\"", body); at != std::string::npos;
         at = document.find("=\"", at + 2)) {
        const std::size_t end = document.find('"', at + 2);
        const bool number = document.find_first_not_of("-.0123456789", at + 2) == end;
        if (number) {
            numbers.emplace_back(at + 2, end);
        }
    }
    return numbers;
}

TEST_F(HostileConfigTest, TheUndamagedDocumentGivesPlugins) {
    EXPECT_FALSE(Run(kConfig, true).empty());
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_FALSE(Run(kConfig, false).empty());
    EXPECT_EQ(NumbersIn(kConfig).size(), 49U);
}

TEST_F(HostileConfigTest, EveryNumberMayBeAnything) {
    const std::vector<std::string> values = {"1e-9",
                                             "-1e-9",
                                             "nan",
                                             "inf",
                                             "1e999",
                                             "-1e999",
                                             "1e38",
                                             "0",
                                             "-0",
                                             "-1",
                                             "-2",
                                             "0,5",
                                             "",
                                             "12abc",
                                             "1025",
                                             "1e9",
                                             "2147483647",
                                             "-2147483648"};
    for (const auto& [begin, end] : NumbersIn(kConfig)) {
        for (const std::string& value : values) {
            std::string document = kConfig;
            document.replace(begin, end - begin, value);
            SCOPED_TRACE(document.substr(begin - 20, 20) + value);
            ExpectReadable(Run(document, true));
            ExpectReadable(Run(document, false));
        }
    }
}

TEST_F(HostileConfigTest, AFlipOfAnyByteIsSurvived) {
    for (std::size_t i = 0; i < kConfig.size(); ++i) {
        SCOPED_TRACE(i);
        std::string document = kConfig;
        document[i] = static_cast<char>(document[i] ^ (1 << i % 8));
        ExpectReadable(Run(document, i % 2 == 0));
        document[i] = static_cast<char>(~kConfig[i]);
        ExpectReadable(Run(document, i % 2 == 1));
    }
}

TEST_F(HostileConfigTest, ACutAtAnyLengthIsToldAndSurvived) {
    const std::size_t whole = kConfig.find("</OstrelData>") + 13;
    for (std::size_t length = 0; length < whole; ++length) {
        SCOPED_TRACE(length);
        ExpectReadable(Run(kConfig.substr(0, length), length % 2 == 0));
        ASSERT_FALSE(ErrorLines().empty());
        EXPECT_EQ(ErrorLines().front().find("Error : XML Parser : Fatal Error parsing XML"), 0U)
            << ErrorLines().front();
    }
}

} // namespace

} // namespace Tarnex::Test

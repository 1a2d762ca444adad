// SPDX-License-Identifier: MIT
// Makes a valid configuration and parameters out of any bytes, and generates a plug-in from them
// twice: both must be alike to the byte and readable.
#include "fuzz/Require.h"

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/output/PluginReader.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>

using namespace Tarnex;

namespace {

constexpr std::array<const char*, 12> kNumbers = {
    "0", "1", "2", "3", "5", "-1", "0.5", "1.5", "20", "64", "90", "256"};
// What no one would write; seldom, since the largest of them ask for much work.
constexpr std::array<const char*, 12> kStrangeNumbers = {"-2",
                                                         "1e-9",
                                                         "nan",
                                                         "1e999",
                                                         "-1e999",
                                                         "0,5",
                                                         "1e9",
                                                         "90000",
                                                         "2147483647",
                                                         "-2147483648",
                                                         "",
                                                         "12abc"};

constexpr std::array<const char*, 8> kPlaces = {"0", "1", "2", "3", "5", "-1", "-3", "0.5"};

// The pieces from which all kinds of tile follow.
constexpr std::array<const char*, 16> kPieces = {
    "CornerNW",
    "WallN",
    "Center",
    "DoorwayN",
    "DoorjambN",
    "DoorN",
    "HallNS",
    "HallNS_2",
    "HallEndN",
    "Hall4Way",
    "DoorwayNW_W",
    "DoorwayNW_N",
    "HallCornerNW",
    "Lantern",
    "WallE",
    "StairsUpN",
};

constexpr std::array<const char*, 9> kContent = {"Armor",
                                                 "Clothing",
                                                 "Container",
                                                 "Creature",
                                                 "Furniture",
                                                 "Rug",
                                                 "Tapestry",
                                                 "Treasure",
                                                 "Weapon"};
constexpr std::array<const char*, 12> kTypes = {"Container",
                                                "Creature",
                                                "Furniture",
                                                "Rug",
                                                "Tapestry",
                                                "Gold",
                                                "Weapon",
                                                "Book",
                                                "Gem",
                                                "Fish",
                                                "Bird",
                                                "Lantern"};
constexpr std::array<const char*, 4> kStacks = {"No", "Bottom", "Top", "Yes"};
constexpr std::array<const char*, 3> kAreas = {"FullSize", "HalfSize", "QuarterSize"};
constexpr std::array<const char*, 3> kThemes = {"Theme", "CreatureTheme", "TreasureTheme"};
constexpr std::array<const char*, 7> kPlatformPieces = {
    "Floor", "Beam", "StairsUpN", "StairsUpS", "StairsUpE", "StairsUpW", "Lantern"};

// Writes a configuration of a few tile sets, layouts, platforms, themes and contents.
class ConfigWriter {
public:
    explicit ConfigWriter(FuzzedDataProvider& data_) : data(data_) {}

    std::string Write() {
        text = "<OstrelData>\n";
        Repeat(3, [this] { TileSet(); });
        Repeat(3, [this] { Layout(0); });
        Repeat(2, [this] { Platform(); });
        Repeat(12, [this] { Content(); });
        Repeat(5, [this] { Theme(); });
        return text + "</OstrelData>\n";
    }

private:
    template <typename Step>
    void Repeat(int most, Step step) {
        for (int i = data.ConsumeIntegralInRange(0, most); i > 0; --i) {
            step();
        }
    }

    template <std::size_t N>
    const char* Pick(const std::array<const char*, N>& words) {
        return data.PickValueInArray(words);
    }

    void Attribute(const char* name, const std::string& value) {
        text += std::string(" ") + name + "=\"" + value + '"';
    }
    const char* AnyNumber() {
        constexpr int kSeldom = 31;
        const bool strange = data.ConsumeIntegralInRange(0, kSeldom) == kSeldom;
        return strange ? Pick(kStrangeNumbers) : Pick(kNumbers);
    }
    // A number now and then; most defaults make sense.
    void Number(const char* name) {
        if (data.ConsumeBool()) {
            Attribute(name, AnyNumber());
        }
    }
    void Numbers(std::initializer_list<const char*> names) {
        for (const char* name : names) {
            Number(name);
        }
    }
    std::string Type() { return data.ConsumeBool() ? "Room" : "Cave"; }
    std::string Name() { return std::string(1, data.ConsumeIntegralInRange('a', 'h')); }

    void TileSet() {
        text += "<TileSet";
        Attribute("TsName", Name());
        Attribute("TsType", Type());
        Numbers({"TsSize", "WallThickness"});
        text += ">\n";
        // Each piece that is left out is a hole.
        const auto given = data.ConsumeIntegral<std::uint16_t>();
        for (std::size_t i = 0; i < kPieces.size(); ++i) {
            if ((given >> i & 1U) == 0) {
                Tile(kPieces.at(i));
            }
        }
        text += "</TileSet>\n";
    }

    void Tile(const char* kind) {
        text += std::string("<") + kind;
        if (data.ConsumeBool()) {
            Numbers({"ZRotate", "DeltaZ", "OffsetX", "OffsetY", "OffsetZ", "Scale"});
            Attribute("Area", Pick(kAreas));
            Attribute("Requires", Pick(kPieces));
        }
        text += ">" + Name() + "</" + kind + ">\n";
    }

    void Layout(int depth) {
        text += "<Layout";
        Attribute("LayoutName", Name());
        Attribute("Type", Type());
        const int width = data.ConsumeIntegralInRange(0, 7);
        const int height = data.ConsumeIntegralInRange(0, 7);
        Attribute("Width", std::to_string(width));
        Attribute("Height", std::to_string(height));
        for (const char* name : {"OffsetX", "OffsetY", "OffsetZ"}) {
            Attribute(name, data.ConsumeBool() ? Pick(kPlaces) : AnyNumber());
        }
        text += ">\n";
        for (int row = 0; row < height; ++row) {
            text += "<Row>";
            for (int col = 0; col < width; ++col) {
                text += "<Col>";
                Repeat(3, [this] { text += TileName() + ","; });
                text += "</Col>";
            }
            text += "</Row>\n";
        }
        if (depth < 3) {
            Repeat(2, [this, depth] { Layout(depth + 1); });
        }
        text += "</Layout>\n";
    }

    std::string TileName() {
        static const std::vector<std::string> names = TileKindNames();
        return names[data.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)];
    }

    void Platform() {
        text += "<Platform";
        Attribute("Name", Name());
        text += ">\n";
        Repeat(6, [this] {
            text += std::string("<") + Pick(kPlatformPieces);
            Attribute("UniqueName", Name());
            Attribute("SizeX", data.ConsumeBool() ? "64" : AnyNumber());
            Attribute("SizeY", data.ConsumeBool() ? "128" : AnyNumber());
            Numbers({"SizeZ", "ZRotate", "OffsetX", "OffsetY", "OffsetZ"});
            text += "/>\n";
        });
        text += "</Platform>\n";
    }

    void Content() {
        text += std::string("<") + Pick(kContent);
        Attribute("UniqueName", Name());
        Attribute("Type", Pick(kTypes));
        Attribute("Stack", Pick(kStacks));
        Numbers({"Max", "Level", "Value", "ZRotate", "Weight", "SizeX", "SizeY", "SizeZ"});
        Numbers({"OffsetX", "OffsetY", "OffsetZ"});
        text += "/>\n";
    }

    void Theme() {
        const std::string theme = Pick(kThemes);
        text += "<" + theme;
        Attribute("Name", Name());
        Number("Level");
        text += ">\n";
        Repeat(5, [this] {
            text += "<ThemeItem";
            Attribute("Type", Pick(kTypes));
            Numbers({"Ratio", "Chance", "Min", "Max"});
            if (data.ConsumeBool()) {
                Attribute("UniqueName", Name() + "," + Name());
            }
            text += "/>\n";
        });
        text += "</" + theme + ">\n";
    }

    FuzzedDataProvider& data;
    std::string text;
};

struct Options {
    RandomGenInfo random;
    std::uint32_t seed = 1;
    bool fixedLayout = false;
    bool platforms = false;
    bool cave = false;
    std::array<std::string, 5> names; // of the defaults
};

Options ReadOptions(FuzzedDataProvider& data) {
    Options options;
    options.random.numLevels = data.ConsumeIntegralInRange<std::uint32_t>(0, 3);
    options.random.minLevel = data.ConsumeIntegral<std::uint32_t>();
    options.random.maxLevel = data.ConsumeIntegral<std::uint32_t>();
    options.random.levelSize =
        static_cast<RandomGenInfo::LevelSizeT>(data.ConsumeIntegralInRange(-1, 5));
    options.random.roomSpacing =
        static_cast<RandomGenInfo::RoomSpacingT>(data.ConsumeIntegralInRange(-1, 5));
    options.random.randomTileSet = data.ConsumeBool();
    options.random.randomTheme = data.ConsumeBool();
    options.random.randomCreatureTheme = data.ConsumeBool();
    options.random.randomTreasureTheme = data.ConsumeBool();
    options.seed = data.ConsumeIntegral<std::uint32_t>();
    options.fixedLayout = data.ConsumeBool();
    options.platforms = data.ConsumeBool();
    options.cave = data.ConsumeBool();
    for (std::string& name : options.names) {
        name = std::string(1, data.ConsumeIntegralInRange('a', 'h'));
    }
    return options;
}

// The plug-in, or an empty text when nothing was generated.
std::string Generate(const std::string& config, const Options& options) {
    Logger::ResetErrors();
    GenMgr manager;
    manager.InitFromMemory(config, "fuzz.xml");
    manager.SetRandomInfo(options.random);
    manager.SetAddPlatforms(options.platforms);
    manager.SetDefaultTileSet(options.names[0].c_str(), options.cave);
    manager.SetDefaultTemplate(options.names[1].c_str(), options.cave);
    if (options.seed % 2 == 0) {
        manager.SetDefaultTheme(options.names[2].c_str());
        manager.SetDefaultTreasureTheme(options.names[4].c_str());
    }
    manager.SetDefaultCreatureTheme(options.names[3].c_str());
    SeedRandom(options.seed);
    SetContainerStamp(1);
    if (manager.Generate("Fuzz", options.fixedLayout) != ModResult::Written) {
        return {};
    }
    std::ostringstream plugin;
    manager.mod.Write(plugin);
    return plugin.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Fuzz::Brief brief;
    Logger::InitWithoutFile();
    FuzzedDataProvider data(bytes, size);
    const Options options = ReadOptions(data);
    const std::string config = ConfigWriter(data).Write();
    const std::string plugin = Generate(config, options);
    Fuzz::Require(plugin == Generate(config, options));
    if (!plugin.empty()) {
        const PluginFile file = ReadPlugin(plugin);
        Fuzz::Require(file.isPlugin && file.complete);
    }
    return 0;
}

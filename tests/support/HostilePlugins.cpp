// SPDX-License-Identifier: MIT
#include "tests/support/HostilePlugins.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace Tarnex::Test {

namespace {

constexpr float kGrid = 256.0F;          // edge of a cell [world units]
constexpr int kEdge = 513;               // cells that a map has from one side to the other
constexpr std::size_t kMostLevels = 100; // that one drawing takes
constexpr const char* kFloor = "in_impsmall_r_center_01";
constexpr const char* kDoorway = "in_impsmall_r_entr_01";
constexpr const char* kDoor = "in_impsmall_door_01";
constexpr float kQuarterTurn = 1.5707964F; // [radians]
constexpr float kNowhere = std::numeric_limits<float>::quiet_NaN();
constexpr float kEndless = std::numeric_limits<float>::infinity();

std::string Word(std::uint32_t word) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) {
        bytes += static_cast<char>(word >> (8 * i) & 0xFF);
    }
    return bytes;
}

std::string Float(float value) {
    return Word(std::bit_cast<std::uint32_t>(value));
}

std::string Sub(std::string_view tag, const std::string& data) {
    return std::string(tag) + Word(static_cast<std::uint32_t>(data.size())) + data;
}

std::string Text(std::string_view tag, const std::string& text) {
    return Sub(tag, text + '\0');
}

std::string Record(std::string_view tag, const std::string& data) {
    return std::string(tag) + Word(static_cast<std::uint32_t>(data.size())) + Word(0) + Word(0) +
           data;
}

std::string Header(const std::string& masters = {}) {
    const std::string hedr = Float(1.2F) + std::string(292, '\0') + Word(0);
    return Record("TES3", Sub("HEDR", hedr) + masters);
}

std::string CellStart(const std::string& name) {
    return Text("NAME", name) + Sub("DATA", Word(1) + Word(0) + Word(0));
}

std::string Cell(const std::string& name, const std::string& refs) {
    return Record("CELL", CellStart(name) + refs);
}

std::string Place(float x, float y, float z = 0.0F, float turn = 0.0F) {
    return Float(x) + Float(y) + Float(z) + Float(0.0F) + Float(0.0F) + Float(turn);
}

std::string Ref(std::uint32_t number, const std::string& id, const std::string& place) {
    return Sub("FRMR", Word(number)) + Text("NAME", id) + Sub("DATA", place);
}

// On the grid, in the middle of a cell; rows run south.
std::string Ref(std::uint32_t number, const std::string& id, int x, int y) {
    return Ref(number, id, Place(float(x) * kGrid, float(-y) * kGrid));
}

std::string Container(const std::string& id, const std::string& items) {
    return Record("CONT",
                  Text("NAME", id) + Sub("CNDT", Float(10.0F)) + Sub("FLAG", Word(8)) + items);
}

std::string Item(const std::string& id) {
    std::string name = id;
    name.resize(32, '\0');
    return Sub("NPCO", Word(1) + name);
}

// What `next` gives for the numbers from 1, until there are that many bytes.
template <typename Next>
std::string Fill(std::size_t size, const Next& next) {
    std::string text;
    text.reserve(size + size / 8);
    for (std::uint32_t i = 1; text.size() < size; ++i) {
        text += next(i);
    }
    return text;
}

std::string FillItems(std::size_t size) {
    return Fill(size, [](std::uint32_t i) { return Item("<&\"item " + std::to_string(i)); });
}

// All over the largest map, one after the other.
std::string Spread(std::uint32_t number, const std::string& id) {
    constexpr std::uint32_t kStride = 100'003; // has no factor in common with the number of cells
    const std::uint32_t place = number * kStride % (kEdge * kEdge);
    return Ref(number,
               id,
               static_cast<int>(place % kEdge) - kEdge / 2,
               static_cast<int>(place / kEdge) - kEdge / 2);
}

template <typename Refs>
std::string Levels(std::size_t count, const Refs& refs) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += Cell("Level " + std::to_string(i), refs(i));
    }
    return text;
}

std::string SharedContainer(std::size_t size) {
    const auto refs = [](std::uint32_t i) { return Spread(i, "chest"); };
    return Header() + Container("chest", FillItems(size / 2)) + Cell("Store", Fill(size / 2, refs));
}

std::string SharedByLevels(std::size_t size) {
    const auto refs = [size](std::size_t) {
        return Fill(size / 2 / kMostLevels, [](std::uint32_t i) { return Spread(i, "chest"); });
    };
    return Header() + Container("chest", FillItems(size / 2)) + Levels(kMostLevels, refs);
}

std::string SharedAtOnePlace(std::size_t size) {
    const auto refs = [](std::uint32_t i) { return Ref(i, "chest", 0, 0); };
    return Header() + Container("chest", FillItems(size / 2)) + Cell("Store", Fill(size / 2, refs));
}

std::string SparseCells(std::size_t size) {
    const auto corners = [](std::size_t) {
        return Ref(1, kFloor, 0, 0) + Ref(2, "far", -(kEdge / 2), -(kEdge / 2)) +
               Ref(3, "far", kEdge / 2, kEdge / 2);
    };
    const std::size_t one = Levels(1, corners).size();
    return Header() + Levels(std::clamp<std::size_t>(size / one, 1, kMostLevels), corners);
}

std::string FullRows(std::size_t size) {
    const auto refs = [size](std::size_t) {
        return Ref(1, kFloor, 0, 0) + Fill(size / kMostLevels, [](std::uint32_t i) {
                   const int y = static_cast<int>(i % kEdge) - kEdge / 2;
                   return Ref(i + 1, "x", kEdge / 2, y);
               });
    };
    return Header() + Levels(kMostLevels, refs);
}

std::string Rooms(std::size_t size) {
    return Header() + Cell("Rooms", Fill(size, [](std::uint32_t i) { return Spread(i, kFloor); }));
}

std::string TilesAtOnePlace(std::size_t size) {
    return Header() +
           Cell("Pile", Fill(size, [](std::uint32_t i) { return Ref(i, kFloor, 0, 0); }));
}

std::string FarAway(std::size_t size) {
    constexpr std::array<float, 8> kPlaces = {
        kNowhere, kEndless, -kEndless, 3.4e38F, -3.4e38F, 2.1e9F, -1e-40F, 1e30F};
    const auto ref = [&](std::uint32_t i) {
        const float x = kPlaces[i % 8];
        const float y = kPlaces[i / 8 % 8];
        const std::string place = Float(x) + Float(y) + Float(x) + Float(y) + Float(x) + Float(y);
        return Ref(i, kFloor, place) + Sub("XSCL", Float(y)) + Sub("DODT", place) +
               Text("DNAM", "nowhere");
    };
    return Header() + Cell("Far", Fill(size, ref));
}

std::string LongNames(std::size_t size) {
    const auto name = [size](char c) { return std::string(size / 6, c); };
    return Header(Text("MAST", name('m')) + Sub("DATA", std::string(8, '\0'))) +
           Container(name('"'), Item("thing")) +
           Cell(name('\x1B'),
                Ref(1, name('"'), 0, 0) + Ref(2, name('\x98'), 1, 0) + Ref(3, kDoor, 2, 0) +
                    Sub("DODT", Place(0, 0)) + Text("DNAM", name('\xFF')));
}

// As long as the reports show a name, of the characters that take most room.
std::string DearNames(std::size_t size) {
    const std::string name(90, '"');
    const std::string letters(90, '\x98');
    const auto ref = [&](std::uint32_t i) {
        return Spread(i, i % 2 == 0 ? name : letters) + Sub("DODT", Place(0, 0)) +
               Text("DNAM", name);
    };
    return Header() + Cell(letters, Fill(size, ref));
}

std::string ManyCells(std::size_t size) {
    return Header() + Fill(size, [](std::uint32_t) { return Record("CELL", ""); });
}

std::string ManyContainers(std::size_t size) {
    return Header() + Fill(size, [](std::uint32_t) { return Record("CONT", ""); });
}

std::string ManyItems(std::size_t size) {
    return Header() + Container("chest", Fill(size, [](std::uint32_t) { return Item(""); }));
}

std::string ManyMasters(std::size_t size) {
    return Header(Fill(size, [](std::uint32_t) { return Sub("MAST", ""); }));
}

std::string ManyTags(std::size_t size) {
    const auto tag = [](std::uint32_t i) {
        constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345";
        std::string name;
        for (unsigned digit = 0; digit < 4; ++digit) {
            name += kLetters[i >> (5 * digit) & 31];
        }
        return name;
    };
    return Header() + Fill(size / 2, [&](std::uint32_t i) { return Record(tag(i), ""); }) +
           Cell("Tags", Fill(size / 2, [&](std::uint32_t i) { return Sub(tag(i), ""); }));
}

std::string BareRefs(std::size_t size) {
    return Header() +
           Cell("Bare", Fill(size, [](std::uint32_t i) { return Sub("FRMR", Word(i)); }));
}

// Doorways with doors in rows, each of which leads to one place.
std::string DoorsToOnePlace(std::size_t size) {
    const auto door = [](std::uint32_t i) {
        const int column = static_cast<int>(i % kEdge) - kEdge / 2;
        const int row = static_cast<int>(i / kEdge % kEdge) - kEdge / 2;
        const float x = float(column) * kGrid;
        const float y = float(-row) * kGrid;
        return Ref(2 * i, kDoorway, Place(x, y, 0, kQuarterTurn)) +
               Ref(2 * i + 1, kDoor, Place(x + 60, y + 132, -32, kQuarterTurn)) +
               Sub("DODT", Place(0, 0)) + Text("DNAM", "Centre");
    };
    return Header() + Cell("Centre", Fill(size, door));
}

std::string Chain(std::size_t size) {
    const auto level = [](std::uint32_t i) {
        return Cell("Level " + std::to_string(i),
                    Ref(1, kDoor, 0, 0) + Sub("DODT", Place(0, 0)) +
                        Text("DNAM", "Level " + std::to_string(i + 1)));
    };
    return Header() + Fill(size, level);
}

std::string SameEverything(std::size_t size) {
    const auto ref = [](std::uint32_t) { return Ref(7, "same", 0, 0); };
    return Header() +
           Fill(size / 2, [](std::uint32_t) { return Container("same", Item("same")); }) +
           Cell("Same", Fill(size / 2, ref));
}

// Every number that leaves the same rest by a prime that tables are as large as.
std::string OneBucket(std::size_t size) {
    constexpr std::uint32_t kPrime = 107'897;
    const auto ref = [](std::uint32_t i) { return Sub("FRMR", Word(i * kPrime)); };
    return Header() + Cell("Bucket", Fill(size, ref));
}

std::string Faults(std::size_t size) {
    const auto ref = [](std::uint32_t) {
        const std::string place = Place(kNowhere, kNowhere);
        return Ref(0xFFFFFFFFU, "Ctr1_123456789012345678901234567890", place) +
               Sub("XSCL", Float(99.0F)) + Sub("DODT", place) + Text("DNAM", "lost");
    };
    return Header() + Cell(std::string(70, '\x98'), Fill(size, ref));
}

std::string Lies(std::size_t size) {
    const auto lie = [](std::uint32_t i) {
        std::string data = CellStart("Lie") + Sub("NAM0", Word(0xFFFFFFFFU)) +
                           Sub("FRMR", Word(i)) + Sub("NAME", "") + Sub("DATA", "short") +
                           Sub("DODT", "") + "NAME" + Word(0xFFFFFFF0U);
        return Record("CELL", data);
    };
    std::string text = Header() + Fill(size, lie);
    return text + "CELL" + Word(0xFFFFFFFFU) + Word(0) + Word(0);
}

std::string Heart(std::size_t size) {
    const auto ref = [](std::uint32_t i) {
        return Ref(i, "s", Place(0, 0, static_cast<float>(i) * 1e-6F));
    };
    return Header() + Cell("Sphere", Fill(size, ref));
}

// All as far from the middle: whoever looks for the nearest looks at all of them.
std::string Sphere(std::size_t size) {
    const auto ref = [](std::uint32_t i) {
        const double turn = i * 2.399963;
        const double height = std::fmod(i * 0.618034, 2.0) - 1.0;
        const double radius = std::sqrt(1.0 - height * height);
        std::string place = Place(static_cast<float>(9999.0 * radius * std::cos(turn)),
                                  static_cast<float>(9999.0 * radius * std::sin(turn)),
                                  static_cast<float>(9999.0 * height));
        return Ref(i, "s", place);
    };
    return Header() + Cell("Sphere", Fill(size, ref));
}

// clang-format off
constexpr std::array kHostilities = {
    Hostility{"shared-container", "a container of many items, placed many times", SharedContainer},
    Hostility{"shared-by-levels", "a container of many items, placed in 100 cells", SharedByLevels},
    Hostility{"shared-place", "a container of many items, placed often at one place", SharedAtOnePlace},
    Hostility{"sparse-cells", "cells of 513 x 513 with three references each", SparseCells},
    Hostility{"full-rows", "100 cells with one reference at the end of each row", FullRows},
    Hostility{"rooms", "a room in every cell", Rooms},
    Hostility{"tile-pile", "tiles all in one cell", TilesAtOnePlace},
    Hostility{"far-away", "huge, endless and undefined places", FarAway},
    Hostility{"long-names", "names as long as the file", LongNames},
    Hostility{"dear-names", "names of characters that need much room", DearNames},
    Hostility{"many-cells", "cells without anything in them", ManyCells},
    Hostility{"many-containers", "containers without anything in them", ManyContainers},
    Hostility{"many-items", "items without a name", ManyItems},
    Hostility{"many-masters", "masters without a name", ManyMasters},
    Hostility{"many-tags", "records and sub-records of unknown tags", ManyTags},
    Hostility{"bare-references", "references without anything", BareRefs},
    Hostility{"doors", "doors that all lead to one place", DoorsToOnePlace},
    Hostility{"chain", "levels, each with a door to the next", Chain},
    Hostility{"same", "references and containers that are all the same", SameEverything},
    Hostility{"one-bucket", "numbers of references that collide in tables", OneBucket},
    Hostility{"faults", "references with many faults each", Faults},
    Hostility{"lies", "sizes and counts that are too large, sub-records that are too short", Lies},
    Hostility{"sphere", "references all as far from one place", Sphere},
};
// clang-format on

} // namespace

std::span<const Hostility> Hostilities() {
    return kHostilities;
}

std::string HostilePlugin(std::string_view name, std::size_t size) {
    const auto found = std::ranges::find(kHostilities, name, &Hostility::name);
    if (found == kHostilities.end()) {
        throw std::invalid_argument("no such hostility");
    }
    return found->make(size);
}

std::string HostilePartner(std::string_view name, std::size_t size) {
    return name == "sphere" ? Heart(size) : HostilePlugin(name, size / 4 * 3);
}

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
#include "tools/stage/RecordBytes.h"
#include "tools/stage/StageRecords.h"
#include "tools/stage/StageTables.h"

#include <vaultry/foundation/CsvRows.h>
#include <vaultry/foundation/Text.h>

#include <array>

namespace Tarnex::Report {

namespace {

constexpr std::string_view kRegion = "stage_region";
constexpr std::string_view kRace = "stage_race";
constexpr std::string_view kClass = "stage_class";

// Collects records and counts them.
class Records {
public:
    void Add(const RecordBytes& record) {
        bytes += record.Whole();
        ++count;
    }

    std::string bytes;
    std::uint32_t count = 0;
};

// The first letter of a setting tells its kind. A text without a value is its own name.
void AddSettings(Records& records) {
    for (const auto& [line, row, closed] : CsvRows(SettingTable())) {
        if (line == 1) {
            continue; // the names of the columns
        }
        const std::string& name = row[0];
        const std::string& value = row[1];
        RecordBytes record("GMST");
        record.Letters("NAME", name);
        if (name.front() == 's') {
            record.Letters("STRV", value.empty() ? name : value);
        } else if (name.front() == 'i') {
            record.Word("INTV", static_cast<std::uint32_t>(ParseInt(value)));
        } else {
            record.Real("FLTV", static_cast<float>(ParseReal(value)));
        }
        records.Add(record);
    }
}

void AddGlobals(Records& records) {
    struct Global {
        std::string_view name;
        std::string_view kind; // short or float
        float value;
    };
    static constexpr std::array<Global, 11> kGlobals = {{
        {"chargenstate", "s", -1},
        {"gamehour", "f", 12},
        {"day", "s", 1},
        {"month", "s", 1},
        {"year", "s", 1},
        {"dayspassed", "s", 1},
        {"timescale", "f", 30},
        {"pcrace", "s", 0},
        {"pcvampire", "s", 0},
        {"pcwerewolf", "s", 0},
        {"random100", "s", 0},
    }};
    for (const Global& global : kGlobals) {
        records.Add(RecordBytes("GLOB")
                        .Text("NAME", global.name)
                        .Letters("FNAM", global.kind)
                        .Real("FLTV", global.value));
    }
}

// The engine asks for all skills and effects by number.
void AddRules(Records& records) {
    constexpr std::uint32_t kSkills = 27;
    constexpr std::uint32_t kAttributes = 8;
    constexpr std::uint32_t kFields = 3;
    constexpr std::uint32_t kEffects = 143;
    constexpr std::uint32_t kWhite = 255;
    for (std::uint32_t i = 0; i < kSkills; ++i) {
        Bytes data;
        data.U32s({i % kAttributes, i % kFields}).F32s({1, 1, 1, 1});
        records.Add(RecordBytes("SKIL").Word("INDX", i).Part("SKDT", data).Letters("DESC", "-"));
    }
    for (std::uint32_t i = 0; i < kEffects; ++i) {
        Bytes data;
        data.U32(0).F32(1).U32s({0, kWhite, kWhite, kWhite}).F32s({1, 1, 1});
        records.Add(RecordBytes("MGEF").Word("INDX", i).Part("MEDT", data).Letters("DESC", "-"));
    }
}

// Who comes near the player asks for these in every frame.
void AddTalk(Records& records) {
    constexpr std::uint32_t kVoice = 1;
    for (const char* const topic :
         {"hello", "idle", "attack", "flee", "hit", "thief", "alarm", "intruder"}) {
        records.Add(RecordBytes("DIAL").Text("NAME", topic).Part("DATA", Bytes().U8(kVoice)));
    }
}

void AddPlayer(Records& records) {
    constexpr std::uint32_t kHalf = 50;
    Bytes work;
    work.U32s({0, 1, 0}); // attributes and field
    for (std::uint32_t skill = 0; skill < 10; ++skill) {
        work.U32(skill);
    }
    records.Add(RecordBytes("CLAS")
                    .Text("NAME", kClass)
                    .Text("FNAM", "Walker")
                    .Part("CLDT", work.U32s({1, 0})));
    Bytes kin;
    for (int i = 0; i < 7; ++i) {
        kin.U32s({0xFFFFFFFF, 0}); // no skill is better than others
    }
    for (int i = 0; i < 16; ++i) {
        kin.U32(kHalf); // attributes of men and women
    }
    kin.F32s({1, 1, 1, 1}).U32(1); // height and weight; may be played
    records.Add(RecordBytes("RACE").Text("NAME", kRace).Text("FNAM", "Walkers").Part("RADT", kin));
    Bytes state;
    state.U16(1).Fill(8, kHalf).Fill(27, 30).U8(0);        // level, attributes, skills
    state.U16(100).U16(100).U16(200).Fill(3).U8(0).U32(0); // health, magicka, fatigue, ...
    Bytes mind;
    mind.U16(30).Fill(10);
    records.Add(RecordBytes("NPC_")
                    .Text("NAME", "player")
                    .Text("MODL", "base_anim.nif")
                    .Text("FNAM", "player")
                    .Text("RNAM", kRace)
                    .Text("CNAM", kClass)
                    .Text("ANAM", "")
                    .Text("BNAM", "")
                    .Text("KNAM", "")
                    .Part("NPDT", state)
                    .Word("FLAG", 8)
                    .Part("AIDT", mind));
}

// A slope of three cells by three that climbs gently to the north, with its corner at the height
// of kLowest steps.
void AddLand(Records& records) {
    constexpr int kCells = 1;    // in each direction around the middle one
    constexpr int kEdge = 65;    // heights along one side of a cell
    constexpr int kLowest = 128; // of 8 world units
    constexpr std::uint32_t kHeightsAndNormals = 1;
    Bytes weather;
    weather.Fill(1, 100).Fill(7); // always clear
    records.Add(RecordBytes("REGN")
                    .Text("NAME", kRegion)
                    .Text("FNAM", "The Stage")
                    .Part("WEAT", weather)
                    .Word("CNAM", 0x00808080));
    for (int y = -kCells; y <= kCells; ++y) {
        for (int x = -kCells; x <= kCells; ++x) {
            const auto place = [x, y](Bytes bytes) {
                return bytes.U32(static_cast<std::uint32_t>(x)).U32(static_cast<std::uint32_t>(y));
            };
            Bytes normals;
            Bytes heights;
            heights.F32(static_cast<float>(kLowest + (kEdge - 1) * y));
            for (int row = 0; row < kEdge; ++row) {
                heights.U8(row == 0 ? 0 : 1).Fill(kEdge - 1);
                for (int column = 0; column < kEdge; ++column) {
                    normals.U8(0).U8(0xF8).U8(127); // 8 down for 128 back
                }
            }
            heights.Fill(3);
            records.Add(RecordBytes("CELL")
                            .Text("NAME", x == 0 && y == 0 ? "The Stage" : "")
                            .Part("DATA", place(Bytes().U32(2)))
                            .Text("RGNN", kRegion));
            records.Add(RecordBytes("LAND")
                            .Part("INTV", place(Bytes()))
                            .Word("DATA", kHeightsAndNormals)
                            .Part("VNML", normals)
                            .Part("VHGT", heights));
        }
    }
}

} // namespace

std::string WorldRecords(std::uint32_t& count) {
    Records records;
    for (const auto& add : {AddSettings, AddGlobals, AddRules, AddTalk, AddPlayer, AddLand}) {
        add(records);
    }
    count += records.count;
    return records.bytes;
}

} // namespace Tarnex::Report

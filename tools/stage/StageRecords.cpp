// SPDX-License-Identifier: MIT
#include "tools/stage/StageRecords.h"

#include "tools/stage/RecordBytes.h"

#include <vaultry/foundation/Text.h>

#include <array>

namespace Tarnex::Report {

namespace {

constexpr float kFormat = 1.2F;
constexpr std::uint32_t kMaster = 1; // not a plug-in
constexpr std::size_t kAuthorLength = 32;
constexpr std::size_t kDescriptionLength = 256;
constexpr std::size_t kAuthorPlace = 16 + 8 + 8; // behind two headers, version and kind
constexpr std::string_view kDescription =
    "A stage made by vaultry: boxes and bare rooms in place of the game's objects, to walk through "
    "what was generated. Nothing in it is of the game.";

using Fill = void (*)(const StandIn& standIn, RecordBytes& record);

void FillNothing(const StandIn& /*standIn*/, RecordBytes& /*record*/) {}

void FillName(const StandIn& standIn, RecordBytes& record) {
    record.Text("FNAM", standIn.name);
}

void FillContainer(const StandIn& standIn, RecordBytes& record) {
    constexpr std::uint32_t kUsual = 8;
    record.Text("FNAM", standIn.name).Real("CNDT", standIn.weight).Word("FLAG", kUsual);
}

// The game's names of lights end in their radius.
void FillLight(const StandIn& standIn, RecordBytes& record) {
    constexpr std::uint32_t kRadius = 256;
    constexpr std::uint32_t kWarm = 0x0080C0FF;
    const std::size_t mark = standIn.id.rfind('_');
    const int said = mark == std::string::npos ? 0 : ParseInt(standIn.id.substr(mark + 1));
    const std::uint32_t radius = said > 0 ? static_cast<std::uint32_t>(said) : kRadius;
    Bytes data;
    data.F32(0.0F).U32s({0, 0xFFFFFFFF, 2 * radius, kWarm, 0}); // weight, worth, time, ...
    record.Part("LHDT", data);
}

void FillCreature(const StandIn& standIn, RecordBytes& record) {
    Bytes data;
    data.U32s({0, 1}); // kind, level
    for (int i = 0; i < 8 + 3; ++i) {
        data.U32(50); // attributes, health, magicka, fatigue
    }
    data.U32s({0, 50, 50, 50});       // soul, combat, magic, stealth
    data.U32s({0, 0, 0, 0, 0, 0, 0}); // attacks, gold
    constexpr std::uint32_t kWalks = 0x48;
    record.Text("FNAM", standIn.name).Part("NPDT", data).Word("FLAG", kWalks);
    record.Part("AIDT", Bytes().Fill(12)); // it does no harm
}

void FillItem(const StandIn& standIn, RecordBytes& record) {
    Bytes data;
    data.F32(standIn.weight).U32(static_cast<std::uint32_t>(standIn.value)).U32(0);
    record.Text("FNAM", standIn.name).Part("MCDT", data);
}

// A list with one entry for everybody.
void FillList(RecordBytes& record, std::string_view tag, std::string_view entry) {
    record.Word("DATA", 1).Part("NNAM", Bytes().U8(0)).Word("INDX", 1);
    record.Text(tag, entry).Part("INTV", Bytes().U16(1));
}

void FillCreatures(const StandIn& /*standIn*/, RecordBytes& record) {
    FillList(record, "CNAM", "stage_creature");
}

void FillItems(const StandIn& /*standIn*/, RecordBytes& record) {
    FillList(record, "INAM", "stage_item");
}

struct SortRow {
    std::string_view tag;
    Fill fill;
};

// In the order of StandInSort.
constexpr std::array<SortRow, 8> kSorts = {{
    {"STAT", FillNothing},
    {"DOOR", FillName},
    {"LIGH", FillLight},
    {"CONT", FillContainer},
    {"CREA", FillCreature},
    {"LEVC", FillCreatures},
    {"MISC", FillItem},
    {"LEVI", FillItems},
}};

} // namespace

bool IsStage(std::string_view bytes) {
    return bytes.starts_with("TES3") && bytes.size() > kAuthorPlace + kAuthorLength &&
           bytes.substr(kAuthorPlace).starts_with(kStageAuthor);
}

std::string ObjectRecord(const StandIn& standIn, const std::string& model) {
    const SortRow& row = kSorts.at(static_cast<std::size_t>(standIn.sort));
    RecordBytes record(row.tag);
    record.Text("NAME", standIn.id);
    if (!model.empty()) {
        record.Text("MODL", model);
    }
    row.fill(standIn, record);
    return record.Whole();
}

std::string StageMaster(std::uint32_t count, const std::string& records) {
    Bytes header;
    header.F32(kFormat).U32(kMaster).Field(kStageAuthor, kAuthorLength);
    header.Field(kDescription, kDescriptionLength).U32(count);
    return RecordBytes("TES3").Part("HEDR", header).Whole() + records;
}

} // namespace Tarnex::Report

// SPDX-License-Identifier: MIT
#include <vaultry/output/PluginReader.h>

#include <vaultry/output/ByteNumbers.h>

#include <algorithm>
#include <span>
#include <utility>

namespace Tarnex {

namespace {

constexpr std::size_t kTagBytes = 4;
constexpr std::size_t kRecordHeader = 16; // tag, data size, reserved word, flags
constexpr std::size_t kSubHeader = 8;     // tag, data size

constexpr std::size_t kVersionPlace = 0;
constexpr std::size_t kTypePlace = 4;
constexpr std::size_t kAuthorPlace = 8;
constexpr std::size_t kAuthorBytes = 32;
constexpr std::size_t kDescriptionPlace = 40;
constexpr std::size_t kDescriptionBytes = 256;
constexpr std::size_t kCountPlace = 296;
constexpr std::size_t kHedrBytes = 300;

constexpr std::uint32_t kInterior = 1;

constexpr std::size_t kPathPointBytes = 16;
constexpr std::size_t kPathWayBytes = 4;

Di3Point PointAt(std::string_view bytes, std::size_t place) {
    return {FloatAt(bytes, place), FloatAt(bytes, place + 4), FloatAt(bytes, place + 8)};
}

PluginPlace PlaceOf(std::string_view data) {
    return {PointAt(data, 0), PointAt(data, 12)};
}

std::string TextOf(std::string_view field) {
    return std::string(field.substr(0, field.find('\0')));
}

bool IsTag(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               c == '_';
    });
}

std::string Bytes(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

struct Record {
    std::string_view tag;
    std::uint64_t offset = 0;
    std::string_view data;
    bool cut = false; // the file ends before the record does
    std::size_t used = 0;
};

struct SubRecord {
    std::string_view tag;
    std::uint64_t offset = 0;
    std::string_view data;
};

enum class Times { Once, Needed, Often };

constexpr std::size_t kAnySize = ~std::size_t{0};

// A sub-record that is known, the size that it must have, and where its data goes.
template <typename T>
struct Field {
    std::string_view tag;
    std::size_t size;
    Times times;
    void (*store)(T& target, std::string_view data);
};

// An object that is being read, and which of its fields have come.
template <typename T>
struct Filling {
    T value;
    std::uint32_t seen = 0;
};

void StoreHedr(PluginHeader& header, std::string_view data) {
    header.version = FloatAt(data, kVersionPlace);
    header.type = WordAt(data, kTypePlace);
    header.author = TextOf(data.substr(kAuthorPlace, kAuthorBytes));
    header.description = TextOf(data.substr(kDescriptionPlace, kDescriptionBytes));
    header.recordCount = WordAt(data, kCountPlace);
}

void StoreMaster(PluginHeader& header, std::string_view data) {
    header.masters.push_back({TextOf(data), 0});
}

void StoreMasterSize(PluginHeader& header, std::string_view data) {
    if (!header.masters.empty()) {
        header.masters.back().size = std::uint64_t{WordAt(data, 4)} << 32 | WordAt(data, 0);
    }
}

// An interior has its light where the others have their place.
void StoreCellData(PluginCell& cell, std::string_view data) {
    cell.flags = WordAt(data, 0);
    if ((cell.flags & kInterior) == 0) {
        cell.column = IntAt(data, 4);
        cell.row = IntAt(data, 8);
    }
}

void StoreLight(PluginCell& cell, std::string_view data) {
    cell.ambient = WordAt(data, 0);
    cell.sunlight = WordAt(data, 4);
    cell.fog = WordAt(data, 8);
    cell.fogDensity = FloatAt(data, 12);
}

void StoreWholeHeight(PluginCell& cell, std::string_view data) {
    cell.waterHeight = static_cast<float>(IntAt(data, 0));
}

void StoreRefCount(PluginCell& cell, std::string_view data) {
    cell.refCount = WordAt(data, 0);
    cell.refsBeforeCount = cell.refs.size();
}

PluginDestination& DestinationOf(PluginRef& ref) {
    return ref.destination ? *ref.destination : ref.destination.emplace();
}

void StoreArrival(PluginRef& ref, std::string_view data) {
    DestinationOf(ref).arrival = PlaceOf(data);
}

PluginLock& LockOf(PluginRef& ref) {
    return ref.lock ? *ref.lock : ref.lock.emplace();
}

// What might be a key.
struct RawItem {
    PluginKey item;
    bool isKey = false;
};

void StoreItemData(RawItem& raw, std::string_view data) {
    raw.item.weight = FloatAt(data, 0);
    raw.item.worth = IntAt(data, 4);
    raw.isKey = WordAt(data, 8) != 0;
}

// What a path grid says of its points comes in three places.
struct RawPathGrid {
    std::string cell;
    std::size_t count = 0;
    std::string_view points;
    std::string_view ways;
};

void StoreItem(PluginContainer& container, std::string_view data) {
    container.items.push_back({TextOf(data.substr(4)), IntAt(data, 0)});
}

// clang-format off
constexpr Field<PluginHeader> kHeaderFields[] = {
    {"HEDR", kHedrBytes, Times::Needed, StoreHedr},
    {"MAST", kAnySize,   Times::Often,  StoreMaster},
    {"DATA", 8,          Times::Often,  StoreMasterSize},
};

// The water height is a whole number in files of the game's first editor and of this library.
constexpr Field<PluginCell> kCellFields[] = {
    {"NAME", kAnySize, Times::Needed, [](auto& c, auto d) { c.name = TextOf(d); }},
    {"DATA", 12,       Times::Needed, StoreCellData},
    {"RGNN", kAnySize, Times::Once,   [](auto& c, auto d) { c.region = TextOf(d); }},
    {"INTV", 4,        Times::Once,   StoreWholeHeight},
    {"WHGT", 4,        Times::Once,   [](auto& c, auto d) { c.waterHeight = FloatAt(d, 0); }},
    {"AMBI", 16,       Times::Once,   StoreLight},
    {"NAM0", 4,        Times::Once,   StoreRefCount},
    {"DELE", kAnySize, Times::Once,   [](auto& c, auto) { c.deleted = true; }},
};

constexpr Field<PluginRef> kRefFields[] = {
    {"FRMR", 4,        Times::Needed, [](auto& r, auto d) { r.index = WordAt(d, 0); }},
    {"NAME", kAnySize, Times::Needed, [](auto& r, auto d) { r.id = TextOf(d); }},
    {"XSCL", 4,        Times::Once,   [](auto& r, auto d) { r.scale = FloatAt(d, 0); }},
    {"DODT", 24,       Times::Once,   StoreArrival},
    {"DNAM", kAnySize, Times::Once,   [](auto& r, auto d) { DestinationOf(r).cell = TextOf(d); }},
    {"FLTV", 4,        Times::Once,   [](auto& r, auto d) { LockOf(r).level = IntAt(d, 0); }},
    {"KNAM", kAnySize, Times::Once,   [](auto& r, auto d) { LockOf(r).key = TextOf(d); }},
    {"TNAM", kAnySize, Times::Once,   [](auto& r, auto d) { LockOf(r).trap = TextOf(d); }},
    {"DATA", 24,       Times::Needed, [](auto& r, auto d) { r.place = PlaceOf(d); }},
    {"DELE", kAnySize, Times::Once,   [](auto& r, auto) { r.deleted = true; }},
};

constexpr Field<RawPathGrid> kPathGridFields[] = {
    {"DATA", 12,       Times::Needed, [](auto& g, auto d) { g.count = WordAt(d, 8) >> 16; }},
    {"NAME", kAnySize, Times::Needed, [](auto& g, auto d) { g.cell = TextOf(d); }},
    {"PGRP", kAnySize, Times::Once,   [](auto& g, auto d) { g.points = d; }},
    {"PGRC", kAnySize, Times::Once,   [](auto& g, auto d) { g.ways = d; }},
};

constexpr Field<RawItem> kItemFields[] = {
    {"NAME", kAnySize, Times::Needed, [](auto& i, auto d) { i.item.id = TextOf(d); }},
    {"MODL", kAnySize, Times::Once,   [](auto& i, auto d) { i.item.model = TextOf(d); }},
    {"FNAM", kAnySize, Times::Once,   [](auto& i, auto d) { i.item.name = TextOf(d); }},
    {"MCDT", 12,       Times::Needed, StoreItemData},
    {"SCRI", kAnySize, Times::Once,   [](auto&, auto) {}},
    {"ITEX", kAnySize, Times::Once,   [](auto& i, auto d) { i.item.icon = TextOf(d); }},
    {"DELE", kAnySize, Times::Once,   [](auto& i, auto) { i.item.deleted = true; }},
};

constexpr Field<PluginContainer> kContainerFields[] = {
    {"NAME", kAnySize, Times::Needed, [](auto& c, auto d) { c.id = TextOf(d); }},
    {"MODL", kAnySize, Times::Once,   [](auto& c, auto d) { c.model = TextOf(d); }},
    {"FNAM", kAnySize, Times::Once,   [](auto& c, auto d) { c.name = TextOf(d); }},
    {"CNDT", 4,        Times::Needed, [](auto& c, auto d) { c.capacity = FloatAt(d, 0); }},
    {"FLAG", 4,        Times::Needed, [](auto& c, auto d) { c.flags = WordAt(d, 0); }},
    {"NPCO", 36,       Times::Often,  StoreItem},
    {"DELE", kAnySize, Times::Once,   [](auto& c, auto) { c.deleted = true; }},
};
// clang-format on

// The span of an array of fields.
template <typename T>
using Fields = std::span<const Field<T>>;

class Reader {
public:
    explicit Reader(std::string_view fileBytes) : bytes(fileBytes) {}

    PluginFile Read();

private:
    void Report(std::uint64_t offset, std::string text);

    bool NextRecord(Record& record);
    bool NextSubRecord(Record& record, SubRecord& sub);
    void ReportSubRecord(const Record& record, std::uint64_t offset, std::string_view rest);

    template <typename T>
    void Store(Fields<T> fields, Filling<T>& target, const SubRecord& sub, std::string_view owner);
    template <typename T>
    bool Finish(Fields<T> fields,
                const Filling<T>& target,
                bool cut,
                std::uint64_t offset,
                const std::string& owner);

    void ReadRecord(Record& record);
    void ReadHeader(Record& record);
    void ReadItem(Record& record);
    void ReadContainer(Record& record);
    void ReadPathGrid(Record& record);
    void ReadCell(Record& record);
    void ReadCellPart(const SubRecord& sub, Filling<PluginCell>& cell);
    void FinishRef(PluginCell& cell, bool cut);
    void SkipRecord(Record& record);

    std::string_view bytes;
    std::size_t used = 0;
    PluginFile file;
    // The reference whose sub-records are being read.
    std::optional<Filling<PluginRef>> openRef;
};

void Reader::Report(std::uint64_t offset, std::string text) {
    if (file.findings.size() < kMostPluginFindings) {
        file.findings.push_back({offset, std::move(text)});
    } else {
        ++file.findingsLeftOut;
    }
}

bool Reader::NextRecord(Record& record) {
    const std::string_view rest = bytes.substr(used);
    const std::uint64_t offset = used;
    if (rest.empty()) {
        file.complete = true;
        return false;
    }
    if (rest.size() < kRecordHeader) {
        Report(offset, Bytes(rest.size()) + " at the end of the file are no record");
        return false;
    }
    const std::string_view tag = rest.substr(0, kTagBytes);
    if (!IsTag(tag)) {
        Report(offset, "no record begins here; " + Bytes(rest.size()) + " are not read");
        return false;
    }
    const std::uint64_t size = WordAt(rest, kTagBytes);
    const std::uint64_t left = rest.size() - kRecordHeader;
    const bool cut = size > left;
    if (cut) {
        Report(offset,
               "record " + std::string(tag) + " says " + Bytes(size) + ", " + std::to_string(left) +
                   " follow");
    }
    const auto length = static_cast<std::size_t>(std::min(size, left));
    record = {tag, offset, rest.substr(kRecordHeader, length), cut};
    used += kRecordHeader + length;
    return true;
}

bool Reader::NextSubRecord(Record& record, SubRecord& sub) {
    const std::string_view rest = record.data.substr(record.used);
    if (rest.empty()) {
        return false;
    }
    const std::uint64_t offset = record.offset + kRecordHeader + record.used;
    const bool whole = rest.size() >= kSubHeader && IsTag(rest.substr(0, kTagBytes)) &&
                       WordAt(rest, kTagBytes) <= rest.size() - kSubHeader;
    if (!whole) {
        ReportSubRecord(record, offset, rest);
        record.used = record.data.size(); // nothing more of the record is certain
        return false;
    }
    sub = {rest.substr(0, kTagBytes), offset, rest.substr(kSubHeader, WordAt(rest, kTagBytes))};
    record.used += kSubHeader + sub.data.size();
    return true;
}

void Reader::ReportSubRecord(const Record& record, std::uint64_t offset, std::string_view rest) {
    const std::string owner = " of " + std::string(record.tag);
    const bool tagged = rest.size() >= kSubHeader;
    if (tagged && !IsTag(rest.substr(0, kTagBytes))) {
        Report(offset,
               "no sub-record" + owner + " begins here; " + Bytes(rest.size()) + " are not read");
    } else if (record.cut) {
        // The file ends too early, which has been said of the record.
        return;
    } else if (tagged) {
        Report(offset,
               "sub-record " + std::string(rest.substr(0, kTagBytes)) + owner + " says " +
                   Bytes(WordAt(rest, kTagBytes)) + ", " +
                   std::to_string(rest.size() - kSubHeader) + " are left in the record");
    } else {
        Report(offset, Bytes(rest.size()) + " at the end" + owner + " are no sub-record");
    }
}

template <typename T>
void Reader::Store(Fields<T> fields,
                   Filling<T>& target,
                   const SubRecord& sub,
                   std::string_view owner) {
    const auto field = std::ranges::find(fields, sub.tag, &Field<T>::tag);
    if (field == fields.end()) {
        ++file.skippedSubRecords[std::string(sub.tag)];
        return;
    }
    const auto report = [&](const std::string& fault) {
        Report(sub.offset, std::string(sub.tag) + " of " + std::string(owner) + fault);
    };
    const std::uint32_t bit = 1U << (field - fields.begin());
    if ((target.seen & bit) != 0 && field->times != Times::Often) {
        report(" stands there twice");
    }
    target.seen |= bit;
    if (field->size != kAnySize && sub.data.size() != field->size) {
        report(" has " + Bytes(sub.data.size()) + " instead of " + std::to_string(field->size));
        return;
    }
    field->store(target.value, sub.data);
}

// Reports the fields that an object lacks. Of one that the end of the file cuts short nothing can
// be demanded: such an object is left out instead, which the answer tells.
template <typename T>
bool Reader::Finish(Fields<T> fields,
                    const Filling<T>& target,
                    bool cut,
                    std::uint64_t offset,
                    const std::string& owner) {
    bool whole = true;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].times == Times::Needed && (target.seen >> i & 1U) == 0) {
            whole = false;
            if (!cut) {
                Report(offset, owner + " has no " + std::string(fields[i].tag));
            }
        }
    }
    return whole || !cut;
}

void Reader::ReadHeader(Record& record) {
    const Fields<PluginHeader> fields = kHeaderFields;
    Filling<PluginHeader> header;
    SubRecord sub;
    std::optional<std::uint64_t> master; // one whose size has not come yet
    const auto reportUnsized = [&] { Report(*master, "MAST of TES3 is not followed by its DATA"); };
    while (NextSubRecord(record, sub)) {
        const bool isSize = sub.tag == "DATA";
        if (isSize && !master) {
            Report(sub.offset, "DATA of TES3 does not follow a MAST");
            continue;
        }
        if (!isSize && master) {
            reportUnsized();
        }
        master = sub.tag == "MAST" ? std::optional(sub.offset) : std::nullopt;
        Store(fields, header, sub, record.tag);
    }
    if (master && !record.cut) {
        reportUnsized();
    }
    Finish(fields, header, record.cut, record.offset, "TES3");
    file.header = std::move(header.value);
}

void Reader::ReadContainer(Record& record) {
    const Fields<PluginContainer> fields = kContainerFields;
    Filling<PluginContainer> container;
    SubRecord sub;
    container.value.offset = record.offset;
    while (NextSubRecord(record, sub)) {
        Store(fields, container, sub, record.tag);
    }
    if (container.value.deleted || Finish(fields, container, record.cut, record.offset, "CONT")) {
        file.containers.push_back(std::move(container.value));
    }
}

void Reader::ReadItem(Record& record) {
    const Fields<RawItem> fields = kItemFields;
    Filling<RawItem> raw;
    SubRecord sub;
    raw.value.item.offset = record.offset;
    while (NextSubRecord(record, sub)) {
        Store(fields, raw, sub, record.tag);
    }
    const bool whole =
        raw.value.item.deleted || Finish(fields, raw, record.cut, record.offset, "MISC");
    // What is no key is not looked at any further.
    if (whole && raw.value.isKey) {
        file.keys.push_back(std::move(raw.value.item));
    } else {
        ++file.otherRecords[std::string(record.tag)];
    }
}

void Reader::ReadPathGrid(Record& record) {
    const Fields<RawPathGrid> fields = kPathGridFields;
    Filling<RawPathGrid> raw;
    SubRecord sub;
    while (NextSubRecord(record, sub)) {
        Store(fields, raw, sub, record.tag);
    }
    if (!Finish(fields, raw, record.cut, record.offset, "PGRD")) {
        return;
    }
    const auto& [cell, count, points, ways] = raw.value;
    PluginPathGrid& grid = file.pathGrids.emplace_back(PluginPathGrid{record.offset, cell, {}});
    std::size_t wayBytes = 0; // that the points ask for
    for (std::size_t at = 0; at + kPathPointBytes <= points.size(); at += kPathPointBytes) {
        PathPoint& point = grid.points.emplace_back(
            PathPoint{IntAt(points, at), IntAt(points, at + 4), IntAt(points, at + 8), {}});
        for (std::size_t left = WordAt(points, at + 12) >> 8 & 0xFF; left > 0; --left) {
            wayBytes += kPathWayBytes;
            if (wayBytes <= ways.size()) {
                point.ways.push_back(WordAt(ways, wayBytes - kPathWayBytes));
            }
        }
    }
    const auto check = [&](const char* what, std::size_t said, std::size_t there) {
        if (said != there && !record.cut) {
            Report(record.offset,
                   std::string("PGRD says ") + Bytes(said) + " of " + what + ", " +
                       std::to_string(there) + " are there");
        }
    };
    check("points", count * kPathPointBytes, points.size());
    check("ways", wayBytes, ways.size());
}

void Reader::FinishRef(PluginCell& cell, bool cut) {
    if (!openRef) {
        return;
    }
    PluginRef& ref = openRef->value;
    const std::string owner = "reference " + std::to_string(ref.index);
    // What else the world has is no matter of interiors, and there is much of it.
    if ((cell.flags & kInterior) == 0 && !ref.destination) {
        openRef.reset();
        return;
    }
    if (ref.deleted || Finish<PluginRef>(kRefFields, *openRef, cut, ref.offset, owner)) {
        cell.refs.push_back(std::move(ref));
    }
    openRef.reset();
}

void Reader::ReadCellPart(const SubRecord& sub, Filling<PluginCell>& cell) {
    const bool beginsRef = sub.tag == "FRMR";
    // The number of references may stand between two of them.
    if (beginsRef || sub.tag == "NAM0") {
        FinishRef(cell.value, false);
    }
    if (beginsRef) {
        openRef.emplace().value.offset = sub.offset;
    }
    if (openRef && sub.tag == "DNAM" && !openRef->value.destination) {
        Report(sub.offset, "DNAM of a reference does not follow a DODT");
    }
    if (openRef) {
        Store<PluginRef>(kRefFields, *openRef, sub, "a reference");
    } else {
        Store<PluginCell>(kCellFields, cell, sub, "CELL");
    }
}

void Reader::ReadCell(Record& record) {
    Filling<PluginCell> cell;
    SubRecord sub;
    cell.value.offset = record.offset;
    while (NextSubRecord(record, sub)) {
        ReadCellPart(sub, cell);
    }
    FinishRef(cell.value, record.cut);
    if ((cell.value.flags & kInterior) == 0) {
        ++file.exteriorCells;
        if (!cell.value.refs.empty()) {
            file.exteriors.push_back(std::move(cell.value));
        }
    } else if (Finish<PluginCell>(kCellFields, cell, record.cut, record.offset, "CELL")) {
        file.cells.push_back(std::move(cell.value));
    }
}

void Reader::SkipRecord(Record& record) {
    SubRecord sub;
    while (NextSubRecord(record, sub)) {
    }
    ++file.otherRecords[std::string(record.tag)];
    if (record.tag == "TES3") {
        Report(record.offset, "a second header stands here");
    }
}

void Reader::ReadRecord(Record& record) {
    ++file.records;
    if (record.tag == "CELL") {
        ReadCell(record);
    } else if (record.tag == "MISC") {
        ReadItem(record);
    } else if (record.tag == "CONT") {
        ReadContainer(record);
    } else if (record.tag == "PGRD") {
        ReadPathGrid(record);
    } else {
        SkipRecord(record);
    }
}

PluginFile Reader::Read() {
    file.size = bytes.size();
    file.isPlugin = bytes.size() >= kRecordHeader && bytes.starts_with("TES3");
    Record record;
    if (!file.isPlugin || !NextRecord(record)) {
        return std::move(file);
    }
    ReadHeader(record);
    while (NextRecord(record)) {
        ReadRecord(record);
    }
    file.complete = file.complete && !record.cut;
    return std::move(file);
}

} // namespace

PluginFile ReadPlugin(std::string_view bytes) {
    return Reader(bytes).Read();
}

} // namespace Tarnex

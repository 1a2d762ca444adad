// SPDX-License-Identifier: MIT
#include <vaultry/game/GameCell.h>

#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/game/GameFault.h>
#include <vaultry/output/ByteNumbers.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace Tarnex {

namespace {

constexpr std::size_t kTagBytes = 4;
constexpr std::size_t kRecordHeader = 16; // tag, data size, reserved word, flags
constexpr std::size_t kFlagsPlace = 12;
constexpr std::uint32_t kDeleted = 0x20; // of a record's flags
constexpr std::size_t kSubHeader = 8;    // tag, data size
constexpr std::uint32_t kInterior = 1;

constexpr std::size_t kMostHead = 8192; // [bytes]
constexpr std::size_t kDataBytes = 12;

constexpr std::size_t kLandPlace = 8; // of its sub-record INTV [bytes]
constexpr std::size_t kMostLand = std::size_t{1} << 20;
constexpr std::size_t kEdge = 65; // heights along one side of a cell
constexpr std::size_t kHeightBytes = 4 + kEdge * kEdge + 3;
constexpr double kHeightUnit = 8.0;   // [world units]
constexpr double kSquare = 128.0;     // between two heights [world units]
constexpr double kMostHeight = 1.0E6; // what is higher is none [world units]

// Kept of a head, in the order of the file.
constexpr std::array<std::string_view, 7> kHeadTags = {
    "NAME", "DATA", "INTV", "WHGT", "AMBI", "RGNN", "NAM5"};
// Here the references begin, or what moves those of other files.
constexpr std::array<std::string_view, 3> kRefTags = {"FRMR", "MVRF", "CNDT"};

template <std::size_t Count>
bool IsOneOf(std::string_view tag, const std::array<std::string_view, Count>& tags) {
    return std::ranges::find(tags, tag) != tags.end();
}

struct SubRecord {
    std::string_view tag;
    std::string_view data;
    std::string_view whole; // with its header
};

// Takes the next sub-record off the bytes of a record; false when there is none that is whole.
bool TakeSubRecord(std::string_view& bytes, SubRecord& sub) {
    if (bytes.size() < kSubHeader || WordAt(bytes, kTagBytes) > bytes.size() - kSubHeader) {
        return false;
    }
    const std::size_t size = WordAt(bytes, kTagBytes);
    sub = {bytes.substr(0, kTagBytes),
           bytes.substr(kSubHeader, size),
           bytes.substr(0, kSubHeader + size)};
    bytes.remove_prefix(kSubHeader + size);
    return true;
}

// The head of a cell as it is read.
struct Head {
    CellHead kept;
    std::string name;
    std::string data; // that of DATA
    bool deleted = false;
    bool whole = false; // nothing of it was left that could not be read

    bool Is(const CellAsked& asked) const {
        if (data.size() != kDataBytes) {
            return false;
        }
        if ((WordAt(data, 0) & kInterior) != 0) {
            return !asked.interior.empty() && EqualsNoCase(name, asked.interior);
        }
        return asked.interior.empty() && IntAt(data, 4) == asked.column &&
               IntAt(data, 8) == asked.row;
    }
};

// From the bytes with which a cell's record begins; `all` when they are all of it.
Head ReadHead(std::string_view bytes, bool all) {
    Head head;
    SubRecord sub;
    const auto atReferences = [&bytes] { return IsOneOf(bytes.substr(0, kTagBytes), kRefTags); };
    while (!atReferences() && TakeSubRecord(bytes, sub)) {
        if (sub.tag == "NAME") {
            head.name = sub.data.substr(0, sub.data.find('\0'));
        } else if (sub.tag == "DATA") {
            head.data = sub.data;
        } else if (sub.tag == "DELE") {
            head.deleted = true;
        }
        if (IsOneOf(sub.tag, kHeadTags)) {
            head.kept.bytes += sub.whole;
        }
    }
    head.whole = atReferences() || (bytes.empty() && all);
    return head;
}

std::optional<LandHeights> HeightsOf(std::string_view data) {
    if (data.size() != kHeightBytes) {
        return std::nullopt;
    }
    LandHeights land;
    double row = FloatAt(data, 0);
    std::size_t place = 4;
    for (std::size_t y = 0; y < kEdge; ++y) {
        double height = 0.0;
        for (std::size_t x = 0; x < kEdge; ++x, ++place) {
            const auto step = static_cast<signed char>(data[place]);
            // The first height of a row begins at that of the row before.
            row += x == 0 ? step : 0;
            height = x == 0 ? row : height + step;
            const double shown = height * kHeightUnit;
            if (!(std::abs(shown) <= kMostHeight)) {
                return std::nullopt;
            }
            land.heights.push_back(static_cast<float>(shown));
        }
    }
    return land;
}

// What a record of land says, from all of its bytes.
std::optional<LandHeights> ReadLand(std::string_view bytes) {
    std::optional<LandHeights> land;
    SubRecord sub;
    while (TakeSubRecord(bytes, sub)) {
        if (sub.tag == "VHGT") {
            land = HeightsOf(sub.data);
        }
    }
    return land;
}

// Reads a file record by record.
class Scan {
public:
    explicit Scan(std::istream& stream) : file(stream) {
        file.seekg(0, std::ios::end);
        const auto end = static_cast<std::streamoff>(file.tellg());
        size = end < 0 ? 0 : static_cast<std::uint64_t>(end);
        file.seekg(0);
    }

    void Run(const CellAsked& asked, GameCell& cell) {
        bool first = true;
        while (NextRecord()) {
            if (first && tag != "TES3") {
                throw GameFault("it is no file of the game");
            }
            first = false;
            if (tag == "CELL" && (flags & kDeleted) == 0) {
                TakeCell(asked, cell);
            } else if (tag == "LAND" && asked.interior.empty()) {
                TakeLand(asked, cell);
            }
            Skip();
        }
        if (first) {
            throw GameFault("it is empty");
        }
    }

private:
    bool NextRecord() {
        const std::uint64_t left = size - used;
        if (left == 0) {
            return false;
        }
        std::array<char, kRecordHeader> header{};
        if (left < kRecordHeader || !file.read(header.data(), kRecordHeader)) {
            throw GameFault("it ends in the middle of a record");
        }
        const std::string_view bytes(header.data(), header.size());
        tag = bytes.substr(0, kTagBytes);
        flags = WordAt(bytes, kFlagsPlace);
        used += kRecordHeader;
        recordEnd = used + WordAt(bytes, kTagBytes);
        if (recordEnd > size) {
            throw GameFault("it ends in the middle of a record");
        }
        return true;
    }

    // The next bytes of the record, at most so many.
    const std::string& Take(std::size_t most) {
        buffer.resize(static_cast<std::size_t>(std::min<std::uint64_t>(most, recordEnd - used)));
        if (!file.read(buffer.data(), static_cast<std::streamsize>(buffer.size()))) {
            throw GameFault("it cannot be read");
        }
        used += buffer.size();
        return buffer;
    }

    void Skip() {
        constexpr std::uint64_t kNear = 4096; // to go somewhere costs more than to read so much
        const std::uint64_t way = recordEnd - used;
        if (way <= kNear) {
            file.ignore(static_cast<std::streamsize>(way));
        } else {
            file.seekg(static_cast<std::streamoff>(way), std::ios::cur);
        }
        used = recordEnd;
    }

    void TakeCell(const CellAsked& asked, GameCell& cell) {
        const bool all = recordEnd - used <= kMostHead;
        Head head = ReadHead(Take(kMostHead), all);
        if (head.deleted || !head.Is(asked)) {
            return;
        }
        if (!head.whole) {
            throw GameFault("the cell in it is damaged");
        }
        cell.head = std::move(head.kept);
        cell.name = std::move(head.name);
    }

    // Its place stands before all else.
    void TakeLand(const CellAsked& asked, GameCell& cell) {
        std::string_view start = Take(kSubHeader + kLandPlace);
        SubRecord sub;
        if (!TakeSubRecord(start, sub) || sub.tag != "INTV" || sub.data.size() != kLandPlace) {
            return;
        }
        if (IntAt(sub.data, 0) == asked.column && IntAt(sub.data, 4) == asked.row) {
            cell.land = (flags & kDeleted) == 0 ? ReadLand(Take(kMostLand)) : std::nullopt;
        }
    }

    std::istream& file;
    std::uint64_t size = 0;
    std::uint64_t used = 0;
    std::uint64_t recordEnd = 0;
    std::string tag;
    std::uint32_t flags = 0;
    std::string buffer;
};

} // namespace

double HeightAt(const LandHeights& land, double x, double y) {
    const auto split = [](double place, double& rest) {
        const double square = std::clamp(std::floor(place / kSquare), 0.0, double{kEdge - 2});
        rest = std::clamp(place / kSquare - square, 0.0, 1.0);
        return static_cast<std::size_t>(square);
    };
    double right = 0.0;
    double up = 0.0;
    const std::size_t column = split(x, right);
    const std::size_t row = split(y, up);
    const auto height = [&](std::size_t east, std::size_t north) {
        return double{land.heights.at((row + north) * kEdge + column + east)};
    };
    // The squares are cut from the north-west to the south-east.
    if (1.0 - up > right) {
        return height(0, 0) + right * (height(1, 0) - height(0, 0)) +
               up * (height(0, 1) - height(0, 0));
    }
    return height(1, 1) + (1.0 - right) * (height(0, 1) - height(1, 1)) +
           (1.0 - up) * (height(1, 0) - height(1, 1));
}

void ReadGameCell(std::istream& file, const CellAsked& asked, GameCell& cell) {
    Scan(file).Run(asked, cell);
}

} // namespace Tarnex

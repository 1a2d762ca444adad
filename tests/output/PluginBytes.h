// SPDX-License-Identifier: MIT
// Reads plug-in bytes by their tags and sizes alone, and spells expected bytes out.
#pragma once

#include <vaultry/output/Element.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Test {

struct SubRecord {
    std::string tag;
    std::string data;
};

struct Record {
    std::string tag;
    std::uint32_t size = 0; ///< the size word as it stands in the header
    std::string reserved;   ///< the eight bytes behind the size word
    std::vector<SubRecord> subs;
};

/// What an element writes.
std::string Written(Element& element);

/// The bytes of pairs of hexadecimal digits; blanks are skipped.
std::string Hex(std::string_view digits);

/// `count` zero bytes.
std::string Zeros(std::size_t count);

/// The sub-records that `bytes` consists of; fails the test when a size word does not fit.
std::vector<SubRecord> WalkSubRecords(std::string_view bytes);

/// The records that `bytes` consists of; fails the test when a size word does not fit.
std::vector<Record> WalkRecords(std::string_view bytes);

/// The tags of sub-records in order, with blanks in between.
std::string Tags(const std::vector<SubRecord>& subs);

/// The name and size of the master that a header's record names: "My.esm 7".
std::string MasterOf(std::string_view bytes);

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
// Where a start tag and its attributes begin. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigRecord.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex {

/// The places of a start tag.
struct TagPlaces {
    DocumentPlace start;                                           ///< of its "<"
    std::vector<std::pair<std::string, DocumentPlace>> attributes; ///< by name, in document order
};

/// The parser tells where a start tag ends; the text before that place tells the rest. Walks
/// through the document once, from tag to tag.
class TagFinder {
public:
    /// `bytes` is the document as the parser reads it and may grow; it must outlive the finder.
    explicit TagFinder(const std::string& bytes);

    /// The places of the start tag that ends before `end`. Nothing when none ends there, as for an
    /// element that comes out of an entity, and for a place before that of an earlier call.
    std::optional<TagPlaces> Find(const DocumentPlace& end);

private:
    // A character of the document and its place.
    struct Cursor {
        std::size_t at = 0; // of its first byte
        DocumentPlace place{1, 1};
    };

    void DetectEncoding();
    /// The character as a number of its first bytes, which tells all that is ASCII; 0 at the end.
    unsigned Char(const Cursor& cursor) const;
    void Advance(Cursor& cursor) const;
    std::vector<std::pair<std::string, DocumentPlace>> Attributes(Cursor cursor) const;
    template <typename Stop>
    std::string TakeUntil(Cursor& cursor, Stop stop) const;

    const std::string& bytes;
    std::size_t width = 0; // bytes of one unit; 0 before the encoding is known
    bool littleEndian = false;
    bool utf8 = true;
    Cursor here;
    Cursor lastOpening; // the last "<" before `here`
};

} // namespace Tarnex

// SPDX-License-Identifier: MIT
// The base of everything that is written into the plug-in file.
#pragma once

#include <vaultry/foundation/DiRcObject.h>
#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace Tarnex {

/// An object that writes itself, byte-exact, in the TES3 record format.
///
/// All integers are 32-bit little-endian, all floats IEEE single precision. A record is a
/// four-letter tag, the size of its data, two words of 0, then its sub-records; a sub-record is a
/// four-letter tag, the size of its data, the data. Stream errors are left to whoever owns the
/// stream.
class VAULTRY_API Element : public DiRcObject {
public:
    /// Writes the element to a stream in binary mode. Computes its sizes first, so that whatever
    /// was changed before is counted.
    virtual void Write(std::ostream& stream) = 0;

protected:
    /// Size of a sub-record's header: tag, data size. [bytes]
    static constexpr std::uint32_t kSubHeader = 8;
    /// Size of a sub-record that holds one word. [bytes]
    static constexpr std::uint32_t kWordSub = kSubHeader + 4;

    /// Writes the value as four bytes, lowest first.
    void WriteInt(std::ostream& stream, std::int32_t value) const;

    /// Writes `text` followed by zero bytes, exactly `length` bytes in all. Text of `length` bytes
    /// or more is cut to length - 1 and logged as an error under "XmlOut". Length 0 writes nothing.
    void WriteString(std::ostream& stream, const std::string& text, std::uint32_t length) const;

    /// Writes the header of a record with `size` bytes of data.
    void WriteRecordHeader(std::ostream& stream, std::string_view tag, std::uint32_t size) const;

    /// Writes a sub-record of whole words, of at most eight.
    void WriteWords(std::ostream& stream,
                    std::string_view tag,
                    std::span<const std::uint32_t> words) const;
    /// Writes a sub-record of a single word.
    void WriteWord(std::ostream& stream, std::string_view tag, std::uint32_t word) const;

    /// Writes a sub-record whose data is the text and its closing zero byte.
    void WriteText(std::ostream& stream, std::string_view tag, const std::string& text) const;

    /// The bits of a float as they stand in the file; what is no number is one and the same there.
    static std::uint32_t FloatBits(float value);

    /// The length of the field that holds `text` and its closing zero byte. [bytes]
    static std::uint32_t FieldLength(const std::string& text);
};

} // namespace Tarnex

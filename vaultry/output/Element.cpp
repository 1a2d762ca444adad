// SPDX-License-Identifier: MIT
#include <vaultry/output/Element.h>

#include <vaultry/foundation/Problem.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <ostream>

namespace Tarnex {

namespace {

constexpr std::size_t kWordBytes = 4;
constexpr std::size_t kMaxWords = 8;

// Gathers the words of one field block, so that the stream is called once for all of them.
class WordBlock {
public:
    void Add(std::string_view tag) {
        for (const char c : tag) {
            bytes[used++] = c;
        }
    }

    void Add(std::uint32_t word) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            bytes[used++] = static_cast<char>(static_cast<unsigned char>(word >> shift));
        }
    }

    void WriteTo(std::ostream& stream) const {
        stream.write(bytes.data(), static_cast<std::streamsize>(used));
    }

private:
    std::array<char, (kMaxWords + 2) * kWordBytes> bytes;
    std::size_t used = 0;
};

void WriteZeros(std::ostream& stream, std::uint32_t count) {
    static constexpr std::array<char, 64> kZeros{};
    while (count > 0) {
        const auto part = std::min<std::uint32_t>(count, kZeros.size());
        stream.write(kZeros.data(), static_cast<std::streamsize>(part));
        count -= part;
    }
}

// Apart, since what makes a problem would slow down the writing of every text.
[[gnu::cold]] void ReportTooLong(const std::string& text, std::uint32_t length) {
    ReportProblem({ProblemKind::FieldTooLong, {text, std::to_string(static_cast<int>(length))}});
}

} // namespace

void Element::WriteInt(std::ostream& stream, std::int32_t value) const {
    WordBlock block;
    block.Add(static_cast<std::uint32_t>(value));
    block.WriteTo(stream);
}

void Element::WriteString(std::ostream& stream,
                          const std::string& text,
                          std::uint32_t length) const {
    if (length == 0) {
        return;
    }
    std::size_t kept = text.size();
    if (kept >= length) {
        ReportTooLong(text, length);
        kept = length - 1;
    }
    stream.write(text.data(), static_cast<std::streamsize>(kept));
    WriteZeros(stream, length - static_cast<std::uint32_t>(kept));
}

void Element::WriteRecordHeader(std::ostream& stream,
                                std::string_view tag,
                                std::uint32_t size) const {
    WordBlock block;
    block.Add(tag);
    block.Add(size);
    block.Add(0U); // reserved
    block.Add(0U); // flags
    block.WriteTo(stream);
}

void Element::WriteWords(std::ostream& stream,
                         std::string_view tag,
                         std::span<const std::uint32_t> words) const {
    WordBlock block;
    block.Add(tag);
    block.Add(static_cast<std::uint32_t>(words.size() * kWordBytes));
    for (const std::uint32_t word : words) {
        block.Add(word);
    }
    block.WriteTo(stream);
}

void Element::WriteWord(std::ostream& stream, std::string_view tag, std::uint32_t word) const {
    WriteWords(stream, tag, {&word, 1});
}

void Element::WriteText(std::ostream& stream, std::string_view tag, const std::string& text) const {
    const std::uint32_t length = FieldLength(text);
    WordBlock block;
    block.Add(tag);
    block.Add(length);
    block.WriteTo(stream);
    WriteString(stream, text, length);
}

// Processors differ in the sign and the rest of the bits that an undefined result has.
std::uint32_t Element::FloatBits(float value) {
    constexpr std::uint32_t kNoNumber = 0xFFC00000;
    return std::isnan(value) ? kNoNumber : std::bit_cast<std::uint32_t>(value);
}

std::uint32_t Element::FieldLength(const std::string& text) {
    return static_cast<std::uint32_t>(text.size()) + 1;
}

} // namespace Tarnex

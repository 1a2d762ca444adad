// SPDX-License-Identifier: MIT
// Bytes as the game's files hold them, the lowest of a number first.
#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// Grows by what is put behind it; every call returns the object itself.
class Bytes {
public:
    Bytes& U8(std::uint32_t value) { return Number(value, 1); }
    Bytes& U16(std::uint32_t value) { return Number(value, 2); }
    Bytes& U32(std::uint32_t value) { return Number(value, 4); }
    Bytes& F32(float value) { return U32(std::bit_cast<std::uint32_t>(value)); }

    Bytes& U32s(std::initializer_list<std::uint32_t> values) {
        for (const std::uint32_t value : values) {
            U32(value);
        }
        return *this;
    }

    Bytes& F32s(std::initializer_list<float> values) {
        for (const float value : values) {
            F32(value);
        }
        return *this;
    }

    /// The letters alone.
    Bytes& Letters(std::string_view text) {
        bytes += text;
        return *this;
    }

    /// The letters and zeros up to `length`, the last one at least. [bytes]
    Bytes& Field(std::string_view text, std::size_t length) {
        const std::string_view kept = text.substr(0, length - 1);
        bytes += kept;
        bytes.append(length - kept.size(), '\0');
        return *this;
    }

    /// The same byte several times.
    Bytes& Fill(std::size_t count, std::uint32_t value = 0) {
        bytes.append(count, static_cast<char>(value));
        return *this;
    }

    const std::string& Text() const { return bytes; }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes.size()); }

private:
    Bytes& Number(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) {
            bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
        }
        return *this;
    }

    std::string bytes;
};

} // namespace Tarnex::Report

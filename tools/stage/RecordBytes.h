// SPDX-License-Identifier: MIT
// Putting a record together.
#pragma once

#include "tools/stage/Bytes.h"

#include <string>
#include <string_view>

namespace Tarnex::Report {

/// One record; every call adds a part and returns the object itself.
class RecordBytes {
public:
    explicit RecordBytes(std::string_view recordTag) : tag(recordTag) {}

    RecordBytes& Part(std::string_view name, const Bytes& data) {
        body.Letters(name).U32(data.Size()).Letters(data.Text());
        return *this;
    }
    /// With the zero that ends it.
    RecordBytes& Text(std::string_view name, std::string_view text) {
        return Part(name, Bytes().Letters(text).U8(0));
    }
    /// Without one.
    RecordBytes& Letters(std::string_view name, std::string_view text) {
        return Part(name, Bytes().Letters(text));
    }
    RecordBytes& Word(std::string_view name, std::uint32_t word) {
        return Part(name, Bytes().U32(word));
    }
    RecordBytes& Real(std::string_view name, float value) { return Part(name, Bytes().F32(value)); }

    std::string Whole() const {
        return Bytes().Letters(tag).U32(body.Size()).U32s({0, 0}).Letters(body.Text()).Text();
    }

private:
    std::string tag;
    Bytes body;
};

} // namespace Tarnex::Report

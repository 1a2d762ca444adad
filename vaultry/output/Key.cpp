// SPDX-License-Identifier: MIT
#include <vaultry/output/Key.h>

#include <array>

namespace Tarnex {

namespace {

// Weight, worth, and the mark by which the game knows a key.
constexpr std::array<std::uint32_t, 3> kKeyData = {0, 0, 1};

} // namespace

void Key::Write(std::ostream& stream) {
    const auto sizeOf = [](const std::string& text) {
        return text.empty() ? 0 : kSubHeader + FieldLength(text);
    };
    const auto write = [&](const char* tag, const std::string& text) {
        if (!text.empty()) {
            WriteText(stream, tag, text);
        }
    };
    WriteRecordHeader(stream,
                      "MISC",
                      kSubHeader + FieldLength(id) + sizeOf(model) + sizeOf(name) + kSubHeader +
                          static_cast<std::uint32_t>(kKeyData.size()) * 4 + sizeOf(icon));
    WriteText(stream, "NAME", id);
    write("MODL", model);
    write("FNAM", name);
    WriteWords(stream, "MCDT", kKeyData);
    write("ITEX", icon);
}

} // namespace Tarnex

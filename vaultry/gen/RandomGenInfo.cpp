// SPDX-License-Identifier: MIT
#include <vaultry/gen/RandomGenInfo.h>

#include <vaultry/foundation/Text.h>

namespace Tarnex {

namespace {

std::int32_t PositionOf(const char* text, const std::vector<std::string>& words) {
    // What is no word stands for the first one: anything may come.
    if (text == nullptr) {
        return 0;
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (EqualsNoCase(text, words[i])) {
            return static_cast<std::int32_t>(i);
        }
    }
    return 0;
}

} // namespace

const std::vector<std::string>& RandomGenInfo::GetLevelSizeStrings() {
    // The positions are the values that front ends store.
    static const std::vector<std::string> words = {"Random", "Tiny", "Small", "Medium", "Large"};
    return words;
}

const std::vector<std::string>& RandomGenInfo::GetRoomSpacingStrings() {
    static const std::vector<std::string> words = {
        "Random", "Tight", "Semi-tight", "Semi-loose", "Loose"};
    return words;
}

RandomGenInfo::LevelSizeT RandomGenInfo::StringToLevelSize(const char* text) {
    return static_cast<LevelSizeT>(PositionOf(text, GetLevelSizeStrings()));
}

RandomGenInfo::RoomSpacingT RandomGenInfo::StringToRoomSpacing(const char* text) {
    return static_cast<RoomSpacingT>(PositionOf(text, GetRoomSpacingStrings()));
}

} // namespace Tarnex

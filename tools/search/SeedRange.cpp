// SPDX-License-Identifier: MIT
#include "tools/search/SeedRange.h"

#include "tools/text/UsageError.h"

#include <charconv>
#include <string>

namespace Tarnex::Search {

namespace {

constexpr std::string_view kTo = "..";

struct Reader {
    const char* option;
    const char* wanted;
    std::string_view range;

    [[noreturn]] void Refuse(const char* what) const {
        throw UsageError(std::string(option) + ": \"" + std::string(range) + "\" " + what);
    }

    std::uint32_t Number(std::string_view text) const {
        std::uint32_t number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, fault] = std::from_chars(text.data(), end, number);
        if (fault != std::errc() || stop != end) {
            Refuse(wanted);
        }
        return number;
    }

    SeedRange Range() const {
        const std::size_t to = range.find(kTo);
        const std::uint32_t first = Number(range.substr(0, to));
        const std::uint32_t last =
            to == std::string_view::npos ? first : Number(range.substr(to + kTo.size()));
        if (last < first) {
            Refuse("runs backwards");
        }
        return {first, last};
    }
};

} // namespace

SeedRange ParseSeedRange(std::string_view text) {
    constexpr const char* kWanted = "is no range of seeds such as 1..1000, from 0 to 4294967295";
    return Reader{"--seeds", kWanted, text}.Range();
}

SeedRange ParseSample(std::string_view text) {
    constexpr const char* kWanted =
        "is neither a number of seeds such as 1000 nor a range such as 1001..2000";
    const Reader reader{"--sample", kWanted, text};
    SeedRange range = reader.Range();
    if (range.first == 0) {
        reader.Refuse(kWanted);
    }
    range.first = text.find(kTo) == std::string_view::npos ? 1 : range.first;
    return range;
}

} // namespace Tarnex::Search

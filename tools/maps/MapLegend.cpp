// SPDX-License-Identifier: MIT
#include "tools/maps/MapLegend.h"

#include "tools/maps/SvgText.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kColumn = 150;
constexpr std::int32_t kRow = 30;

// Where a line is full it is broken in front of what each part begins with.
void AppendWrapped(std::vector<std::string>& lines,
                   const std::string& text,
                   const char* partBegin,
                   std::size_t most) {
    lines.emplace_back();
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t next = std::min(text.find(partBegin, start + 1), text.size());
        const std::string part = text.substr(start, next - start);
        if (lines.back().size() + part.size() > most && !lines.back().empty()) {
            lines.emplace_back(part.substr(part.front() == ' ' ? 1 : 0));
        } else {
            lines.back() += part;
        }
        start = next;
    }
}

} // namespace

std::string MapLegend(const LegendNeeds& needs, std::int32_t width, std::int32_t& height) {
    const std::int32_t columns = std::max(width / kColumn, 1);
    std::string text;
    std::int32_t number = 0;
    for (const LegendItem& item : LegendItems(needs)) {
        const std::int32_t row = number / columns;
        text += SvgMoved(number % columns * kColumn,
                         row * kRow,
                         std::string(item.drawing) + '\n' + SvgTextAt("", 31, 16, item.words));
        ++number;
    }
    height = (number + columns - 1) / columns * kRow;
    return text;
}

std::vector<std::string> CaptionLines(const MapCaption& caption, std::int32_t width) {
    constexpr std::int32_t kLetter = 7; // mean width
    const auto most = static_cast<std::size_t>(std::max(width / kLetter, 1));
    std::vector<std::string> lines;
    lines.push_back("vaultry " VAULTRY_VERSION ", configuration " + ForTerminal(caption.config));
    if (caption.plugin.empty()) {
        lines.back() += ", seed " + std::to_string(caption.seed);
    } else {
        lines.push_back("drawn from " + ForTerminal(caption.plugin));
    }
    if (!caption.options.empty()) {
        AppendWrapped(lines, caption.options, " --", most);
    }
    for (const std::string& line : caption.chosen) {
        AppendWrapped(lines, line, " ", most);
    }
    return lines;
}

} // namespace Tarnex::Report

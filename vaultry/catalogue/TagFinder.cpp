// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/TagFinder.h>

#include <vaultry/catalogue/EncodingFault.h>
#include <vaultry/foundation/Text.h>

#include <string_view>
#include <tuple>

namespace Tarnex {

namespace {

constexpr unsigned kAscii = 0x80;

bool Before(const DocumentPlace& a, const DocumentPlace& b) {
    return std::tie(a.line, a.column) < std::tie(b.line, b.column);
}

bool IsSpace(unsigned c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool EndsTag(unsigned c) {
    return c == '>' || c == '/' || c == 0;
}

bool IsUtf8(std::string_view document) {
    const std::string_view declared = DeclaredEncoding(document);
    return declared.empty() || EqualsNoCase(declared.substr(0, 5), "UTF-8");
}

} // namespace

TagFinder::TagFinder(const std::string& bytes_) : bytes(bytes_) {}

void TagFinder::DetectEncoding() {
    using namespace std::string_view_literals;
    const std::string_view text = bytes;
    littleEndian = text.starts_with("\xFF\xFE"sv) || text.starts_with("<\0"sv);
    const bool wide = littleEndian || text.starts_with("\xFE\xFF"sv) || text.starts_with("\0<"sv);
    width = wide ? 2 : 1;
    const bool marked = wide && !text.starts_with('<') && !text.starts_with('\0');
    if (marked) {
        here.at = width;
    } else if (text.starts_with("\xEF\xBB\xBF"sv)) {
        here.at = 3;
    }
    utf8 = !wide && IsUtf8(text.substr(here.at));
}

unsigned TagFinder::Char(const Cursor& cursor) const {
    if (cursor.at + width > bytes.size()) {
        return 0;
    }
    const auto byte = [this](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    if (width == 1) {
        return byte(cursor.at);
    }
    const unsigned first = byte(cursor.at);
    const unsigned second = byte(cursor.at + 1);
    return littleEndian ? second << 8U | first : first << 8U | second;
}

// Columns count as the parser counts them, in units of UTF-16.
void TagFinder::Advance(Cursor& cursor) const {
    const unsigned c = Char(cursor);
    cursor.at += width;
    if (c == '\n' || (c == '\r' && Char(cursor) != '\n')) {
        ++cursor.place.line;
        cursor.place.column = 1;
        return;
    }
    if (c == '\r') {
        return;
    }
    const bool continuation = utf8 && (c & 0xC0U) == 0x80U;
    const bool pair = utf8 && c >= 0xF0U;
    cursor.place.column += continuation ? 0 : (pair ? 2 : 1);
}

template <typename Stop>
std::string TagFinder::TakeUntil(Cursor& cursor, Stop stop) const {
    std::string taken;
    for (unsigned c = Char(cursor); c != 0 && !stop(c); c = Char(cursor)) {
        taken += c < kAscii ? static_cast<char>(c) : '?';
        Advance(cursor);
    }
    return taken;
}

// The parser has found the tag to be well formed.
std::vector<std::pair<std::string, DocumentPlace>> TagFinder::Attributes(Cursor cursor) const {
    std::vector<std::pair<std::string, DocumentPlace>> found;
    TakeUntil(cursor, [](unsigned c) { return IsSpace(c) || EndsTag(c); });
    while (true) {
        TakeUntil(cursor, [](unsigned c) { return !IsSpace(c); });
        if (EndsTag(Char(cursor))) {
            return found;
        }
        const DocumentPlace place = cursor.place;
        found.emplace_back(TakeUntil(cursor, [](unsigned c) { return IsSpace(c) || c == '='; }),
                           place);
        TakeUntil(cursor, [](unsigned c) { return c == '"' || c == '\''; });
        const unsigned quote = Char(cursor);
        Advance(cursor);
        TakeUntil(cursor, [quote](unsigned c) { return c == quote; });
        Advance(cursor);
    }
}

std::optional<TagPlaces> TagFinder::Find(const DocumentPlace& end) {
    if (width == 0) {
        DetectEncoding();
    }
    unsigned last = 0;
    while (Before(here.place, end) && here.at < bytes.size()) {
        last = Char(here);
        if (last == '<') {
            lastOpening = here;
        }
        Advance(here);
    }
    if (last != '>' || Before(end, here.place)) {
        return std::nullopt;
    }
    return TagPlaces{lastOpening.place, Attributes(lastOpening)};
}

} // namespace Tarnex

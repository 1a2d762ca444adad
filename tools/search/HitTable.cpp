// SPDX-License-Identifier: MIT
#include "tools/search/HitTable.h"

#include "tools/text/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>

#include <charconv>
#include <utility>

namespace Tarnex::Search {

namespace {

using Bytes = std::char_traits<char>;

constexpr const char* kCommand = "command";

std::vector<std::string> Columns() {
    std::vector<std::string> columns = Report::FactNames();
    columns.emplace_back(kCommand);
    return columns;
}

std::size_t ColumnCount() {
    return Report::Facts().size() + 1;
}

} // namespace

void WriteCsv(const std::vector<Hit>& hits, std::ostream& out) {
    out << JoinWords(Columns(), ",") << '\n';
    for (const Hit& hit : hits) {
        std::string line;
        for (const std::int64_t value : hit.values) {
            line += std::to_string(value) + ',';
        }
        out << line << ForTable(hit.command) << '\n';
    }
}

HitReader::HitReader(std::istream& in, std::string fileName)
    : bytes(*in.rdbuf()), name(std::move(fileName)) {
    if (AtEnd() || NextFields() != Columns()) {
        Refuse("these are not the columns that this version of vaultry search --csv writes");
    }
}

std::optional<Hit> HitReader::Next() {
    return AtEnd() ? std::nullopt : std::optional(ParseHit(NextFields()));
}

void HitReader::Refuse(const std::string& what) const {
    throw UsageError('"' + name + "\", line " + std::to_string(start) + ": " + what);
}

bool HitReader::AtEnd() const {
    return bytes.sgetc() == Bytes::eof();
}

char HitReader::Take() {
    const char c = Bytes::to_char_type(bytes.sbumpc());
    line += c == '\n' ? 1U : 0U;
    if (++length > kLongestRow) {
        Refuse("a line is longer than " + std::to_string(kLongestRow) +
               " bytes, so this is no table that vaultry search --csv wrote");
    }
    return c;
}

// Fields in quotation marks may hold commas and line ends. More fields than there are columns are
// not kept: the row is refused for them.
HitReader::Fields HitReader::NextFields() {
    start = line;
    length = 0;
    Fields fields(1);
    bool quoted = false;
    while (!AtEnd()) {
        const char c = Take();
        if (quoted && c == '"' && bytes.sgetc() == Bytes::to_int_type('"')) {
            fields.back() += Take();
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && c == '\n') {
            return fields;
        } else if (!quoted && c == ',') {
            if (fields.size() > ColumnCount()) {
                fields.pop_back();
            }
            fields.emplace_back();
        } else if (quoted || c != '\r') {
            fields.back() += c;
        }
    }
    Refuse(quoted ? "the quotation mark is never closed" : "the last line is cut off");
}

Hit HitReader::ParseHit(const Fields& fields) const {
    if (fields.size() != ColumnCount()) {
        Refuse(std::to_string(ColumnCount()) + " columns are expected, not " +
               (fields.size() > ColumnCount() ? "more" : std::to_string(fields.size())));
    }
    Hit hit;
    for (std::size_t i = 0; i < Report::Facts().size(); ++i) {
        const std::string& field = fields[i];
        const char* const end = field.data() + field.size();
        std::int64_t& value = hit.values.emplace_back();
        const auto [stop, fault] = std::from_chars(field.data(), end, value);
        if (fault != std::errc() || stop != end) {
            Refuse(Report::Quote(field) + " under \"" + std::string(Report::Facts()[i].name) +
                   "\" is no whole number");
        }
    }
    hit.command = fields.back();
    return hit;
}

} // namespace Tarnex::Search

// SPDX-License-Identifier: MIT
#include "apps/search/HitTable.h"

#include "apps/report/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>

#include <charconv>
#include <iterator>

namespace Tarnex::Search {

namespace {

constexpr const char* kCommand = "command";

// Takes one record after another; fields in quotation marks may hold commas and line ends.
class RecordReader {
public:
    RecordReader(std::string_view csv, const std::string& fileName) : text(csv), name(fileName) {}

    bool AtEnd() const { return place == text.size(); }

    std::vector<std::string> Next() {
        start = line;
        std::vector<std::string> fields(1);
        bool quoted = false;
        while (!AtEnd()) {
            const char c = text[place++];
            line += c == '\n' ? 1U : 0U;
            const bool doubled = quoted && c == '"' && !AtEnd() && text[place] == '"';
            if (doubled) {
                fields.back() += c;
                ++place;
            } else if (c == '"') {
                quoted = !quoted;
            } else if (!quoted && c == '\n') {
                return fields;
            } else if (!quoted && c == ',') {
                fields.emplace_back();
            } else if (quoted || c != '\r') {
                fields.back() += c;
            }
        }
        Refuse(quoted ? "the quotation mark is never closed" : "the last line is cut off");
    }

    [[noreturn]] void Refuse(const std::string& what) const {
        throw UsageError('"' + name + "\", line " + std::to_string(start) + ": " + what);
    }

private:
    std::string_view text;
    const std::string& name;
    std::size_t place = 0;
    std::uint64_t line = 1;
    std::uint64_t start = 1; // of the present record
};

std::vector<std::string> Columns() {
    std::vector<std::string> columns = Report::FactNames();
    columns.emplace_back(kCommand);
    return columns;
}

Hit ParseHit(const std::vector<std::string>& fields, const RecordReader& reader) {
    const std::size_t facts = Report::Facts().size();
    if (fields.size() != facts + 1) {
        reader.Refuse(std::to_string(facts + 1) + " columns are expected, not " +
                      std::to_string(fields.size()));
    }
    Hit hit;
    for (std::size_t i = 0; i < facts; ++i) {
        const std::string& field = fields[i];
        const char* const end = field.data() + field.size();
        std::int64_t& value = hit.values.emplace_back();
        const auto [stop, fault] = std::from_chars(field.data(), end, value);
        if (fault != std::errc() || stop != end) {
            reader.Refuse("\"" + field + "\" under \"" + std::string(Report::Facts()[i].name) +
                          "\" is no whole number");
        }
    }
    hit.command = fields.back();
    return hit;
}

} // namespace

void WriteCsv(const std::vector<Hit>& hits, std::ostream& out) {
    std::string line;
    for (const std::string& column : Columns()) {
        line += (line.empty() ? "" : ",") + column;
    }
    out << line << '\n';
    for (const Hit& hit : hits) {
        line.clear();
        for (const std::int64_t value : hit.values) {
            line += std::to_string(value) + ',';
        }
        out << line << ForTable(hit.command) << '\n';
    }
}

std::vector<Hit> ReadCsv(std::istream& in, const std::string& name) {
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    RecordReader reader(text, name);
    if (reader.AtEnd() || reader.Next() != Columns()) {
        throw UsageError('"' + name +
                         "\", line 1: these are not the columns that this version of " +
                         "vaultry search --csv writes");
    }
    std::vector<Hit> hits;
    while (!reader.AtEnd()) {
        const std::vector<std::string> fields = reader.Next();
        hits.push_back(ParseHit(fields, reader));
    }
    return hits;
}

} // namespace Tarnex::Search

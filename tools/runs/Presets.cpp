// SPDX-License-Identifier: MIT
#include "tools/runs/Presets.h"

#include "tools/text/Json.h"
#include "tools/text/NearNames.h"
#include "tools/text/OrdinaryFile.h"
#include "tools/text/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/run/BuiltinConfigs.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace Tarnex::Report {

namespace {

constexpr const char* kConfig = "config";

// Counts the lines of what the parser has taken.
class CountedText {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountedText(const char* start, std::size_t& lineCount) : at(start), lines(&lineCount) {}

    reference operator*() const { return *at; }
    CountedText& operator++() {
        *lines += *at == '\n' ? 1U : 0U;
        ++at;
        return *this;
    }
    bool operator==(const CountedText& other) const { return at == other.at; }
    bool operator!=(const CountedText& other) const { return at != other.at; }

private:
    const char* at;
    std::size_t* lines;
};

std::vector<std::string> OptionNames() {
    std::vector<std::string> names = {kConfig};
    for (const OptionRow& row : RunOptionRows()) {
        names.emplace_back(row.name);
    }
    return names;
}

class PresetReader : public nlohmann::json_sax<Json> {
public:
    PresetReader(const std::string& fileName, const std::size_t& lineRead)
        : file(fileName), line(lineRead) {}

    std::vector<Preset> presets;

    bool null() override { Fail("null sets nothing; leave the option out"); }
    bool boolean(bool value) override { return Take(value ? "true" : "false"); }
    bool number_integer(number_integer_t value) override { return Take(std::to_string(value)); }
    bool number_unsigned(number_unsigned_t value) override { return Take(std::to_string(value)); }
    bool number_float(number_float_t /*value*/, const string_t& text) override {
        return Take(text);
    }
    bool string(string_t& value) override {
        if (place == Place::Preset && word == "name") {
            Name(value);
        } else if (place == Place::Preset && word == "description") {
            presets.back().description = value;
        } else {
            Take(value);
        }
        return true;
    }
    bool binary(binary_t& /*value*/) override { return false; }

    bool start_array(std::size_t /*count*/) override {
        Require(place == Place::File, "a list stands where it means nothing");
        place = Place::List;
        return true;
    }
    bool end_array() override {
        place = Place::File;
        return true;
    }

    bool start_object(std::size_t /*count*/) override {
        if (place == Place::List) {
            presets.push_back({file, {}, {}, {}});
            place = Place::Preset;
            return true;
        }
        Require(place == Place::Preset && word == "options", kWhole);
        place = Place::Options;
        return true;
    }
    bool end_object() override {
        if (place == Place::Options) {
            place = Place::Preset;
            return true;
        }
        Require(!presets.back().name.empty(), "a preset has no \"name\"");
        place = Place::List;
        return true;
    }

    bool key(string_t& name) override {
        word = name;
        wordLine = line;
        const std::vector<std::string> known =
            place == Place::Options ? OptionNames()
                                    : std::vector<std::string>{"name", "description", "options"};
        // The nearest names take long to find: not for every word that is right.
        if (std::ranges::find(known, name) == known.end()) {
            Fail((place == Place::Options ? "there is no option " : "a preset has no part ") +
                 Quote(name) + "; " + OfferNames(name, known));
        }
        return true;
    }

    bool parse_error(std::size_t /*position*/,
                     const std::string& /*token*/,
                     const nlohmann::detail::exception& e) override {
        // Behind the parser's own name for the fault and its own count of lines.
        const std::string text = e.what();
        const std::size_t colon = text.find(": ");
        wordLine = line;
        Fail("this is no JSON: " + text.substr(colon == std::string::npos ? 0 : colon + 2));
    }

private:
    enum class Place { File, List, Preset, Options };

    static constexpr const char* kWhole = "presets are a list of objects with \"name\", "
                                          "\"description\" and \"options\"";

    [[noreturn]] void Fail(const std::string& why) const {
        throw UsageError("the presets " + Quote(file) + ", line " + std::to_string(wordLine + 1) +
                         ": " + why);
    }

    void Require(bool condition, const std::string& why) {
        if (!condition) {
            Fail(why);
        }
    }

    void Name(const std::string& name) {
        Require(!name.empty(), "the name is empty");
        Require(
            std::ranges::none_of(
                presets, [&name](const Preset& other) { return EqualsNoCase(other.name, name); }),
            "there are two presets " + Quote(name) + "; give one another name");
        presets.back().name = name;
    }

    bool Take(const std::string& text) {
        Require(place == Place::Options, kWhole);
        if (word != kConfig) {
            RunOptions scratch;
            const std::string fault = SetOption(scratch, *FindRunOption(word), text);
            Require(fault.empty(), Quote(word) + ": " + Quote(text) + ' ' + fault);
        }
        presets.back().options.push_back({word, text, wordLine + 1});
        return true;
    }

    std::string file;
    const std::size_t& line;
    Place place = Place::File;
    std::string word;         // the key whose value comes next,
    std::size_t wordLine = 0; // and where it stands, counted from 0
};

} // namespace

const std::vector<Preset>& BuiltinPresetList() {
    static const std::vector<Preset> presets = ReadPresets(BuiltinPresets(), "presets.json");
    return presets;
}

std::vector<Preset> ReadPresets(std::string_view text, const std::string& file) {
    std::size_t lines = 0;
    PresetReader reader(file, lines);
    const char* const begin = text.data();
    Json::sax_parse(CountedText(begin, lines), CountedText(begin + text.size(), lines), &reader);
    if (reader.presets.empty()) {
        throw UsageError("the presets " + Quote(file) + " hold none");
    }
    return std::move(reader.presets);
}

std::vector<Preset> ReadPresetFile(const std::string& path) {
    RequireOrdinaryFile(path);
    std::ifstream stream(PathFromUtf8(path), std::ios::binary);
    if (!stream) {
        throw UsageError("the presets " + Quote(path) + " cannot be opened");
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return ReadPresets(text, path);
}

const Preset& FindPreset(const std::vector<Preset>& presets, const std::string& name) {
    std::vector<std::string> names;
    for (const Preset& preset : presets) {
        if (EqualsNoCase(preset.name, name)) {
            return preset;
        }
        names.push_back(preset.name);
    }
    throw UsageError("there is no preset " + Quote(name) + "; " + OfferNames(name, names));
}

const Preset& PresetOfSeed(const std::vector<Preset>& presets, std::uint32_t seed) {
    constexpr std::uint32_t kStride = 2654435769U;
    const std::uint32_t far = seed * kStride;
    return presets[std::uint64_t{far} * presets.size() >> 32U];
}

void Apply(const Preset& preset, RunRequest& request) {
    for (const auto& [name, text, line] : preset.options) {
        if (name == kConfig) {
            request.config = text;
        } else {
            SetOption(request, *FindRunOption(name), text);
        }
    }
}

} // namespace Tarnex::Report

// SPDX-License-Identifier: MIT
// Every run of tests/golden, compared byte for byte.
#include "cli/CommandLine.h"

#include <vaultry/foundation/Random.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;

std::filesystem::path GoldenFolder() {
    return std::filesystem::path(VAULTRY_SOURCE_DIR) / "tests" / "golden";
}

struct GoldenCase {
    std::string name;
    std::string config; // relative to the folder
    std::string cell;
    std::uint64_t seed = 0;
    std::uint64_t stamp = 0;
    std::vector<std::string> options;
    bool written = false;
    std::size_t draws = 0;
};

void PrintTo(const GoldenCase& golden, std::ostream* stream) {
    *stream << golden.name;
}

std::vector<GoldenCase> AllCases() {
    std::vector<GoldenCase> cases;
    for (const Json& entry : Json::parse(ReadFile(GoldenFolder() / "cases.json"))) {
        GoldenCase& golden = cases.emplace_back();
        entry.at("name").get_to(golden.name);
        entry.at("config").get_to(golden.config);
        entry.at("cell").get_to(golden.cell);
        entry.at("seed").get_to(golden.seed);
        entry.at("stamp").get_to(golden.stamp);
        entry.at("options").get_to(golden.options);
        entry.at("written").get_to(golden.written);
        entry.at("draws").get_to(golden.draws);
    }
    return cases;
}

std::string TestName(const ::testing::TestParamInfo<GoldenCase>& info) {
    std::string name = info.param.name;
    std::ranges::replace_if(
        name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

constexpr const char* kFatal = "Error : XML Parser : Fatal Error parsing XML";

// Ends each line that reports a fatal error of the XML parser where the parser's own words begin.
std::string WithoutParserWords(const std::string& log) {
    std::istringstream lines(log);
    std::string cut;
    for (std::string line; std::getline(lines, line);) {
        cut += (line.starts_with(kFatal) ? kFatal : line) + '\n';
    }
    return cut;
}

::testing::AssertionResult SameBytes(const std::string& actual, const std::string& expected) {
    const auto [place, other] = std::ranges::mismatch(actual, expected);
    if (place == actual.end() && other == expected.end()) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << actual.size() << " bytes instead of " << expected.size()
                                         << ", the first difference at " << place - actual.begin();
}

class GoldenTest : public ProgramTest, public ::testing::WithParamInterface<GoldenCase> {
protected:
    static std::string Golden(const std::string& name) { return ReadFile(GoldenFolder() / name); }

    // The arguments of the case's run, which writes to the folder of the test.
    std::vector<std::string> Arguments() const {
        const GoldenCase& golden = GetParam();
        std::vector<std::string> arguments = {"generate",
                                              "--config",
                                              (GoldenFolder() / golden.config).string(),
                                              "--cell",
                                              golden.cell,
                                              "--seed",
                                              std::to_string(golden.seed),
                                              "--stamp",
                                              std::to_string(golden.stamp),
                                              "--out",
                                              File("out.esp"),
                                              "--log",
                                              File("out.log")};
        arguments.insert(arguments.end(), golden.options.begin(), golden.options.end());
        // A case that names no size leaves it to chance, as the generator itself does.
        if (std::ranges::find(golden.options, "--size") == golden.options.end()) {
            arguments.insert(arguments.end(), {"--size", "random"});
        }
        // The library uses what it has read of a broken configuration; the program when it is told.
        if (Contains(Golden("logs/" + golden.name + ".log"), kFatal)) {
            arguments.emplace_back("--keep-going");
        }
        return arguments;
    }
};

TEST_P(GoldenTest, GivesTheSamePluginAndLog) {
    const GoldenCase& golden = GetParam();
    const Outcome outcome = Run(Arguments());
    EXPECT_EQ(outcome.status, golden.written ? 0 : 1) << outcome.err;
    EXPECT_EQ(WithoutParserWords(Read("out.log")), Golden("logs/" + golden.name + ".log"));
    if (golden.written) {
        EXPECT_TRUE(SameBytes(Read("out.esp"), Golden("plugins/" + golden.name + ".esp")));
    } else {
        EXPECT_EQ(Files(), std::vector<std::string>{"out.log"});
    }
}

// Collects every draw in the form of the golden files.
class DrawList {
public:
    DrawList() { RecordDraws(Add, this); }
    ~DrawList() { RecordDraws(nullptr, nullptr); }
    DrawList(const DrawList&) = delete;
    DrawList& operator=(const DrawList&) = delete;

    const std::vector<std::string>& Lines() const { return lines; }

private:
    static void Add(const RandomDraw& draw, void* context) {
        const std::string bound = draw.bound == kUnitBound ? "unit" : std::to_string(draw.bound);
        static_cast<DrawList*>(context)->lines.push_back(std::to_string(draw.index) + ' ' + bound +
                                                         ' ' + std::to_string(draw.value));
    }

    std::vector<std::string> lines;
};

// Where two builds part ways is told by the first draw that differs.
TEST_P(GoldenTest, DrawsTheSameNumbers) {
    const GoldenCase& golden = GetParam();
    std::ostringstream out;
    std::ostringstream err;
    const DrawList draws;
    Cli::RunCommandLine(Arguments(), {out, err});
    EXPECT_EQ(draws.Lines().size(), golden.draws);
    std::istringstream expected(Golden("draws/" + golden.name + ".txt"));
    std::size_t number = 0;
    for (std::string line; std::getline(expected, line); ++number) {
        ASSERT_LT(number, draws.Lines().size());
        ASSERT_EQ(draws.Lines()[number], line);
    }
}

INSTANTIATE_TEST_SUITE_P(All, GoldenTest, ::testing::ValuesIn(AllCases()), TestName);

} // namespace

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
// Names that could drive a terminal, forge lines, turn the direction of text or break a document,
// put wherever the program takes a text: what leaves it, on its streams and in its files, is
// harmless.
#ifndef _WIN32

#include "cli/CommandHelp.h"
#include "cli/CommandLine.h"

#include <nlohmann/json.hpp>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/output/Mod.h>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Words = std::vector<std::string>;

// Each may be the name of a file too.
const Words kHostileNames = {
    "a\x1B[2J\x07\x01\tb\x7F",
    "a\nvaultry: forged\rb",
    "a\u0080\u0085\u009B\u009Fb",
    "a\x9B"
    "2Jb\xED\xA0\x80\xC0\x8A\xFF",
    "a\u202E\u202A\u2066\u2069\u200E\u200F\u061C\u2028\u2029b",
    "a\uFFFE\uFFFFb",
    "=1+1,\"<b>&'$(id)`id`;|",
    "-x\x1B",
    "@a\\b",
};

// The same in fewer names, where there is much to try them with.
Words FewNames() {
    const auto end = kHostileNames.begin() + 6;
    Words names(end, kHostileNames.end());
    names.push_back(JoinWords({kHostileNames.begin(), end}, " "));
    return names;
}

bool IsUtf8(const std::string& text) {
    try {
        Json(text).dump();
        return true;
    } catch (const Json::type_error&) {
        return false;
    }
}

// No control character but for the ends of lines, no mark that turns text, and valid UTF-8.
void ExpectHarmless(const std::string& text, const std::string& what) {
    for (const char c : text) {
        ASSERT_TRUE((static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) || c == '\n')
            << what << ":\n"
            << text;
    }
    for (int c1 = 0x80; c1 <= 0x9F; ++c1) {
        ASSERT_FALSE(Contains(text, std::string("\xC2") + static_cast<char>(c1))) << what;
    }
    for (const char* mark : {"\u061C",
                             "\u200E",
                             "\u200F",
                             "\u2028",
                             "\u2029",
                             "\u202A",
                             "\u202B",
                             "\u202C",
                             "\u202D",
                             "\u202E",
                             "\u2066",
                             "\u2067",
                             "\u2068",
                             "\u2069"}) {
        ASSERT_FALSE(Contains(text, mark)) << what << ":\n" << text;
    }
    ASSERT_TRUE(IsUtf8(text)) << what << ":\n" << text;
    ASSERT_FALSE(Contains(text, "\nvaultry: forged")) << what << ":\n" << text;
}

class Complaints : public xercesc::HandlerBase {
public:
    void fatalError(const xercesc::SAXParseException& fault) override {
        char* text = xercesc::XMLString::transcode(fault.getMessage());
        first = std::to_string(fault.getLineNumber()) + ": " + text;
        xercesc::XMLString::release(&text);
        throw fault;
    }
    std::string first;
};

// What a parser has against a document; empty when it is well-formed.
std::string XmlFault(const std::string& xml) {
    Complaints complaints;
    xercesc::SAXParser parser;
    parser.setErrorHandler(&complaints);
    parser.setLoadExternalDTD(false);
    const xercesc::MemBufInputSource source(
        reinterpret_cast<const XMLByte*>(xml.data()), xml.size(), "document");
    try {
        parser.parse(source);
    } catch (const xercesc::SAXParseException&) {
    }
    return complaints.first;
}

void ExpectHarmlessLog(const std::string& log, const std::string& what) {
    for (const char c : log) {
        const auto byte = static_cast<unsigned char>(c);
        ASSERT_TRUE(byte >= 0x20 || c == '\t' || c == '\n' || c == '\r') << what << ":\n" << log;
    }
}

void ExpectHarmlessFile(const fs::path& file) {
    const std::string what = file.filename().string();
    const std::string text = ReadFile(file);
    if (what.ends_with(".log")) {
        ExpectHarmlessLog(text, what);
    } else if (what.ends_with(".svg") || what.ends_with(".html")) {
        ExpectHarmless(text, what);
        EXPECT_EQ(XmlFault(text), "") << what << ":\n" << text;
    } else if (what.ends_with(".csv")) {
        ExpectHarmless(text, what);
    }
}

// Runs the program within the test, in a folder of its own: there is much to try.
class HostileTextTest : public ProgramTest {
protected:
    HostileTextTest() : before(fs::current_path()) {
        xercesc::XMLPlatformUtils::Initialize();
        fs::current_path(PathFromUtf8(File("")));
    }
    ~HostileTextTest() override {
        fs::current_path(before);
        xercesc::XMLPlatformUtils::Terminate();
    }

    // Runs the program and looks at all that leaves it.
    Outcome Try(const Words& arguments) const {
        std::ostringstream out;
        std::ostringstream err;
        const int status = Cli::RunCommandLine(arguments, {out, err, true, false});
        const std::string what =
            Json(arguments).dump(-1, ' ', true, Json::error_handler_t::replace);
        ExpectHarmless(out.str(), "standard output of " + what);
        ExpectHarmless(WithoutProgress(err.str()), "standard error of " + what);
        if (out.str().starts_with('{')) {
            EXPECT_TRUE(Json::accept(out.str())) << what;
        }
        for (const auto& entry : fs::recursive_directory_iterator(".")) {
            if (entry.is_regular_file()) {
                ExpectHarmlessFile(entry.path());
            }
        }
        return {status, out.str(), err.str()};
    }

    // All the words of a call that would succeed, but for those of one option.
    Words UsualWords(const std::string& verb, const std::string& option) const {
        static const std::vector<Words> kUsual = {
            {"generate", "--fixed", "-c", smallConfig, "-o", "usual.esp", "--log", "usual.log"},
            {"map", "--fixed", "-c", smallConfig, "--log", "usual.log"},
            {"search", "--fixed", "-c", smallConfig, "--seeds", "1..2", "--csv", "usual.csv"},
            {"list", "-c", smallConfig},
        };
        Words words = {verb};
        for (const Words& usual : kUsual) {
            for (std::size_t i = 1; usual[0] == verb && i < usual.size(); ++i) {
                const bool left = LongName(usual[i]) == option;
                i += left ? 1 : 0;
                if (!left) {
                    words.push_back(usual[i]);
                }
            }
        }
        return words;
    }

    void KeepOnly(const Words& kept) const {
        for (const std::string& name : Files()) {
            if (std::ranges::find(kept, name) == kept.end()) {
                fs::remove_all(PathFromUtf8(File(name)));
            }
        }
    }

    // A name that is no UTF-8 is a file that cannot be opened to the parser.
    void TryConfig(const std::string& config) const {
        const int status = IsUtf8(config) ? 0 : 1;
        EXPECT_EQ(Try({"list", "-c", config, "--json"}).status == 0, status == 0);
        Try({"check", config});
        Try({"check", config, "--json"});
        Try({"map", "--fixed", "-c", config});
        Try({"search", "--fixed", "-c", config, "--seeds", "1", "--csv", "b.csv"});
        Try({"generate", "--fixed", "-c", config, "-o", "b.esp", "--json", "--log", "b.log"});
        Try({"generate",
             "--fixed",
             "-c",
             config,
             "-o",
             "b.esp",
             "--map",
             "b.svg",
             "--html",
             "b.html"});
        EXPECT_EQ(Contains(Read("b.svg"), "configuration ./"), status == 0);
        EXPECT_EQ(Contains(Read("b.html"), "configuration ./"), status == 0);
    }

private:
    // On a terminal the progress returns to the start of its line.
    static std::string WithoutProgress(std::string text) {
        std::erase(text, '\r');
        return text;
    }

    static std::string LongName(const std::string& option) {
        return option == "-c" ? "--config" : option == "-o" ? "--out" : option;
    }

    fs::path before;
};

// The end that the value of an option needs to be accepted.
std::string EndOf(const std::string& option) {
    static const std::vector<std::array<std::string, 2>> kEnds = {
        {"--map", ".svg"}, {"--html", ".html"}, {"--csv", ".csv"}, {"--log", ".log"}};
    for (const auto& [name, end] : kEnds) {
        if (name == option) {
            return end;
        }
    }
    return "";
}

TEST_F(HostileTextTest, AsTheValueOfEveryOption) {
    std::size_t options = 0;
    for (const Cli::VerbHelp& verb : Cli::DescribeCommandLine().verbs) {
        for (const Cli::OptionHelp& option : verb.options) {
            if (option.value.empty()) {
                continue;
            }
            ++options;
            for (const std::string& name : FewNames()) {
                const std::string spelling = option.names.empty() ? "" : option.names.back();
                Words words = UsualWords(verb.name, spelling);
                const std::string value = name + EndOf(spelling);
                words.push_back(spelling.empty() ? value : spelling + '=' + value);
                Try(words);
                KeepOnly({});
            }
        }
    }
    EXPECT_GT(options, 60U);
}

TEST_F(HostileTextTest, AsAVerbASwitchAndAWordTooMany) {
    for (const std::string& name : kHostileNames) {
        EXPECT_EQ(Try({name}).status, 2);
        EXPECT_EQ(Try({"list", "--" + name}).status, 2);
        EXPECT_EQ(Try({"list", "--json", "-" + name}).status, 2);
        EXPECT_EQ(Try({"list", name}).status, 2);
    }
}

TEST_F(HostileTextTest, AsTheNameOfWhatIsRead) {
    ASSERT_EQ(Try({"generate", "--fixed", "-c", smallConfig, "-o", "a.esp"}).status, 0);
    ASSERT_EQ(
        Try({"search", "-c", smallConfig, "--fixed", "--seeds", "1", "--csv", "a.csv"}).status, 0);
    for (const std::string& name : kHostileNames) {
        const std::string config = "./" + name + ".xml";
        const std::string plugin = "./" + name + ".esp";
        const std::string table = "./" + name + ".csv";
        fs::copy_file(PathFromUtf8(smallConfig), PathFromUtf8(config));
        fs::copy_file("a.esp", PathFromUtf8(plugin));
        fs::copy_file("a.csv", PathFromUtf8(table));
        TryConfig(config);
        for (const std::string form : {"--quiet", "--json"}) {
            Try({"inspect", plugin, form});
            Try({"diff", plugin, "a.esp", form});
            Try({"search", "--merge", table, "--csv", "c.csv", form});
            Try({"map", plugin, "-c", smallConfig, form});
        }
        EXPECT_EQ(Try({"inspect", plugin}).status, 0);
        EXPECT_EQ(
            Try({"map", plugin, "-c", smallConfig, "--map", "c.svg", "--html", "c.html"}).status,
            0);
        EXPECT_TRUE(Contains(Read("c.svg"), "drawn from ./"));
        KeepOnly({"a.csv", "a.esp"});
    }
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
        text.replace(at, what.size(), with);
    }
    return text;
}

// As it may stand in a document: what is markup or a control character by its number.
std::string ForXml(const std::string& name) {
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = byte > 0x7F || std::isalnum(byte) != 0;
        text += plain ? std::string(1, c) : "&#" + std::to_string(byte) + ';';
    }
    return text;
}

TEST_F(HostileTextTest, AsNamesInAConfiguration) {
    std::size_t read = 0;
    for (const std::string version : {"1.0", "1.1"}) {
        for (const std::string& name : kHostileNames) {
            std::string text = ReadFile(PathFromUtf8(faultyConfig));
            text = Replaced(text, "version=\"1.0\"", "version=\"" + version + '"');
            for (const std::string place : {"Stone",
                                            "Höhle",
                                            "Cavern",
                                            "Chamber",
                                            "Spot",
                                            "Den",
                                            "chest",
                                            "Chest",
                                            "coin",
                                            "Storeroom",
                                            "Bare",
                                            "Undead",
                                            "Coins",
                                            "s_wall",
                                            "Gold",
                                            "CornerNE"}) {
                text = Replaced(text, place, ForXml(name) + place);
            }
            Write("a.xml", text);
            read += Try({"list", "-c", "a.xml"}).status == 0 ? 1 : 0;
            Try({"list", "-c", "a.xml", "--json"});
            Try({"list", "-c", "a.xml", "--strict"});
            Try({"check", "a.xml"});
            Try({"check", "a.xml", "--json"});
            Try({"generate",
                 "-c",
                 "a.xml",
                 "--fixed",
                 "-o",
                 "a.esp",
                 "--json",
                 "--log",
                 "a.log",
                 "--map",
                 "a.svg",
                 "--html",
                 "a.html"});
            Try({"generate", "-c", "a.xml", "-o", "b.esp", "--size", "tiny", "--tileset", "x"});
            Try({"generate",
                 "-c",
                 "a.xml",
                 "-o",
                 "b.esp",
                 "--fixed",
                 "--tileset",
                 name + "Stone",
                 "--theme",
                 name + "Bare",
                 "--log",
                 "b.log"});
            Try({"map", "-c", "a.xml", "--fixed"});
            Try({"map", "-c", "a.xml", "--json", "--fixed"});
            Try({"map", "-c", "a.xml", "--size", "tiny"});
            Try({"search",
                 "-c",
                 "a.xml",
                 "--fixed",
                 "--seeds",
                 "1..2",
                 "--csv",
                 "a.csv",
                 "--template",
                 name + "Den"});
            Try({"search", "-c", "a.xml", "--size", "tiny", "--seeds", "1..2", "--json"});
            Try({"inspect", "a.esp", "--refs"});
            Try({"map", "a.esp", "-c", "a.xml", "--html", "b.html"});
        }
    }
    EXPECT_GT(read, kHostileNames.size());
}

void WritePlugin(const std::string& file, const std::string& name, float x) {
    Mod mod;
    mod.SetMasterFile(name.c_str(), 7);
    const DiPtr<Container> chest = mod.CreateContainer();
    chest->SetId((name + "1").c_str());
    chest->SetModelName(name.c_str());
    chest->SetFriendlyName(name.c_str());
    chest->Add(name.c_str(), 2);
    for (const std::string cell : {"Hall", "Room", "Room"}) {
        Ref thing(name.c_str());
        thing.position = Di3Point(x, 0.0F, 0.0F);
        Ref door((name + "door").c_str());
        Ref arrival((name + "Hall").c_str());
        door.Teleport(arrival);
        Ref box((name + "1").c_str());
        const DiPtr<Cell> made = mod.CreateCell((name + cell).c_str());
        made->AddRef(thing);
        made->AddRef(door);
        made->AddRef(box);
    }
    std::ofstream stream(PathFromUtf8(file), std::ios::binary);
    mod.Write(stream);
}

TEST_F(HostileTextTest, AsNamesInAPlugin) {
    Words names = kHostileNames;
    // Every byte that a name can hold.
    for (int first = 1; first < 256; first += 16) {
        std::string& name = names.emplace_back();
        for (int byte = first; byte < first + 16 && byte < 256; ++byte) {
            name += static_cast<char>(byte);
        }
    }
    for (const std::string& name : names) {
        WritePlugin("a.esp", name, 1.0F);
        WritePlugin("b.esp", name + '2', 2.0F);
        EXPECT_LT(Try({"inspect", "a.esp"}).status, 2);
        EXPECT_LT(Try({"inspect", "a.esp", "--refs"}).status, 2);
        EXPECT_LT(Try({"inspect", "a.esp", "--json"}).status, 2);
        EXPECT_EQ(Try({"diff", "a.esp", "b.esp"}).status, 1);
        EXPECT_EQ(Try({"diff", "a.esp", "b.esp", "--json"}).status, 1);
        EXPECT_EQ(Try({"map", "a.esp"}).status, 0);
        EXPECT_EQ(
            Try({"map", "a.esp", "--map", "a.svg", "--html", "a.html", "--log", "a.log"}).status,
            0);
        Try({"map", "a.esp", "--json", "--cell", ToUtf8(name) + "Hall"});
    }
}

TEST_F(HostileTextTest, AsCellsOfATable) {
    ASSERT_EQ(
        Try({"search", "-c", smallConfig, "--fixed", "--seeds", "1", "--csv", "good.csv"}).status,
        0);
    const std::string good = Read("good.csv");
    const std::size_t row = good.find('\n') + 1;
    for (const std::string& name : kHostileNames) {
        const std::string cell = '"' + Replaced(name, "\"", "\"\"") + '"';
        const Words tables = {cell + good,
                              good.substr(0, row) + cell + good.substr(row),
                              good.substr(0, good.rfind(',') + 1) + cell + '\n',
                              good.substr(0, good.size() - 2) + cell.substr(1) + '\n'};
        for (const std::string& table : tables) {
            Write("a", table);
            EXPECT_EQ(Try({"search", "--merge", "a"}).status, 2);
            EXPECT_EQ(
                Try({"search", "--merge", "good.csv", "a", "--json", "--csv", "b.csv"}).status, 2);
        }
    }
}

} // namespace

} // namespace Tarnex::Test

#else
#include <tests/support/LeftOut.h>
VAULTRY_LEFT_OUT_ON_WINDOWS(HostileTextTest, "has no such names of files")
#endif

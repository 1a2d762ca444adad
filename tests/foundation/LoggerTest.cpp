// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

// A working folder for the time of a test.
class CurrentPath {
public:
    explicit CurrentPath(const std::filesystem::path& folder)
        : before(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~CurrentPath() { std::filesystem::current_path(before); }
    CurrentPath(const CurrentPath&) = delete;
    CurrentPath& operator=(const CurrentPath&) = delete;

private:
    std::filesystem::path before;
};

class LoggerTest : public LogTest {
protected:
    std::string LogBytes() const { return ReadFile(PathFromUtf8(logFile)); }
};

// Begins where a front end begins: no log is open.
class UnopenedLoggerTest : public LogTest {
protected:
    UnopenedLoggerTest() {
        Logger::Close();
        std::filesystem::remove(PathFromUtf8(logFile));
    }

    std::string Bytes(const char* name) const { return ReadFile(dir.Path() / name); }
    bool Exists(const char* name) const { return std::filesystem::exists(dir.Path() / name); }
};

TEST_F(LoggerTest, WritesAnInfoLine) {
    Logger::WriteInfo("GenMgr", "%d rooms of %s", 12, "stone");
    EXPECT_EQ(LogBytes(), "Info : GenMgr : 12 rooms of stone\n");
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(LoggerTest, WritesAWarningLineThatIsNotKept) {
    Logger::DebugError("Generator", "tile %u", 7U);
    EXPECT_EQ(LogBytes(), "Warning : Generator : tile 7\n");
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(LoggerTest, WritesAndKeepsAnErrorLine) {
    Logger::WriteError("GenHall", "no way to room %d", 3);
    EXPECT_EQ(LogBytes(), "Error : GenHall : no way to room 3\n");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : GenHall : no way to room 3"}));
}

TEST_F(LoggerTest, KeepsErrorsInTheOrderTheyWereLogged) {
    Logger::WriteError("GenMgr", "first");
    Logger::WriteInfo("GenMgr", "in between");
    Logger::DebugError("GenMgr", "in between");
    Logger::WriteError("XmlOut", "second");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : GenMgr : first", "Error : XmlOut : second"}));
    EXPECT_EQ(LogLines(),
              (Lines{"Error : GenMgr : first",
                     "Info : GenMgr : in between",
                     "Warning : GenMgr : in between",
                     "Error : XmlOut : second"}));
}

TEST_F(LoggerTest, ResetErrorsLeavesTheFile) {
    Logger::WriteError("GenMgr", "old");
    Logger::ResetErrors();
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_EQ(LogBytes(), "Error : GenMgr : old\n");
    Logger::WriteError("GenMgr", "new");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : GenMgr : new"}));
    EXPECT_EQ(LogBytes(), "Error : GenMgr : old\nError : GenMgr : new\n");
}

TEST_F(LoggerTest, EachLineIsInTheFileAtOnceAndEndsWithLineFeed) {
    Logger::WriteInfo("A", "one");
    EXPECT_EQ(LogBytes(), "Info : A : one\n");
    Logger::DebugError("A", "two");
    EXPECT_EQ(LogBytes(), "Info : A : one\nWarning : A : two\n");
    Logger::WriteError("A", "three");
    EXPECT_EQ(LogBytes(), "Info : A : one\nWarning : A : two\nError : A : three\n");
}

TEST_F(LoggerTest, AMessageOf4096BytesIsWhole) {
    const std::string message(4096, 'm');
    Logger::WriteError("S", "%s", message.c_str());
    EXPECT_EQ(LogBytes(), "Error : S : " + message + "\n");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : " + message}));
}

TEST_F(LoggerTest, AMessageIsCutAt4096Bytes) {
    const std::string message = std::string(4095, 'm') + "nop";
    const std::string cut = std::string(4095, 'm') + "n";
    Logger::WriteError("S", "%s", message.c_str());
    EXPECT_EQ(LogBytes(), "Error : S : " + cut + "\n");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : " + cut}));
}

TEST_F(LoggerTest, AMessageOf5000CharactersIsLoggedAsItsFirst4096) {
    const std::string message = std::string(4096, 'a') + std::string(904, 'b');
    const std::string cut(4096, 'a');
    Logger::WriteInfo("Info", "%s", message.c_str());
    Logger::DebugError("Debug", "%s", message.c_str());
    Logger::WriteError("Error", "%s", message.c_str());
    EXPECT_EQ(
        LogLines(),
        (Lines{"Info : Info : " + cut, "Warning : Debug : " + cut, "Error : Error : " + cut}));
}

TEST_F(LoggerTest, ALongSourceDoesNotShortenTheMessage) {
    const std::string source(5000, 's');
    const std::string message(4096, 'm');
    Logger::WriteInfo(source.c_str(), "%s", message.c_str());
    EXPECT_EQ(LogBytes(), "Info : " + source + " : " + message + "\n");
}

TEST_F(LoggerTest, BytesOfTheCodePageReachTheFileAsTheyAre) {
    Logger::WriteError("S", "caf\xE9 %s", "\x80\x81\xFF");
    EXPECT_EQ(LogBytes(), "Error : S : caf\xE9 \x80\x81\xFF\n");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : caf\xE9 \x80\x81\xFF"}));
}

TEST_F(LoggerTest, WhatNoConfigurationCanHoldIsReplacedInTheFileAlone) {
    Logger::WriteError("XmlOut", "a\x01\x1B[2J\tb\r\nc\x7F\x9B");
    EXPECT_EQ(LogBytes(), "Error : XmlOut : a??[2J\tb\r\nc\x7F\x9B\n");
    EXPECT_EQ(ErrorLines(), Lines{"Error : XmlOut : a\x01\x1B[2J\tb\r\nc\x7F\x9B"});
}

TEST_F(LoggerTest, AnEmptyMessageIsALineLikeAnyOther) {
    Logger::WriteInfo("S", "%s", "");
    EXPECT_EQ(LogBytes(), "Info : S : \n");
}

TEST_F(LoggerTest, OnlyTheFirstInitHasAnEffect) {
    Logger::Init(dir.File("second.log").c_str());
    Logger::WriteInfo("S", "text");
    EXPECT_EQ(LogBytes(), "Info : S : text\n");
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "second.log"));
}

TEST_F(LoggerTest, ClosingLetsTheLogBeginAnew) {
    Logger::WriteError("S", "one");
    Logger::Close();
    Logger::Init(dir.File("second.log").c_str());
    Logger::WriteInfo("S", "two");
    EXPECT_EQ(LogBytes(), "Error : S : one\n");
    EXPECT_EQ(ReadFile(dir.Path() / "second.log"), "Info : S : two\n");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : one"}));
}

TEST_F(UnopenedLoggerTest, TheFirstLineOpensLogTxt) {
    const CurrentPath here(dir.Path());
    Logger::WriteInfo("S", "lazy");
    EXPECT_EQ(Bytes("Log.txt"), "Info : S : lazy\n");
    Logger::Close();
}

TEST_F(UnopenedLoggerTest, EveryKindOfLineOpensLogTxt) {
    const CurrentPath here(dir.Path());
    Logger::DebugError("S", "lazy");
    EXPECT_EQ(Bytes("Log.txt"), "Warning : S : lazy\n");
    Logger::Close();
    Logger::WriteError("S", "lazy");
    EXPECT_EQ(Bytes("Log.txt"), "Error : S : lazy\n");
    Logger::Close();
}

TEST_F(UnopenedLoggerTest, InitAfterTheFirstLineChangesNothing) {
    const CurrentPath here(dir.Path());
    Logger::WriteInfo("S", "one");
    Logger::Init(logFile.c_str());
    Logger::WriteInfo("S", "two");
    EXPECT_EQ(Bytes("Log.txt"), "Info : S : one\nInfo : S : two\n");
    EXPECT_FALSE(Exists("run.log"));
    Logger::Close();
}

TEST_F(UnopenedLoggerTest, InitNamesTheFileBeforeTheFirstLine) {
    const CurrentPath here(dir.Path());
    Logger::Init(logFile.c_str());
    Logger::WriteInfo("S", "one");
    EXPECT_EQ(Bytes("run.log"), "Info : S : one\n");
    EXPECT_FALSE(Exists("Log.txt"));
}

TEST_F(UnopenedLoggerTest, InitWithoutANameMeansLogTxt) {
    const CurrentPath here(dir.Path());
    Logger::Init(nullptr);
    EXPECT_TRUE(Exists("Log.txt"));
    Logger::Close();
    std::filesystem::remove(dir.Path() / "Log.txt");
    Logger::Init("");
    EXPECT_TRUE(Exists("Log.txt"));
    Logger::Close();
}

TEST_F(UnopenedLoggerTest, InitEmptiesAFileThatExists) {
    const std::string file = dir.Write("run.log", "yesterday's lines\n");
    Logger::Init(file.c_str());
    EXPECT_EQ(Bytes("run.log"), "");
    Logger::WriteInfo("S", "today");
    EXPECT_EQ(Bytes("run.log"), "Info : S : today\n");
}

TEST_F(UnopenedLoggerTest, ResettingOrReadingErrorsOpensNoLog) {
    const CurrentPath here(dir.Path());
    Logger::ResetErrors();
    EXPECT_TRUE(Logger::GetErrors().empty());
    EXPECT_FALSE(Exists("Log.txt"));
}

TEST_F(UnopenedLoggerTest, AFileThatCannotBeOpenedDropsLinesAndKeepsErrors) {
    const CurrentPath here(dir.Path());
    Logger::Init(dir.File("missing/run.log").c_str());
    Logger::WriteInfo("S", "dropped");
    Logger::DebugError("S", "dropped");
    Logger::WriteError("S", "kept %d", 1);
    Logger::WriteError("S", "kept %d", 2);
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : kept 1", "Error : S : kept 2"}));
    EXPECT_FALSE(Exists("missing"));
    EXPECT_FALSE(Exists("Log.txt"));
}

TEST_F(UnopenedLoggerTest, APathThatIsNotUtf8IsOneThatCannotBeOpened) {
    const CurrentPath here(dir.Path());
    Logger::Init("no\xFF\xFEsuch/run.log");
    Logger::WriteError("S", "kept");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : kept"}));
    EXPECT_FALSE(Exists("Log.txt"));
}

TEST_F(UnopenedLoggerTest, AFailedInitIsStillTheFirst) {
    Logger::Init(dir.File("missing/run.log").c_str());
    Logger::Init(logFile.c_str());
    Logger::WriteInfo("S", "dropped");
    EXPECT_FALSE(Exists("run.log"));
}

TEST_F(UnopenedLoggerTest, AFreshLogOpensAfterAFailedOneWasClosed) {
    Logger::Init(dir.File("missing/run.log").c_str());
    Logger::WriteInfo("S", "dropped");
    Logger::Close();
    Logger::Init(logFile.c_str());
    Logger::WriteInfo("S", "written");
    EXPECT_EQ(Bytes("run.log"), "Info : S : written\n");
}

TEST_F(LoggerTest, AWholeLogHasNoFault) {
    Logger::WriteInfo("S", "text");
    EXPECT_FALSE(Logger::GetFault());
}

TEST_F(UnopenedLoggerTest, AFileThatCannotBeOpenedIsAFaultUntilTheLogIsClosed) {
    Logger::Init(dir.File("missing/run.log").c_str());
    Logger::WriteInfo("S", "dropped");
    EXPECT_EQ(Logger::GetFault(), std::errc::no_such_file_or_directory);
    Logger::Close();
    EXPECT_FALSE(Logger::GetFault());
    Logger::InitWithoutFile();
    Logger::WriteInfo("S", "nowhere");
    EXPECT_FALSE(Logger::GetFault());
}

#ifndef _WIN32
TEST_F(UnopenedLoggerTest, ADiskWithoutSpaceIsAFaultFromTheFirstLineOn) {
    Logger::Init("/dev/full");
    EXPECT_FALSE(Logger::GetFault());
    Logger::WriteInfo("S", "dropped");
    EXPECT_EQ(Logger::GetFault(), std::errc::no_space_on_device);
    Logger::WriteError("S", "kept");
    EXPECT_EQ(Logger::GetFault(), std::errc::no_space_on_device);
    EXPECT_EQ(ErrorLines(), Lines{"Error : S : kept"});
}
#endif

TEST_F(UnopenedLoggerTest, WithoutAFileOnlyErrorsAreKept) {
    const CurrentPath here(dir.Path());
    Logger::InitWithoutFile();
    Logger::Init(logFile.c_str());
    Logger::WriteInfo("S", "nowhere");
    Logger::WriteError("S", "kept");
    EXPECT_EQ(ErrorLines(), (Lines{"Error : S : kept"}));
    EXPECT_FALSE(Exists("Log.txt"));
    EXPECT_FALSE(Exists("run.log"));
}

TEST_F(UnopenedLoggerTest, TheNameOfTheFileIsUtf8) {
    const std::string file = dir.File("gr\xC3\xBC\xC3\x9F"
                                      "e \xE2\x82\xAC.log");
    Logger::Init(file.c_str());
    Logger::WriteInfo("S", "text");
    EXPECT_EQ(ReadFile(dir.Path() / std::filesystem::path(u8"gr\u00FC\u00DFe \u20AC.log")),
              "Info : S : text\n");
}

} // namespace

} // namespace Tarnex::Test

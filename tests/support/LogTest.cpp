// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>

#include <sstream>
#include <tests/support/LogTest.h>

namespace Tarnex::Test {

LogTest::LogTest() : logFile(dir.File("run.log")) {
    Logger::Close();
    Logger::ResetErrors();
    Logger::Init(logFile.c_str());
}

LogTest::~LogTest() {
    Logger::Close();
    Logger::ResetErrors();
}

std::vector<std::string> LogTest::LogLines() const {
    std::istringstream text(ReadFile(PathFromUtf8(logFile)));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> LogTest::ErrorLines() {
    return Logger::GetErrors();
}

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <sys/wait.h>
#include <tests/cli/Process.h>

namespace Tarnex::Test {

namespace {

std::string Quoted(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + '\'';
}

} // namespace

int RunProgram(const ProcessPlace& place, const std::vector<std::string>& arguments) {
    return RunProgramAfter("cd .", place, arguments);
}

int RunProgramAfter(const std::string& preparation,
                    const ProcessPlace& place,
                    const std::vector<std::string>& arguments) {
    std::string command =
        "cd " + Quoted(place.folder) + " && " + preparation + " && " + Quoted(VAULTRY_PROGRAM);
    for (const std::string& argument : arguments) {
        command += ' ' + Quoted(argument);
    }
    command += " >" + Quoted(place.out) + " 2>" + Quoted(place.err);
    const int result = std::system(command.c_str());
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
}

} // namespace Tarnex::Test

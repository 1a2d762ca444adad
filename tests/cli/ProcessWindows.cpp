// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>

#include <stdexcept>
#include <tests/cli/Process.h>

#include <windows.h>

namespace Tarnex::Test {

namespace {

// As programs take their command lines apart: a quotation mark is preceded by a backslash, and
// backslashes in front of one, or at the end, are doubled.
std::wstring Quoted(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') {
            quoted.append(backslashes + 1, L'\\');
        }
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

std::wstring Wide(const std::string& utf8) {
    return PathFromUtf8(utf8).wstring();
}

HANDLE CreateInherited(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE file = CreateFileW(Wide(path).c_str(),
                                    GENERIC_WRITE,
                                    FILE_SHARE_READ,
                                    &inherited,
                                    CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL,
                                    nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("cannot write " + path);
    }
    return file;
}

int WaitFor(const PROCESS_INFORMATION& process) {
    constexpr DWORD kFaults = 0xC0000000; // and above: what ends a process from outside
    DWORD status = kFaults;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status < kFaults ? static_cast<int>(status) : -1;
}

} // namespace

int RunProgram(const ProcessPlace& place, const std::vector<std::string>& arguments) {
    std::wstring line = Quoted(Wide(VAULTRY_PROGRAM));
    for (const std::string& argument : arguments) {
        line += L' ' + Quoted(Wide(argument));
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = CreateInherited(place.out);
    start.hStdError = CreateInherited(place.err);
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(nullptr,
                                        line.data(),
                                        nullptr,
                                        nullptr,
                                        TRUE,
                                        0,
                                        nullptr,
                                        Wide(place.folder).c_str(),
                                        &start,
                                        &process);
    CloseHandle(start.hStdOutput);
    CloseHandle(start.hStdError);
    return started == 0 ? -1 : WaitFor(process);
}

} // namespace Tarnex::Test

// SPDX-License-Identifier: MIT
// The worker processes of Windows: the program started again, each with two pipes.
//
// Processes cannot be copied there. A worker runs the same command line from its beginning until it
// comes to its own pool, and there it serves instead of having workers.
#include "tools/search/WorkerLife.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>

#include <windows.h>

namespace Tarnex::Search {

namespace {

constexpr std::size_t kBlock = 65536; // read at once [bytes]

// Tells a process that it is a worker: the numbers of its pipe's ends, to read from and to write
// to.
constexpr const wchar_t* kEndsVariable = L"VAULTRY_WORKER_PIPES";

[[noreturn]] void Fail() {
    throw std::system_error(static_cast<int>(GetLastError()),
                            std::system_category(),
                            "a worker process cannot be started");
}

// A handle that is closed at the end.
class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : value(handle) {}
    ~Handle() { Close(); }
    Handle(Handle&& other) noexcept : value(std::exchange(other.value, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(value, other.value);
        return *this;
    }

    HANDLE Get() const { return value; }

    void Close() {
        if (value != nullptr && value != INVALID_HANDLE_VALUE) {
            CloseHandle(value);
        }
        value = nullptr;
    }

private:
    HANDLE value = nullptr;
};

struct Pipe {
    Handle read;
    Handle write;
};

Pipe MakePipe() {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    if (CreatePipe(&read, &write, nullptr, kBlock) == 0) {
        Fail();
    }
    return {Handle(read), Handle(write)};
}

void LetInherit(const Handle& handle) {
    if (SetHandleInformation(handle.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) == 0) {
        Fail();
    }
}

// False when the other side is gone.
bool SendAll(HANDLE pipe, std::string_view text) {
    while (!text.empty()) {
        DWORD sent = 0;
        if (WriteFile(pipe, text.data(), static_cast<DWORD>(text.size()), &sent, nullptr) == 0) {
            return false;
        }
        text.remove_prefix(sent);
    }
    return true;
}

// Waits for something and appends it; false at the end.
bool Receive(HANDLE pipe, std::string& text) {
    std::array<char, kBlock> block{};
    DWORD size = 0;
    if (ReadFile(pipe, block.data(), kBlock, &size, nullptr) == 0 || size == 0) {
        return false;
    }
    text.append(block.data(), size);
    return true;
}

[[noreturn]] void Work(const Pipe& ends, const WorkerPool::Serve& serve) {
    LiveAsWorker(
        serve,
        [&ends](std::string& text) { return Receive(ends.read.Get(), text); },
        [&ends](std::string_view text) { return SendAll(ends.write.Get(), text); });
}

std::uintptr_t NumberOf(const Handle& handle) {
    return reinterpret_cast<std::uintptr_t>(handle.Get());
}

// The ends of a worker's pipes, if this process is one.
std::optional<Pipe> EndsOfWorker() {
    std::array<wchar_t, 64> text{};
    const DWORD size = GetEnvironmentVariableW(kEndsVariable, text.data(), text.size());
    if (size == 0 || size >= text.size()) {
        return std::nullopt;
    }
    SetEnvironmentVariableW(kEndsVariable, nullptr);
    std::wistringstream numbers(text.data());
    std::uintptr_t read = 0;
    std::uintptr_t write = 0;
    numbers >> read >> write;
    Pipe ends{Handle(reinterpret_cast<HANDLE>(read)), Handle(reinterpret_cast<HANDLE>(write))};
    if (GetFileType(ends.read.Get()) != FILE_TYPE_PIPE) {
        Work(ends, {}); // nobody to work for
    }
    return ends;
}

// What a process is started with besides its command line: two handles, and none of the others.
class StartSettings {
public:
    explicit StartSettings(const Pipe& ends) : handles{ends.read.Get(), ends.write.Get()} {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        buffer.resize(size);
        info.StartupInfo.cb = sizeof info;
        info.StartupInfo.dwFlags = STARTF_USESTDHANDLES; // there are no standard streams
        info.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(buffer.data());
        if (InitializeProcThreadAttributeList(info.lpAttributeList, 1, 0, &size) == 0 ||
            UpdateProcThreadAttribute(info.lpAttributeList,
                                      0,
                                      PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                      handles.data(),
                                      sizeof handles,
                                      nullptr,
                                      nullptr) == 0) {
            Fail();
        }
    }
    ~StartSettings() { DeleteProcThreadAttributeList(info.lpAttributeList); }
    StartSettings(const StartSettings&) = delete;
    StartSettings& operator=(const StartSettings&) = delete;

    STARTUPINFOW* Info() { return &info.StartupInfo; }

private:
    std::array<HANDLE, 2> handles;
    std::vector<char> buffer;
    STARTUPINFOEXW info{};
};

std::wstring PathOfThisProgram() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (size == 0) {
            Fail();
        }
        if (size < path.size()) {
            path.resize(size);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

// Starts this program again. Without a console of its own, so that Ctrl-C does not reach it.
Handle StartProcess(const Pipe& ends) {
    LetInherit(ends.read);
    LetInherit(ends.write);
    StartSettings settings(ends);
    const std::wstring program = PathOfThisProgram();
    std::wstring commandLine = GetCommandLineW();
    const std::wstring numbers =
        std::to_wstring(NumberOf(ends.read)) + L' ' + std::to_wstring(NumberOf(ends.write));
    PROCESS_INFORMATION process{};
    SetEnvironmentVariableW(kEndsVariable, numbers.c_str());
    const BOOL started = CreateProcessW(program.c_str(),
                                        commandLine.data(),
                                        nullptr,
                                        nullptr,
                                        TRUE,
                                        DETACHED_PROCESS | EXTENDED_STARTUPINFO_PRESENT,
                                        nullptr,
                                        nullptr,
                                        settings.Info(),
                                        &process);
    const DWORD fault = GetLastError();
    SetEnvironmentVariableW(kEndsVariable, nullptr);
    if (started == 0) {
        SetLastError(fault);
        Fail();
    }
    CloseHandle(process.hThread);
    return Handle(process.hProcess);
}

// A process that was ended by a fault has the fault's number for a status.
std::string EndWords(DWORD status) {
    constexpr DWORD kFaults = 0xC0000000;
    if (status < kFaults) {
        return "ended with status " + std::to_string(status);
    }
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "0x%08lX", status);
    return std::string("was ended by fault ") + number.data();
}

// Guards what the workers' readers have taken in; told of when there is more.
std::mutex inboxes;
std::condition_variable news;

} // namespace

// One process, this side of its pipes, and a thread that takes in what it answers.
class WorkerPool::Worker {
public:
    Worker(Handle started, Handle requests, Handle replies)
        : process(std::move(started)), toWorker(std::move(requests)),
          fromWorker(std::move(replies)), reader([this] { TakeIn(); }) {}

    ~Worker() {
        TerminateProcess(process.Get(), EXIT_FAILURE);
        reader.join();
    }

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Send(const std::string& text) {
        if (!told) {
            SendAll(toWorker.Get(), text);
        }
    }

    // Whether Read has something to tell. `inboxes` is held, as it is for Read.
    bool HasNews() const { return (ended && !told) || text.find('\n') != std::string::npos; }

    Event Read(std::size_t number) {
        Event event;
        event.worker = number;
        event.lines = TakeLines(text);
        if (ended) {
            told = true;
            DWORD status = 0;
            WaitForSingleObject(process.Get(), INFINITE);
            GetExitCodeProcess(process.Get(), &status);
            event.end = EndWords(status);
        }
        return event;
    }

private:
    void TakeIn() {
        for (bool goesOn = true; goesOn;) {
            std::string more;
            goesOn = Receive(fromWorker.Get(), more);
            {
                const std::lock_guard lock(inboxes);
                text += more;
                ended = !goesOn;
            }
            news.notify_one();
        }
    }

    Handle process;
    Handle toWorker;
    Handle fromWorker;
    std::string text; // read, but not yet handed out
    bool ended = false;
    bool told = false; // that it has ended
    std::thread reader;
};

WorkerPool::WorkerPool(std::size_t count, Serve served) : serve(std::move(served)) {
    if (const std::optional<Pipe> ends = EndsOfWorker()) {
        Work(*ends, serve);
    }
    for (std::size_t i = 0; i < count; ++i) {
        workers.push_back(Start());
    }
}

WorkerPool::~WorkerPool() = default;

std::unique_ptr<WorkerPool::Worker> WorkerPool::Start() const {
    Pipe requests = MakePipe();
    Pipe replies = MakePipe();
    // The worker's ends are closed here at the end, so that its end is noticed.
    const Pipe ends{std::move(requests.read), std::move(replies.write)};
    Handle process = StartProcess(ends);
    return std::make_unique<Worker>(
        std::move(process), std::move(requests.write), std::move(replies.read));
}

void WorkerPool::Send(std::size_t worker, const std::string& request) {
    workers[worker]->Send(request + '\n');
}

std::vector<WorkerPool::Event> WorkerPool::Wait(std::chrono::milliseconds longest) {
    const auto hasNews = [](const std::unique_ptr<Worker>& worker) { return worker->HasNews(); };
    std::unique_lock lock(inboxes);
    news.wait_for(lock, longest, [&] { return std::ranges::any_of(workers, hasNews); });
    std::vector<Event> events;
    for (std::size_t i = 0; i < workers.size(); ++i) {
        if (workers[i]->HasNews()) {
            events.push_back(workers[i]->Read(i));
        }
    }
    return events;
}

void WorkerPool::Restart(std::size_t worker) {
    workers[worker].reset();
    workers[worker] = Start();
}

} // namespace Tarnex::Search

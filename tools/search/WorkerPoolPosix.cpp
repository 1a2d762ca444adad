// SPDX-License-Identifier: MIT
// The worker processes of POSIX systems: forked, each with a socket.
#include "tools/search/WorkerLife.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace Tarnex::Search {

namespace {

constexpr std::size_t kBlock = 65536; // read at once [bytes]

// False when the other side is gone.
bool SendAll(int socket, std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = send(socket, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) {
            continue;
        }
        if (sent <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

// Appends what is there; false at the end. `flags` may say not to wait.
bool Receive(int socket, std::string& text, int flags) {
    std::array<char, kBlock> block{};
    for (;;) {
        const ssize_t size = recv(socket, block.data(), block.size(), flags);
        if (size > 0) {
            text.append(block.data(), static_cast<std::size_t>(size));
            return true;
        }
        if (size == 0) {
            return false;
        }
        if (errno == EAGAIN || errno == EWOULDBLOCK) {
            return true;
        }
        if (errno != EINTR) {
            return false;
        }
    }
}

[[noreturn]] void Work(int socket, const WorkerPool::Serve& serve) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(number, SIG_IGN);
    }
    LiveAsWorker(
        serve,
        [socket](std::string& text) { return Receive(socket, text, 0); },
        [socket](std::string_view text) { return SendAll(socket, text); });
}

std::string EndWords(int status) {
    if (WIFSIGNALED(status)) {
        const char* const name = strsignal(WTERMSIG(status));
        return "was ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
               (name == nullptr ? "?" : name) + ')';
    }
    return "ended with status " + std::to_string(WEXITSTATUS(status));
}

[[noreturn]] void Fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

// One process and this side of its socket.
class WorkerPool::Worker {
public:
    Worker(pid_t process, int end) : pid(process), socket(end) {}

    ~Worker() {
        if (pid > 0) {
            kill(pid, SIGKILL);
            WaitForEnd();
        }
        Close();
    }

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    int Socket() const { return socket; }

    void Close() {
        if (socket >= 0) {
            close(socket);
            socket = -1;
        }
    }

    // Reads what there is; tells how the worker ended, if it did.
    Event Read(std::size_t number) {
        Event event;
        event.worker = number;
        const bool goesOn = Receive(socket, text, MSG_DONTWAIT);
        event.lines = TakeLines(text);
        if (!goesOn) {
            Close();
            event.end = EndWords(WaitForEnd());
        }
        return event;
    }

private:
    int WaitForEnd() {
        int status = 0;
        while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
        }
        pid = 0;
        return status;
    }

    pid_t pid;
    int socket;
    std::string text; // read, but not yet a line
};

WorkerPool::WorkerPool(std::size_t count, Serve served) : serve(std::move(served)) {
    for (std::size_t i = 0; i < count; ++i) {
        workers.push_back(Start());
    }
}

WorkerPool::~WorkerPool() = default;

std::unique_ptr<WorkerPool::Worker> WorkerPool::Start() const {
    constexpr const char* kWhat = "a worker process cannot be started";
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        Fail(kWhat);
    }
    const pid_t pid = fork();
    if (pid == 0) {
        // A worker that held the sockets of others would keep them from noticing the end.
        for (const auto& other : workers) {
            if (other) {
                other->Close();
            }
        }
        close(ends[0]);
        Work(ends[1], serve);
    }
    const int fault = errno;
    close(ends[1]);
    if (pid < 0) {
        close(ends[0]);
        errno = fault;
        Fail(kWhat);
    }
    return std::make_unique<Worker>(pid, ends[0]);
}

void WorkerPool::Send(std::size_t worker, const std::string& request) {
    if (workers[worker]->Socket() >= 0) {
        SendAll(workers[worker]->Socket(), request + '\n');
    }
}

std::vector<WorkerPool::Event> WorkerPool::Wait(std::chrono::milliseconds longest) {
    std::vector<pollfd> sockets;
    sockets.reserve(workers.size());
    for (const auto& worker : workers) {
        sockets.push_back({worker->Socket(), POLLIN, 0}); // of one that has ended: ignored
    }
    std::vector<Event> events;
    if (poll(sockets.data(), sockets.size(), static_cast<int>(longest.count())) <= 0) {
        return events;
    }
    for (std::size_t i = 0; i < sockets.size(); ++i) {
        if (sockets[i].revents != 0) {
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

// SPDX-License-Identifier: MIT
// Processes that work side by side.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Search {

/// Processes of their own, each with a copy of everything that this one has made so far, that
/// answer requests one after another. They end when their pool ends or this process does, however
/// it ends; Ctrl-C and the like are left to this process.
///
/// On Windows, which cannot copy a process, a worker comes to its copy by running this program with
/// the same arguments until a pool is made, which then never returns. A process can have one pool
/// there, and what comes before it must neither draw from chance nor write anything.
class WorkerPool {
public:
    /// Sends one line, which must hold no line feed.
    using Reply = std::function<void(std::string_view line)>;
    /// Answers one request, in the worker. What it throws ends the worker.
    using Serve = std::function<void(const std::string& request, const Reply& reply)>;

    /// What a worker did.
    struct Event {
        std::size_t worker = 0;
        std::vector<std::string> lines;
        std::optional<std::string> end; ///< how the worker ended, if it did
    };

    /// Starts `count` workers. Throws std::system_error.
    WorkerPool(std::size_t count, Serve serve);
    /// Ends all workers at once.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Hands a request over, a short line without a line feed. To a worker that has ended nothing
    /// is sent.
    void Send(std::size_t worker, const std::string& request);

    /// Waits for answers, but no longer than that and not beyond a signal. The end of a worker is
    /// told once, with what it had still answered.
    std::vector<Event> Wait(std::chrono::milliseconds longest);

    /// Starts another worker in place of one that has ended. Throws std::system_error.
    void Restart(std::size_t worker);

private:
    class Worker;

    std::unique_ptr<Worker> Start() const;

    Serve serve;
    std::vector<std::unique_ptr<Worker>> workers;
};

} // namespace Tarnex::Search

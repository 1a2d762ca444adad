// SPDX-License-Identifier: MIT
// What a worker process does, whatever connects it.
#pragma once

#include "tools/search/Lines.h"
#include "tools/search/WorkerPool.h"

#include <cstdlib>
#include <string>

namespace Tarnex::Search {

/// The life of a worker: it answers requests until nobody asks any more, and leaves without
/// cleaning up, as everything it has belongs to the process that it was copied from. `receive`
/// waits for text and appends it, false at the end; `send` is false when the other side is gone.
template <typename Receive, typename Send>
[[noreturn]] void
LiveAsWorker(const WorkerPool::Serve& serve, const Receive& receive, const Send& send) {
    const WorkerPool::Reply reply = [&send](std::string_view line) {
        if (!send(std::string(line) + '\n')) {
            std::_Exit(EXIT_FAILURE);
        }
    };
    try {
        std::string text;
        while (receive(text)) {
            for (const std::string& request : TakeLines(text)) {
                serve(request, reply);
            }
        }
        std::_Exit(EXIT_SUCCESS);
    } catch (...) {
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace Tarnex::Search

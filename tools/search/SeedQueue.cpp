// SPDX-License-Identifier: MIT
#include "tools/search/SeedQueue.h"

#include <utility>

namespace Tarnex::Search {

std::optional<std::uint32_t> SeedQueue::Take() {
    std::unique_lock lock(mutex);
    room.wait(lock, [this] { return closed || next > last || HasRoom(); });
    if (closed || next > last) {
        return std::nullopt;
    }
    dealt.emplace_back();
    ++open;
    return static_cast<std::uint32_t>(next++);
}

void SeedQueue::Give(std::uint32_t seed, Verdict verdict) {
    const std::lock_guard lock(mutex);
    if (closed) {
        return;
    }
    const std::uint64_t first = next - dealt.size();
    dealt[static_cast<std::size_t>(seed - first)] = std::move(verdict);
    --open;
    if (IsDone()) {
        news.notify_one();
    }
}

void SeedQueue::Fail(std::exception_ptr thrown) noexcept {
    const std::lock_guard lock(mutex);
    if (closed) {
        return;
    }
    fault = std::move(thrown);
    closed = true;
    room.notify_all();
    news.notify_one();
}

void SeedQueue::Close() noexcept {
    const std::lock_guard lock(mutex);
    closed = true;
    room.notify_all();
}

std::vector<Verdict> SeedQueue::Collect(std::chrono::milliseconds longest) {
    std::unique_lock lock(mutex);
    news.wait_for(lock, longest, [this] { return fault || IsDone(); });
    if (fault) {
        std::rethrow_exception(fault);
    }
    std::vector<Verdict> verdicts;
    while (!dealt.empty() && dealt.front()) {
        verdicts.push_back(std::move(*dealt.front()));
        dealt.pop_front();
    }
    room.notify_all();
    return verdicts;
}

std::deque<std::optional<Verdict>> SeedQueue::Rest() {
    const std::lock_guard lock(mutex);
    return std::exchange(dealt, {});
}

} // namespace Tarnex::Search

// SPDX-License-Identifier: MIT
#include "cli/Aside.h"

#include "cli/CancelSignals.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <mutex>
#include <new>
#include <streambuf>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kChunk = std::size_t{256} * 1024;   // handed over at once [bytes]
constexpr auto kPatience = std::chrono::milliseconds(20); // between two looks for a signal

bool threadsAreLeft = false;

// Between the thread that writes and the one that waits: one chunk at a time. No memory is asked
// for after the start.
class Handover {
public:
    Handover() {
        taken.reserve(kChunk);
        given.reserve(kChunk);
    }

    // The writer's side. False when nobody wants more.
    bool Give(std::string& chunk) {
        std::unique_lock lock(mutex);
        change.wait(lock, [this] { return given.empty() || refused; });
        given.swap(chunk);
        change.notify_all();
        return !refused;
    }

    void End(std::exception_ptr thrown) {
        const std::lock_guard lock(mutex);
        fault = std::move(thrown);
        ended = true;
        change.notify_all();
    }

    // The other side: the next chunk, or an empty one after some time or at the end.
    const std::string& Take() {
        taken.clear();
        std::unique_lock lock(mutex);
        change.wait_for(lock, kPatience, [this] { return !given.empty() || ended; });
        taken.swap(given);
        change.notify_all();
        return taken;
    }

    bool HasEnded() {
        const std::lock_guard lock(mutex);
        return ended && given.empty();
    }

    std::exception_ptr Fault() const { return fault; }

    void Refuse() {
        const std::lock_guard lock(mutex);
        refused = true;
        change.notify_all();
    }

private:
    std::mutex mutex;
    std::condition_variable change;
    std::string given;
    std::string taken;
    std::exception_ptr fault;
    bool ended = false;
    bool refused = false;
};

class ChunkBuffer : public std::streambuf {
public:
    explicit ChunkBuffer(Handover& to) : handover(to) { chunk.reserve(kChunk); }

    bool Flush() {
        const bool wanted = chunk.empty() || handover.Give(chunk);
        chunk.clear();
        return wanted;
    }

protected:
    int_type overflow(int_type c) override {
        const char byte = traits_type::to_char_type(c);
        return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
    }

    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
        std::string_view rest(bytes, static_cast<std::size_t>(count));
        while (!rest.empty()) {
            const std::size_t part = std::min(rest.size(), kChunk - chunk.size());
            chunk.append(rest.substr(0, part));
            rest.remove_prefix(part);
            if (chunk.size() == kChunk && !Flush()) {
                return 0;
            }
        }
        return count;
    }

private:
    Handover& handover;
    std::string chunk;
};

void Work(Handover& handover, const std::function<void(std::ostream&)>& write) noexcept {
    std::exception_ptr fault;
    try {
        ChunkBuffer buffer(handover);
        std::ostream out(&buffer);
        write(out);
        buffer.Flush();
    } catch (...) {
        fault = std::current_exception();
    }
    handover.End(std::move(fault));
}

// A system that has no thread to spare has no memory to spare either.
template <typename Function>
std::thread Started(Function function) try {
    return std::thread(std::move(function));
} catch (const std::system_error&) {
    throw std::bad_alloc();
}

} // namespace

void WriteAside(std::function<void(std::ostream&)> write, std::ostream& to) {
    const auto handover = std::make_shared<Handover>();
    std::thread thread = Started([handover, write = std::move(write)] { Work(*handover, write); });
    while (!handover->HasEnded()) {
        const std::string& chunk = handover->Take();
        to.write(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        if (CancelSignals::Status().HasBeenCanceled() || !to) {
            to.setstate(std::ios::badbit);
            handover->Refuse();
            thread.detach();
            threadsAreLeft = true;
            return;
        }
    }
    thread.join();
    if (const std::exception_ptr fault = handover->Fault()) {
        std::rethrow_exception(fault);
    }
}

void EndProcessBesideThreads(int status) {
    if (threadsAreLeft) {
        std::cout.flush();
        std::cerr.flush();
        std::_Exit(status);
    }
}

} // namespace Tarnex::Cli

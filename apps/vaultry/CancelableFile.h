// SPDX-License-Identifier: MIT
// Writing that can be cancelled.
#pragma once

#include "apps/vaultry/CancelSignals.h"

#include <fstream>
#include <ostream>
#include <string>

namespace Tarnex::Cli {

/// A new file, over one that is there, which takes no more as soon as a signal asks to stop: its
/// stream fails then.
class CancelableFile {
public:
    /// `path` is UTF-8. The stream has failed when the file cannot be opened. `signals` is not
    /// owned.
    CancelableFile(const std::string& path, const CancelSignals& signals);

    std::ostream& Stream() { return stream; }

    /// Closes the file. True when it took everything.
    bool Close();

private:
    class Buffer : public std::filebuf {
    public:
        explicit Buffer(const CancelSignals& cancelSignals) : signals(cancelSignals) {}

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* bytes, std::streamsize count) override;

    private:
        const CancelSignals& signals;
    };

    Buffer buffer;
    std::ostream stream;
};

} // namespace Tarnex::Cli

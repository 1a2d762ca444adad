// SPDX-License-Identifier: MIT
#include "apps/vaultry/CancelableFile.h"

#include <vaultry/foundation/CodePage.h>

namespace Tarnex::Cli {

CancelableFile::Buffer::int_type CancelableFile::Buffer::overflow(int_type c) {
    return signals.Requested() ? traits_type::eof() : std::filebuf::overflow(c);
}

// What is large passes the buffer by.
std::streamsize CancelableFile::Buffer::xsputn(const char* bytes, std::streamsize count) {
    return signals.Requested() ? 0 : std::filebuf::xsputn(bytes, count);
}

CancelableFile::CancelableFile(const std::string& path, const CancelSignals& signals)
    : buffer(signals), stream(&buffer) {
    constexpr auto kMode = std::ios::out | std::ios::binary | std::ios::trunc;
    if (buffer.open(PathFromUtf8(path), kMode) == nullptr) {
        stream.setstate(std::ios::failbit);
    }
}

bool CancelableFile::Close() {
    const bool closed = buffer.close() != nullptr;
    return closed && stream.good();
}

} // namespace Tarnex::Cli

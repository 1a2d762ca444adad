// SPDX-License-Identifier: MIT
// A local file as the parser's input.
#pragma once

#include <xercesc/sax/InputSource.hpp>

#include <filesystem>
#include <string>

namespace Tarnex {

class JobStatus;

/// Reads a document from a local file, whatever its name looks like: the parser's own path handling
/// takes names for addresses and depends on the locale.
class XmlFileSource : public xercesc::InputSource {
public:
    /// `path` is UTF-8. What is read is appended to `copy`, which may be null. `status`, which may
    /// be null and must outlive every stream, ends the wait for a pipe.
    explicit XmlFileSource(const char* path,
                           std::string* copy = nullptr,
                           const JobStatus* status = nullptr);

    /// Null when the file cannot be opened, which the parser reports as a fatal error. This and the
    /// stream throw LoadCanceled when the status says so while they wait.
    xercesc::BinInputStream* makeStream() const override;

private:
    std::filesystem::path file;
    std::string* copy;
    const JobStatus* status;
};

} // namespace Tarnex

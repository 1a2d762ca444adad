// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/XmlFileSource.h>

#include <vaultry/catalogue/LoadBudget.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/SystemFile.h>

#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/TransService.hpp>

#include <memory>

namespace Tarnex {

namespace {

class FileStream : public xercesc::BinInputStream {
public:
    FileStream(const std::filesystem::path& path, std::string* copy_, const JobStatus* status)
        : copy(copy_) {
        StopIfCanceled(file.OpenToRead(path, status));
    }

    bool IsOpen() const { return file.IsOpen(); }

    XMLFilePos curPos() const override { return position; }

    XMLSize_t readBytes(XMLByte* const toFill, const XMLSize_t maxToRead) override {
        std::error_code fault; // any other than a cancellation ends the document here
        const XMLSize_t count = file.Read(reinterpret_cast<char*>(toFill), maxToRead, fault);
        StopIfCanceled(fault);
        position += count;
        if (copy != nullptr) {
            copy->append(reinterpret_cast<const char*>(toFill), count);
        }
        return count;
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    static void StopIfCanceled(const std::error_code& fault) {
        if (fault == std::errc::operation_canceled) {
            throw LoadCanceled();
        }
    }

    SystemFile file;
    std::string* copy;
    XMLFilePos position = 0;
};

} // namespace

XmlFileSource::XmlFileSource(const char* path, std::string* copy_, const JobStatus* status_)
    : file(PathFromUtf8(path)), copy(copy_), status(status_) {
    const xercesc::TranscodeFromStr name(
        reinterpret_cast<const XMLByte*>(path), std::char_traits<char>::length(path), "UTF-8");
    setSystemId(name.str());
}

xercesc::BinInputStream* XmlFileSource::makeStream() const {
    auto stream = std::make_unique<FileStream>(file, copy, status);
    return stream->IsOpen() ? stream.release() : nullptr;
}

} // namespace Tarnex

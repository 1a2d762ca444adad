// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/XmlFileSource.h>

#include <vaultry/foundation/CodePage.h>

#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/TransService.hpp>

#include <fstream>
#include <memory>

namespace Tarnex {

namespace {

class FileStream : public xercesc::BinInputStream {
public:
    FileStream(const std::filesystem::path& file, std::string* copy_)
        : stream(file, std::ios::binary), copy(copy_) {}

    bool IsOpen() const { return stream.is_open(); }

    XMLFilePos curPos() const override { return position; }

    XMLSize_t readBytes(XMLByte* const toFill, const XMLSize_t maxToRead) override {
        stream.read(reinterpret_cast<char*>(toFill), static_cast<std::streamsize>(maxToRead));
        const auto count = static_cast<XMLSize_t>(stream.gcount());
        position += count;
        if (copy != nullptr) {
            copy->append(reinterpret_cast<const char*>(toFill), count);
        }
        return count;
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    std::ifstream stream;
    std::string* copy;
    XMLFilePos position = 0;
};

} // namespace

XmlFileSource::XmlFileSource(const char* path, std::string* copy_)
    : file(PathFromUtf8(path)), copy(copy_) {
    const xercesc::TranscodeFromStr name(
        reinterpret_cast<const XMLByte*>(path), std::char_traits<char>::length(path), "UTF-8");
    setSystemId(name.str());
}

xercesc::BinInputStream* XmlFileSource::makeStream() const {
    auto stream = std::make_unique<FileStream>(file, copy);
    return stream->IsOpen() ? stream.release() : nullptr;
}

} // namespace Tarnex

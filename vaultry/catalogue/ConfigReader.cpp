// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigReader.h>

#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ParserMemory.h>
#include <vaultry/catalogue/XmlFileSource.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Text.h>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

namespace Tarnex {

namespace {

using xercesc::XMLUni;

constexpr const char* kOutOfMemory = "out of memory";

// The parser hands over longer text in pieces, which would end a name where nothing ends it. Text
// of this length is refused anyway.
XMLSize_t LongestRun() {
    return static_cast<XMLSize_t>(LoadBudget::Most(LoadBudget::Of::Text)) + 1;
}

// The parser's own manager throws what is no std::exception.
class GlobalMemory : public xercesc::MemoryManager {
public:
    xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }
    void* allocate(XMLSize_t size) override { return ::operator new(size); }
    void deallocate(void* block) override { ::operator delete(block); }
};

// The parser's own handler ends the process.
class Panic : public xercesc::PanicHandler {
public:
    // Whatever is thrown while it starts, the parser answers with a panic "for unknown reason".
    void panic(const PanicReasons reason) override {
        if (std::current_exception() != nullptr) {
            throw;
        }
        throw std::runtime_error(getPanicReasonString(reason));
    }
};

// Starting the library costs more than parsing most files, so it is started at most once and ended
// when the process ends.
class ParserLibrary {
public:
    ParserLibrary() {
        try {
            xercesc::XMLPlatformUtils::Initialize(
                xercesc::XMLUni::fgXercescDefaultLocale, nullptr, &panic, &memory);
            started = true;
        } catch (const xercesc::XMLException& e) {
            error = Narrow(e.getMessage());
        } catch (const std::bad_alloc&) {
            error = kOutOfMemory;
        } catch (const std::exception& e) {
            error = e.what();
        }
    }

    ~ParserLibrary() {
        if (started) {
            xercesc::XMLPlatformUtils::Terminate();
        }
    }

    ParserLibrary(const ParserLibrary&) = delete;
    ParserLibrary& operator=(const ParserLibrary&) = delete;

    const std::string& Error() const { return error; }

private:
    GlobalMemory memory;
    Panic panic;
    bool started = false;
    std::string error;
};

// A configuration has no DTD and no schema; nothing outside its file is ever opened.
void MakeSafe(xercesc::SAX2XMLReader& reader) {
    const std::array<std::pair<const XMLCh*, bool>, 5> features = {{
        {XMLUni::fgXercesDisableDefaultEntityResolution, true},
        {XMLUni::fgXercesLoadExternalDTD, false},
        {XMLUni::fgXercesLoadSchema, false},
        {XMLUni::fgXercesSchema, false},
        {XMLUni::fgSAX2CoreValidation, false},
    }};
    for (const auto& [feature, value] : features) {
        reader.setFeature(feature, value);
    }
}

// What the parser converts by itself. Beyond that it asks the system, and a document would load on
// one machine and not on another.
constexpr std::array<std::string_view, 30> kEncodings = {
    "UTF-8",       "UTF8",        "UTF-16",    "UTF16",      "UTF-16LE",        "UTF-16BE",
    "UTF-16 (LE)", "UTF-16 (BE)", "UCS-2",     "UCS2",       "ISO-10646-UCS-2", "IBM-1200",
    "IBM1200",     "ISO-8859-1",  "ISO8859-1", "ISO_8859-1", "LATIN-1",         "LATIN1",
    "LATIN_1",     "L1",          "IBM-819",   "IBM819",     "CP819",           "CSISOLATIN1",
    "ISO-IR-100",  "US-ASCII",    "US_ASCII",  "USASCII",    "ASCII",           "WINDOWS-1252",
};

class Reader : public xercesc::SAX2XMLReaderImpl {
public:
    Reader(xercesc::MemoryManager* memory, ConfigLoader& loader_)
        : xercesc::SAX2XMLReaderImpl(memory), loader(loader_) {}

    // Judged by its declaration: where that contradicts the bytes, the parser goes by the bytes.
    void XMLDecl(const XMLCh* const /*version*/,
                 const XMLCh* const declared,
                 const XMLCh* const /*standalone*/,
                 const XMLCh* const found) override {
        const std::string name = Narrow(*declared != 0 ? declared : found);
        const bool read = std::ranges::any_of(
            kEncodings, [&name](std::string_view known) { return EqualsNoCase(name, known); });
        if (!read) {
            loader.Budget().Stop("the encoding '" + name +
                                 "' is not read; save the file as UTF-8, UTF-16, ISO-8859-1, "
                                 "US-ASCII or windows-1252");
        }
    }

private:
    ConfigLoader& loader;
};

// Asks whether the load is still wanted whenever the parser wants more: between two elements there
// may be much that the loader hears nothing of.
class AskingStream : public xercesc::BinInputStream {
public:
    AskingStream(std::unique_ptr<xercesc::BinInputStream> stream_, LoadBudget& budget_)
        : stream(std::move(stream_)), budget(budget_) {}

    XMLFilePos curPos() const override { return stream->curPos(); }

    XMLSize_t readBytes(XMLByte* const toFill, const XMLSize_t maxToRead) override {
        // The parser loses memory when its first look at a document is interrupted.
        if (curPos() > 0) {
            budget.Settle();
            budget.Ask();
        }
        return stream->readBytes(toFill, maxToRead);
    }

    const XMLCh* getContentType() const override { return stream->getContentType(); }

private:
    std::unique_ptr<xercesc::BinInputStream> stream;
    LoadBudget& budget;
};

class AskingSource : public xercesc::InputSource {
public:
    AskingSource(const xercesc::InputSource& source_, LoadBudget& budget_)
        : xercesc::InputSource(source_.getSystemId()), source(source_), budget(budget_) {}

    xercesc::BinInputStream* makeStream() const override {
        std::unique_ptr<xercesc::BinInputStream> stream(source.makeStream());
        return stream ? new AskingStream(std::move(stream), budget) : nullptr;
    }

private:
    const xercesc::InputSource& source;
    LoadBudget& budget;
};

// `makeSource` is called inside, so that what opening the source throws is reported too.
template <typename MakeSource>
void Parse(xercesc::SAX2XMLReader& reader, ConfigLoader& loader, MakeSource makeSource) {
    try {
        const auto source = makeSource();
        reader.parse(AskingSource(source, loader.Budget()));
    } catch (const xercesc::SAXParseException& e) {
        loader.fatalError(e);
    } catch (const xercesc::SAXException& e) {
        loader.FatalError(Narrow(e.getMessage()));
    } catch (const xercesc::XMLException& e) {
        loader.FatalError(Narrow(e.getMessage()));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& e) {
        loader.FatalError(e.what());
    }
}

template <typename MakeSource>
void Read(ConfigLoader& loader, MakeSource makeSource) {
    loader.Budget().Ask();
    ParserMemory memory(loader.Budget());
    std::unique_ptr<Reader> reader;
    try {
        reader = std::make_unique<Reader>(&memory, loader);
        MakeSafe(*reader);
        reader->setInputBufferSize(LongestRun());
        reader->setContentHandler(&loader);
        reader->setErrorHandler(&loader);
        reader->setDeclarationHandler(&loader);
        Parse(*reader, loader, makeSource);
    } catch (const xercesc::OutOfMemoryException&) {
        // The budget is spent: the document asks for too much.
        loader.FatalError(kOutOfMemory);
    }
}

xercesc::MemBufInputSource MemorySource(std::string_view text, const char* name) {
    const auto* nameBytes = reinterpret_cast<const XMLByte*>(name);
    const xercesc::TranscodeFromStr id(nameBytes, std::char_traits<char>::length(name), "UTF-8");
    return {reinterpret_cast<const XMLByte*>(text.data()), text.size(), id.str()};
}

} // namespace

std::string StartXmlParser() {
    static const ParserLibrary library;
    return library.Error();
}

void ReadConfigFile(const char* path, ConfigLoader& loader, std::string* copy) {
    Read(loader, [&] { return XmlFileSource(path, copy, loader.Budget().Status()); });
}

std::optional<Problem>
ReadConfigFile(const char* path, ConfigMgr& config, const JobStatus* status, std::string* copy) {
    ConfigLoader loader(config, path, status);
    ReadConfigFile(path, loader, copy);
    return loader.Fault();
}

void ReadConfigText(std::string_view text, const char* name, ConfigLoader& loader) {
    Read(loader, [text, name] { return MemorySource(text, name); });
}

std::optional<Problem> ReadConfigText(std::string_view text,
                                      const char* name,
                                      ConfigMgr& config,
                                      const JobStatus* status) {
    ConfigLoader loader(config, name, status);
    ReadConfigText(text, name, loader);
    return loader.Fault();
}

} // namespace Tarnex

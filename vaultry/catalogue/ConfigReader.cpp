// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/XmlFileSource.h>
#include <vaultry/catalogue/XmlText.h>

#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <array>
#include <memory>
#include <utility>

namespace Tarnex {

namespace {

using xercesc::XMLUni;

constexpr XMLSize_t kMaxEntityExpansions = 1000;

// Starting the library costs more than parsing most files, so it is started at most once and ended
// when the process ends.
class ParserLibrary {
public:
    ParserLibrary() {
        try {
            xercesc::XMLPlatformUtils::Initialize();
            started = true;
        } catch (const xercesc::XMLException& e) {
            error = Narrow(e.getMessage());
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
    bool started = false;
    std::string error;
};

// A configuration has no DTD and no schema; nothing outside its file is ever opened.
void MakeSafe(xercesc::SAX2XMLReader& reader, xercesc::SecurityManager& limits) {
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
    limits.setEntityExpansionLimit(kMaxEntityExpansions);
    reader.setProperty(XMLUni::fgXercesSecurityManager, &limits);
}

void Parse(xercesc::SAX2XMLReader& reader, const char* path, ConfigLoader& loader) {
    try {
        reader.parse(XmlFileSource(path));
    } catch (const xercesc::SAXParseException& e) {
        loader.fatalError(e);
    } catch (const xercesc::SAXException& e) {
        loader.FatalError(Narrow(e.getMessage()));
    } catch (const xercesc::XMLException& e) {
        loader.FatalError(Narrow(e.getMessage()));
    } catch (const xercesc::OutOfMemoryException&) {
        loader.FatalError("out of memory");
    } catch (const std::exception& e) {
        loader.FatalError(e.what());
    }
}

} // namespace

std::string StartXmlParser() {
    static const ParserLibrary library;
    return library.Error();
}

void ReadConfigFile(const char* path, ConfigMgr& config) {
    ConfigLoader loader(config);
    xercesc::SecurityManager limits;
    const auto reader = std::make_unique<xercesc::SAX2XMLReaderImpl>();
    MakeSafe(*reader, limits);
    reader->setContentHandler(&loader);
    reader->setErrorHandler(&loader);
    Parse(*reader, path, loader);
}

} // namespace Tarnex

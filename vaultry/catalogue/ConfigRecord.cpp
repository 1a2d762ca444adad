// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigRecord.h>

#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Logger.h>

#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>

namespace Tarnex {

namespace {

// Every event goes to the loader first, so that its limits hold and what it logs belongs to the
// place that the parser has reached.
class ConfigRecorder : public ConfigLoader {
public:
    ConfigRecorder(ConfigMgr& config, ConfigRecord& record_)
        : ConfigLoader(config), record(record_) {}

    void setDocumentLocator(const xercesc::Locator* const locator) override {
        here = locator;
        ConfigLoader::setDocumentLocator(locator);
    }

    void startElement(const XMLCh* const uri,
                      const XMLCh* const localname,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override {
        ConfigLoader::startElement(uri, localname, qname, attrs);
        ConfigElement element;
        element.name = Narrow(qname);
        for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
            element.attributes.emplace_back(Narrow(attrs.getQName(i)), Narrow(attrs.getValue(i)));
        }
        element.parent = open.empty() ? ConfigElement::kNoParent : open.back();
        element.place = Here();
        open.push_back(record.elements.size());
        record.elements.push_back(std::move(element));
        PlaceErrors(Here());
    }

    void endElement(const XMLCh* const uri,
                    const XMLCh* const localname,
                    const XMLCh* const qname) override {
        ConfigLoader::endElement(uri, localname, qname);
        open.pop_back();
        PlaceErrors(Here());
    }

    void characters(const XMLCh* const chars, const XMLSize_t length) override {
        ConfigLoader::characters(chars, length);
        std::string text;
        NarrowInto(text, {chars, length});
        if (!open.empty()) {
            record.elements[open.back()].text += text;
        }
    }

    void error(const xercesc::SAXParseException& e) override {
        ConfigLoader::error(e);
        PlaceErrors({e.getLineNumber(), e.getColumnNumber()});
    }

    void fatalError(const xercesc::SAXParseException& e) override {
        ConfigLoader::fatalError(e);
        record.fatal = true;
        PlaceErrors({e.getLineNumber(), e.getColumnNumber()});
    }

    // What is logged after the last event, such as a file that cannot be opened, ends the reading.
    void Finish() {
        record.fatal |= Logger::GetErrors().size() > placed;
        PlaceErrors({});
    }

private:
    ConfigPlace Here() const {
        return here == nullptr ? ConfigPlace{}
                               : ConfigPlace{here->getLineNumber(), here->getColumnNumber()};
    }

    void PlaceErrors(const ConfigPlace& place) {
        const std::vector<std::string>& errors = Logger::GetErrors();
        for (; placed < errors.size(); ++placed) {
            record.errors.push_back({place, errors[placed]});
        }
    }

    ConfigRecord& record;
    const xercesc::Locator* here = nullptr;
    std::size_t placed = Logger::GetErrors().size();
    std::vector<std::size_t> open; // the elements around the current place
};

template <typename ReadInto>
ConfigRecord Record(ReadInto readInto) {
    ConfigRecord record;
    const std::string fault = StartXmlParser();
    if (!fault.empty()) {
        record.fatal = true;
        record.errors.push_back({{}, fault});
        return record;
    }
    ConfigMgr config;
    ConfigRecorder recorder(config, record);
    readInto(recorder);
    recorder.Finish();
    return record;
}

} // namespace

ConfigRecord RecordConfigFile(const char* path) {
    return Record([path](ConfigLoader& loader) { ReadConfigFile(path, loader); });
}

ConfigRecord RecordConfigText(std::string_view text, const char* name) {
    return Record([text, name](ConfigLoader& loader) { ReadConfigText(text, name, loader); });
}

} // namespace Tarnex

// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigRecord.h>

#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/TagFinder.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Logger.h>

#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>

#include <algorithm>

namespace Tarnex {

namespace {

// The parser keeps declarations of namespaces to itself.
bool IsNoDeclaration(const std::pair<std::string, ConfigPlace>& attribute) {
    const std::string& name = attribute.first;
    return name != "xmlns" && !name.starts_with("xmlns:");
}

// Every event goes to the loader first, so that its limits hold and what it logs belongs to the
// place that the parser has reached.
class ConfigRecorder : public ConfigLoader {
public:
    ConfigRecorder(ConfigMgr& config, ConfigRecord& record_, const std::string& bytes)
        : ConfigLoader(config), record(record_), finder(bytes) {}

    void setDocumentLocator(const xercesc::Locator* const locator) override {
        here = locator;
        ConfigLoader::setDocumentLocator(locator);
    }

    void startElement(const XMLCh* const uri,
                      const XMLCh* const localname,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override {
        ConfigLoader::startElement(uri, localname, qname, attrs);
        open.push_back(record.elements.size());
        record.elements.push_back(Recorded(qname, attrs));
        PlaceErrorsAtElement();
    }

    void endElement(const XMLCh* const uri,
                    const XMLCh* const localname,
                    const XMLCh* const qname) override {
        ConfigLoader::endElement(uri, localname, qname);
        PlaceErrorsAtElement();
        open.pop_back();
    }

    void characters(const XMLCh* const chars, const XMLSize_t length) override {
        ConfigLoader::characters(chars, length);
        std::string text;
        NarrowInto(text, {chars, length});
        if (!open.empty()) {
            ConfigElement& element = record.elements[open.back()];
            if (element.text.empty()) {
                element.firstText = text;
            }
            element.text += text;
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

    ConfigElement Recorded(const XMLCh* qname, const xercesc::Attributes& attrs) {
        const ConfigPlace end = Here();
        const TagPlaces tag = finder.Find(end).value_or(TagPlaces{end, {}});
        ConfigElement element;
        element.name = Narrow(qname);
        element.parent = open.size() < 2 ? ConfigElement::kNone : open[open.size() - 2];
        element.place = tag.start;
        // The parser tells the written ones in their order, then those of the document type.
        auto next = tag.attributes.begin();
        for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
            next = std::find_if(next, tag.attributes.end(), IsNoDeclaration);
            const bool written = next != tag.attributes.end();
            const ConfigPlace place = written ? (next++)->second : tag.start;
            element.attributes.push_back(
                {Narrow(attrs.getQName(i)), Narrow(attrs.getValue(i)), place});
        }
        return element;
    }

    void PlaceErrorsAtElement() { PlaceErrors(record.elements[open.back()].place, open.back()); }

    void PlaceErrors(const ConfigPlace& place, std::size_t element = ConfigElement::kNone) {
        const std::vector<std::string>& errors = Logger::GetErrors();
        for (; placed < errors.size(); ++placed) {
            record.errors.push_back({place, errors[placed], element});
        }
    }

    ConfigRecord& record;
    TagFinder finder;
    const xercesc::Locator* here = nullptr;
    std::size_t placed = Logger::GetErrors().size();
    std::vector<std::size_t> open; // the elements around the current place
};

template <typename ReadInto>
ConfigRecord Record(const std::string& bytes, ReadInto readInto) {
    ConfigRecord record;
    const std::string fault = StartXmlParser();
    if (!fault.empty()) {
        record.fatal = true;
        record.errors.push_back({{}, fault});
        return record;
    }
    ConfigMgr config;
    ConfigRecorder recorder(config, record, bytes);
    readInto(recorder);
    recorder.Finish();
    return record;
}

} // namespace

ConfigRecord RecordConfigFile(const char* path) {
    std::string bytes;
    return Record(bytes,
                  [path, &bytes](ConfigLoader& loader) { ReadConfigFile(path, loader, &bytes); });
}

ConfigRecord RecordConfigText(std::string_view text, const char* name) {
    const std::string bytes(text);
    return Record(bytes,
                  [&bytes, name](ConfigLoader& loader) { ReadConfigText(bytes, name, loader); });
}

} // namespace Tarnex

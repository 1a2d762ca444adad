// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigRecord.h>

#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/TagFinder.h>
#include <vaultry/catalogue/XmlText.h>

#include <xercesc/sax2/Attributes.hpp>

#include <algorithm>

namespace Tarnex {

namespace {

// The parser keeps declarations of namespaces to itself.
bool IsNoDeclaration(const std::pair<std::string, DocumentPlace>& attribute) {
    const std::string& name = attribute.first;
    return name != "xmlns" && !name.starts_with("xmlns:");
}

// An element is recorded before the loader hears of it, so that what it reports belongs to it.
class ConfigRecorder : public ConfigLoader {
public:
    ConfigRecorder(ConfigMgr& config,
                   const char* name,
                   ConfigRecord& record_,
                   const std::string& bytes)
        : ConfigLoader(config, name), record(record_), finder(bytes) {}

    void startElement(const XMLCh* const uri,
                      const XMLCh* const localname,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override {
        const std::size_t around = Innermost();
        open.push_back(record.elements.size());
        record.elements.push_back(Recorded(around, qname, attrs));
        ConfigLoader::startElement(uri, localname, qname, attrs);
    }

    void endElement(const XMLCh* const uri,
                    const XMLCh* const localname,
                    const XMLCh* const qname) override {
        ConfigLoader::endElement(uri, localname, qname);
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

    // The parser's own have a place, and end or stand outside of any element. What it calls no
    // error is none.
    void Hear(const Problem& problem) override {
        ConfigLoader::Hear(problem);
        if (problem.kind == ProblemKind::Odd) {
            return;
        }
        ConfigProblem& heard = record.problems.emplace_back(ConfigProblem{problem});
        if (problem.place.line == 0 && !open.empty()) {
            heard.problem.place = record.elements[open.back()].place;
            heard.element = open.back();
        }
    }

    std::size_t Innermost() const { return open.empty() ? ConfigElement::kNone : open.back(); }

private:
    ConfigElement
    Recorded(std::size_t around, const XMLCh* qname, const xercesc::Attributes& attrs) {
        const DocumentPlace end = Reached();
        const TagPlaces tag = finder.Find(end).value_or(TagPlaces{end, {}});
        ConfigElement element;
        element.name = Narrow(qname);
        element.element = Classify(element.name);
        element.parent = around;
        element.place = tag.start;
        // The parser tells the written ones in their order, then those of the document type.
        auto next = tag.attributes.begin();
        for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
            next = std::find_if(next, tag.attributes.end(), IsNoDeclaration);
            const bool written = next != tag.attributes.end();
            const DocumentPlace place = written ? (next++)->second : tag.start;
            element.attributes.push_back(
                {Narrow(attrs.getQName(i)), Narrow(attrs.getValue(i)), place});
        }
        return element;
    }

    ConfigRecord& record;
    TagFinder finder;
    std::vector<std::size_t> open; // the elements around the current place
};

template <typename ReadInto>
ConfigRecord Record(const char* name, const std::string& bytes, ReadInto readInto) {
    ConfigRecord record;
    const std::string fault = StartXmlParser();
    if (!fault.empty()) {
        record.fatal = true;
        record.problems.push_back({{ProblemKind::ParserUnavailable, {fault}}});
        return record;
    }
    ConfigMgr config;
    ConfigRecorder recorder(config, name, record, bytes);
    readInto(recorder);
    record.fatal = recorder.Fault().has_value();
    if (record.fatal) {
        record.open = recorder.Innermost();
        record.encoding = FindEncodingFault(bytes);
    }
    return record;
}

} // namespace

ConfigRecord RecordConfigFile(const char* path) {
    std::string bytes;
    return Record(path, bytes, [path, &bytes](ConfigLoader& loader) {
        ReadConfigFile(path, loader, &bytes);
    });
}

ConfigRecord RecordConfigText(std::string_view text, const char* name) {
    const std::string bytes(text);
    return Record(
        name, bytes, [&bytes, name](ConfigLoader& loader) { ReadConfigText(bytes, name, loader); });
}

} // namespace Tarnex

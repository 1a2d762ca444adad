// SPDX-License-Identifier: MIT
// The cost of reading a configuration, beside a bare parse that converts every name and value.
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/XmlFileSource.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/GenMgr.h>

#include <benchmark/benchmark.h>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

namespace Tarnex::Bench {

namespace {

constexpr const char* kConfig = VAULTRY_SOURCE_DIR "/data/vaultry.xml";

class ConvertingHandler : public xercesc::DefaultHandler {
public:
    void startElement(const XMLCh* const /*uri*/,
                      const XMLCh* const /*localname*/,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override {
        benchmark::DoNotOptimize(Narrow(qname));
        for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
            benchmark::DoNotOptimize(Narrow(attrs.getQName(i)));
            benchmark::DoNotOptimize(Narrow(attrs.getValue(i)));
        }
    }

    void endElement(const XMLCh* const /*uri*/,
                    const XMLCh* const /*localname*/,
                    const XMLCh* const qname) override {
        benchmark::DoNotOptimize(Narrow(qname));
    }

    void characters(const XMLCh* const chars, const XMLSize_t length) override {
        std::string text;
        NarrowInto(text, {chars, length});
        benchmark::DoNotOptimize(text);
    }
};

void BareParse(benchmark::State& state) {
    StartXmlParser();
    for (auto _ : state) {
        ConvertingHandler handler;
        xercesc::SAX2XMLReaderImpl reader;
        reader.setContentHandler(&handler);
        reader.parse(XmlFileSource(kConfig));
    }
}

void Init(benchmark::State& state) {
    Logger::InitWithoutFile();
    GenMgr mgr;
    for (auto _ : state) {
        mgr.Init(kConfig);
    }
}

BENCHMARK(BareParse)->Unit(benchmark::kMillisecond);
BENCHMARK(Init)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Tarnex::Bench

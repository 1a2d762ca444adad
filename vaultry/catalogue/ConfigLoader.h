// SPDX-License-Identifier: MIT
// The event handler that turns a configuration file into objects. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>

#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

namespace Tarnex {

class JobStatus;
struct LayoutHead;

/// Ends a load that was cancelled, through the parser.
struct LoadCanceled {};

/// Serves one parse. Each start tag creates or fills one object under construction, each matching
/// end tag files it in the store. Elements are recognised by name alone, wherever they stand; names
/// and keywords compare without regard to case. Nothing is fatal to the load but what is fatal to
/// the parser: every problem is logged under "XML Parser" and the load goes on.
class ConfigLoader : public xercesc::DefaultHandler {
public:
    /// The most text that a document may hold, and the most in its attributes. [UTF-16 units]
    static constexpr std::uint64_t kMaxText = 64'000'000;

    /// The most elements that a document may have, and the most names in its lists.
    static constexpr std::uint64_t kMaxElements = 2'000'000;
    static constexpr std::uint64_t kMaxNames = 2'000'000;
    /// The most cells that all its layouts may have together.
    static constexpr std::uint64_t kMaxLayoutCells = 16'777'216;

    /// Elements between two questions whether the load was cancelled.
    static constexpr std::uint64_t kElementsPerQuestion = 1000;

    /// The store is filled, not owned; neither is `status`, which may be null.
    explicit ConfigLoader(ConfigMgr& config, const JobStatus* status = nullptr);
    ~ConfigLoader() override;
    ConfigLoader(const ConfigLoader&) = delete;
    ConfigLoader& operator=(const ConfigLoader&) = delete;

    void setDocumentLocator(const xercesc::Locator* const locator) override;
    void startDocument() override;
    void startElement(const XMLCh* const uri,
                      const XMLCh* const localname,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override;
    void endElement(const XMLCh* const uri,
                    const XMLCh* const localname,
                    const XMLCh* const qname) override;
    void characters(const XMLCh* const chars, const XMLSize_t length) override;

    void error(const xercesc::SAXParseException& e) override;
    void fatalError(const xercesc::SAXParseException& e) override;
    void warning(const xercesc::SAXParseException& e) override;
    void resetErrors() override {}

    /// Throws LoadCanceled when the load was cancelled.
    void Ask() const;

    /// Logs a fatal error that carries no place of its own at the place the parser has reached.
    void FatalError(const std::string& message);

private:
    using Attributes = xercesc::Attributes;

    void StartTag(const std::string& tag, const Attributes& attrs);
    void OnStartTileSet(const Attributes& attrs);
    void OnStartTile(const std::string& tag, const Attributes& attrs);
    void OnStartPlatform(const Attributes& attrs);
    void OnStartPlatformTile(const std::string& tag, const Attributes& attrs);
    void OnStartLayout(const Attributes& attrs);
    void OnStartCol();
    void OnStartTheme(const Attributes& attrs);
    void OnStartCreatureTheme(const Attributes& attrs);
    void OnStartTreasureTheme(const Attributes& attrs);
    void OnStartThemeItem(const Attributes& attrs);
    void OnStartContent(const std::string& tag, const Attributes& attrs);

    void OnEndTileSet();
    void OnEndTile();
    void OnEndPlatform();
    void OnEndPlatformTile();
    void OnEndLayout();
    void OnEndRow();
    void OnEndCol();
    void OnEndTheme();
    void OnEndCreatureTheme();
    void OnEndTreasureTheme();

    Theme* OpenTheme() const;
    void FileLayout();
    void ResetGridPlace();
    bool IsTooLarge(const LayoutHead& head);
    void LimitDepth();
    void LimitElements();
    void LimitNames(std::u16string_view list);
    void LimitAttributes(const Attributes& attrs);
    void LimitText(XMLSize_t length);
    [[noreturn]] void StopAtLimit(const std::string& message) const;

    ConfigMgr& config;
    const JobStatus* status;
    const xercesc::Locator* place = nullptr;
    std::uint32_t depth = 0;
    std::uint64_t textLength = 0;
    std::uint64_t attributeLength = 0;
    std::uint64_t elements = 0;
    std::uint64_t names = 0;
    std::uint64_t layoutCells = 0;
    std::uint32_t row = 0; // of the next cell of the current layout
    std::uint32_t col = 0;
    std::stack<DiPtr<LayoutTemplate>> layoutStack; // the open layouts, innermost on top
    DiPtr<Theme> curCreatureTheme;
    DiPtr<TemplateElmt> curCol;
    DiPtr<LayoutTemplate> curLayout;
    DiPtr<Platform> curPlatform;
    DiPtr<PlatformTile> curPlatformTile;
    DiPtr<Theme> curTheme;
    DiPtr<TileSet> curTileSet;
    DiPtr<Tile> curTile;
    DiPtr<Theme> curTreasureTheme;
};

} // namespace Tarnex

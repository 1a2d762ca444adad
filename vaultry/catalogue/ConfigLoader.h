// SPDX-License-Identifier: MIT
// The event handler that turns a configuration file into objects. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigFormat.h>
#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/catalogue/LoadBudget.h>
#include <vaultry/foundation/Problem.h>

#include <xercesc/sax2/DefaultHandler.hpp>

#include <cstdint>
#include <optional>
#include <stack>
#include <string>
#include <string_view>

namespace Tarnex {

class JobStatus;
struct LayoutHead;

/// Serves one parse. Each start tag creates or fills one object under construction, each matching
/// end tag files it in the store. Elements are recognised by name alone, wherever they stand; names
/// and keywords compare without regard to case. Nothing is fatal to the load but what is fatal to
/// the parser: every problem is reported and the load goes on. Listeners around the loader hear of
/// it with its place.
class ConfigLoader : public xercesc::DefaultHandler, public ProblemListener {
public:
    /// The store is filled, not owned; neither is `status`, which may be null. `file` (UTF-8) names
    /// the document in problems.
    ConfigLoader(ConfigMgr& config, std::string file, const JobStatus* status = nullptr);
    ~ConfigLoader() override;
    ConfigLoader(const ConfigLoader&) = delete;
    ConfigLoader& operator=(const ConfigLoader&) = delete;

    void setDocumentLocator(const xercesc::Locator* const locator) override;
    void startDocument() override;
    void startPrefixMapping(const XMLCh* const prefix, const XMLCh* const uri) override;
    void endPrefixMapping(const XMLCh* const prefix) override;
    void startElement(const XMLCh* const uri,
                      const XMLCh* const localname,
                      const XMLCh* const qname,
                      const xercesc::Attributes& attrs) override;
    void endElement(const XMLCh* const uri,
                    const XMLCh* const localname,
                    const XMLCh* const qname) override;
    void characters(const XMLCh* const chars, const XMLSize_t length) override;

    void internalEntityDecl(const XMLCh* const name, const XMLCh* const value) override;

    void error(const xercesc::SAXParseException& e) override;
    void fatalError(const xercesc::SAXParseException& e) override;
    void warning(const xercesc::SAXParseException& e) override;
    void resetErrors() override {}

    void Hear(const Problem& problem) override;

    /// What the document may still cost.
    LoadBudget& Budget() { return budget; }

    /// Reports a fatal error that carries no place of its own at the place the parser has reached.
    void FatalError(const std::string& message);

    /// The first fatal error; nothing when the document was read to its end.
    const std::optional<Problem>& Fault() const { return fault; }

protected:
    /// What a start tag of that name begins at the place reached.
    ElementClass Classify(std::string_view tag) const;

    /// Where the parser is; 0 before it has begun.
    DocumentPlace Reached() const;

private:
    using Attributes = xercesc::Attributes;

    void StartTag(const std::string& tag, const Attributes& attrs);
    void EndTag(const std::string& tag);
    void OnStartLayout(const Attributes& attrs);
    void OnStartThemeItem(const Attributes& attrs);
    void OnStartContent(const std::string& tag, const Attributes& attrs);

    void OnEndTileSet();
    void OnEndLayout();
    void OnEndRow();
    void OnEndCol();

    Theme* OpenTheme() const;
    void FileLayout();
    void ResetGridPlace();
    bool IsTooLarge(const LayoutHead& head);
    void SpendNames(std::u16string_view list);
    void SpendAttributes(const Attributes& attrs);
    void Break(Problem problem);

    ConfigMgr& config;
    std::string file;
    LoadBudget budget;
    std::optional<Problem> fault;
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

// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigLoader.h>

#include <vaultry/catalogue/ConfigAttributes.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Text.h>

#include <xercesc/sax/SAXParseException.hpp>

#include <utility>

namespace Tarnex {

namespace {

using Of = LoadBudget::Of;

template <typename T>
DiPtr<T> MakeFrom(const xercesc::Attributes& attrs) {
    auto object = MakeDi<T>();
    ApplyAttributes(attrs, *object);
    return object;
}

template <typename T>
void Begin(DiPtr<T>& object, const xercesc::Attributes& attrs) {
    object = MakeFrom<T>(attrs);
}

template <typename T>
void BeginPiece(DiPtr<T>& piece, const std::string& tag, const xercesc::Attributes& attrs) {
    Begin(piece, attrs);
    piece->kindName = tag;
}

// Files the piece if anything is open that takes it.
template <typename Kit, typename T>
void EndPiece(const DiPtr<Kit>& kit, DiPtr<T>& piece) {
    if (kit) {
        kit->Set(*piece);
        piece = nullptr;
    }
}

// Appends the object to the list if there is one, and lets go of it.
template <typename T>
void FileIn(std::vector<DiPtr<T>>& list, DiPtr<T>& object) {
    if (object) {
        list.push_back(object);
        object = nullptr;
    }
}

Problem ProblemOf(ProblemKind kind, const xercesc::SAXParseException& e) {
    return {kind, {Narrow(e.getMessage())}, {e.getLineNumber(), e.getColumnNumber()}};
}

void ReportSize(ProblemKind kind, const LayoutHead& head, std::uint64_t most) {
    ReportProblem({kind,
                   {std::to_string(head.height),
                    std::to_string(head.width),
                    head.name,
                    std::to_string(most)}});
}

} // namespace

ConfigLoader::ConfigLoader(ConfigMgr& config_, std::string file_, const JobStatus* status_)
    : config(config_), file(std::move(file_)), budget(status_) {}

// Here, since the linker for Windows, optimising the whole, fails on copies of it in several
// objects.
ConfigLoader::~ConfigLoader() = default;

void ConfigLoader::setDocumentLocator(const xercesc::Locator* const locator) {
    budget.SetPlace(locator);
}

void ConfigLoader::startDocument() {
    curLayout = nullptr;
    curTileSet = nullptr;
    curTile = nullptr;
    ResetGridPlace();
}

void ConfigLoader::startElement(const XMLCh* const /*uri*/,
                                const XMLCh* const /*localname*/,
                                const XMLCh* const qname,
                                const xercesc::Attributes& attrs) {
    budget.Count(Of::Depth);
    budget.Count(Of::Elements);
    SpendAttributes(attrs);
    StartTag(Narrow(qname), attrs);
}

ElementClass ConfigLoader::Classify(std::string_view tag) const {
    return ClassifyElement(tag,
                           {.tileSet = static_cast<bool>(curTileSet),
                            .platform = static_cast<bool>(curPlatform),
                            .layout = static_cast<bool>(curLayout),
                            .theme = OpenTheme() != nullptr});
}

void ConfigLoader::StartTag(const std::string& tag, const Attributes& attrs) {
    switch (Classify(tag)) {
    case ElementClass::TileSet:
        return Begin(curTileSet, attrs);
    case ElementClass::Tile:
        return BeginPiece(curTile, tag, attrs);
    case ElementClass::Platform:
        return Begin(curPlatform, attrs);
    case ElementClass::PlatformTile:
        return BeginPiece(curPlatformTile, tag, attrs);
    case ElementClass::Layout:
        return OnStartLayout(attrs);
    case ElementClass::Col:
        curCol = MakeDi<TemplateElmt>();
        return;
    case ElementClass::Theme:
        return Begin(curTheme, attrs);
    case ElementClass::CreatureTheme:
        return Begin(curCreatureTheme, attrs);
    case ElementClass::TreasureTheme:
        return Begin(curTreasureTheme, attrs);
    case ElementClass::ThemeItem:
        return OnStartThemeItem(attrs);
    case ElementClass::Content:
        return OnStartContent(tag, attrs);
    case ElementClass::Unknown:
        return ReportProblem({ProblemKind::UnknownElement, {tag}});
    case ElementClass::Root:
    case ElementClass::Row:
        return;
    }
}

void ConfigLoader::endElement(const XMLCh* const /*uri*/,
                              const XMLCh* const /*localname*/,
                              const XMLCh* const qname) {
    budget.GiveBack(Of::Depth);
    EndTag(Narrow(qname));
}

// End tags are recognised by their name alone: even a tile of the name of a row ends a row.
void ConfigLoader::EndTag(const std::string& tag) {
    const ElementFormat* const format = FindElementFormat(tag);
    switch (format == nullptr ? ElementClass::Unknown : format->element) {
    case ElementClass::TileSet:
        return OnEndTileSet();
    case ElementClass::Platform:
        return FileIn(config.platformList, curPlatform);
    case ElementClass::Layout:
        return OnEndLayout();
    case ElementClass::Col:
        return OnEndCol();
    case ElementClass::Row:
        return OnEndRow();
    case ElementClass::Theme:
        return FileIn(config.themes, curTheme);
    case ElementClass::CreatureTheme:
        return FileIn(config.creatureThemes, curCreatureTheme);
    case ElementClass::TreasureTheme:
        return FileIn(config.treasureThemes, curTreasureTheme);
    default:
        break;
    }
    if (curTile && EqualsNoCase(tag, curTile->kindName.Text())) {
        EndPiece(curTileSet, curTile);
    } else if (curPlatformTile && EqualsNoCase(tag, curPlatformTile->kindName)) {
        EndPiece(curPlatform, curPlatformTile);
    }
}

void ConfigLoader::characters(const XMLCh* const chars, const XMLSize_t length) {
    budget.Spend(Of::Text, length);
    if (curTile && curTile->id.empty()) {
        NarrowInto(curTile->id, {chars, length});
        return;
    }
    if (!curCol) {
        return;
    }
    SpendNames({chars, length});
    std::string text;
    NarrowInto(text, {chars, length});
    for (const std::string_view name : SplitList(text)) {
        curCol->tileNames.emplace_back(name);
    }
}

// A refused layout leaves everything as it was: its cells then belong to whatever layout is open
// around it.
void ConfigLoader::OnStartLayout(const Attributes& attrs) {
    LayoutHead head;
    ApplyAttributes(attrs, head);
    if (IsTooLarge(head)) {
        return;
    }
    curLayout = MakeDi<LayoutTemplate>(DiPos(head.width, head.height, 0));
    curLayout->SetOffset(head.offset);
    curLayout->SetName(head.name.c_str());
    curLayout->SetType(head.type.c_str());
    layoutStack.push(curLayout);
    ResetGridPlace();
}

// A layout that is too large, or that makes all of them too large together, is logged.
bool ConfigLoader::IsTooLarge(const LayoutHead& head) {
    constexpr auto kMax = static_cast<std::uint32_t>(LayoutTemplate::kMaxSize);
    const auto height = static_cast<std::uint32_t>(head.height);
    const auto width = static_cast<std::uint32_t>(head.width);
    if (height > kMax || width > kMax) {
        ReportSize(ProblemKind::LayoutTooLarge, head, LayoutTemplate::kMaxSize);
        return true;
    }
    const std::uint64_t cells = std::uint64_t{height} * width;
    if (!budget.Affords(Of::LayoutCells, cells)) {
        ReportSize(ProblemKind::LayoutsTooLarge, head, LoadBudget::Most(Of::LayoutCells));
        return true;
    }
    budget.Count(Of::LayoutCells, cells);
    return false;
}

void ConfigLoader::OnStartThemeItem(const Attributes& attrs) {
    for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
        if (EqualsNoCase(Narrow(attrs.getQName(i)), Attrib_UniqueName)) {
            SpendNames(attrs.getValue(i));
        }
    }
    OpenTheme()->items.push_back(MakeFrom<ThemeItem>(attrs));
}

void ConfigLoader::OnStartContent(const std::string& tag, const Attributes& attrs) {
    auto content = MakeFrom<ContentTemplate>(attrs);
    content->contentKind = tag;
    config.contentMgr->Add(content);
}

void ConfigLoader::OnEndTileSet() {
    if (!curTileSet) {
        return;
    }
    const DiPtr<TileSet> tileSet = std::move(curTileSet);
    const std::string& type = tileSet->GetType();
    if (EqualsNoCase(type, Tile_Cave)) {
        config.caveTileSets.push_back(tileSet);
    } else if (EqualsNoCase(type, Tile_Room)) {
        config.roomTileSets.push_back(tileSet);
    } else {
        ReportProblem({ProblemKind::UnknownTileSetType, {type, tileSet->GetName()}});
    }
}

void ConfigLoader::OnEndLayout() {
    if (!curLayout) {
        return;
    }
    const DiPtr<LayoutTemplate> finished = layoutStack.top();
    layoutStack.pop();
    if (layoutStack.empty()) {
        FileLayout();
        curLayout = nullptr;
    } else {
        curLayout = layoutStack.top();
        curLayout->AddChild(finished);
    }
    // The grid of an enclosing layout starts over: children follow all rows of their parent.
    ResetGridPlace();
}

void ConfigLoader::FileLayout() {
    const std::string& type = curLayout->GetType();
    if (EqualsNoCase(type, Tile_Cave)) {
        config.caveLayouts.push_back(curLayout);
    } else if (EqualsNoCase(type, Tile_Room)) {
        config.roomLayouts.push_back(curLayout);
    } else {
        ReportProblem({ProblemKind::UnknownLayoutType, {type, curLayout->GetName()}});
    }
}

void ConfigLoader::OnEndRow() {
    col = 0;
    ++row;
}

void ConfigLoader::OnEndCol() {
    if (!curCol || !curLayout) {
        return;
    }
    if (!curCol->tileNames.empty()) {
        if (col < curLayout->GetWidth() && row < curLayout->GetHeight()) {
            curLayout->SetElmt(
                curCol, static_cast<std::int32_t>(row), static_cast<std::int32_t>(col));
        } else {
            ReportProblem(
                {ProblemKind::CellOutside,
                 {curLayout->GetName(), std::to_string(row + 1), std::to_string(col + 1)}});
        }
    }
    curCol = nullptr;
    ++col;
}

Theme* ConfigLoader::OpenTheme() const {
    for (const DiPtr<Theme>* theme : {&curTheme, &curCreatureTheme, &curTreasureTheme}) {
        if (*theme) {
            return theme->get();
        }
    }
    return nullptr;
}

void ConfigLoader::ResetGridPlace() {
    curCol = nullptr;
    row = 0;
    col = 0;
}

// Counted before the names are made: each takes more memory than its letters.
void ConfigLoader::SpendNames(std::u16string_view list) {
    std::uint64_t names = 0;
    bool separated = true;
    for (const char16_t c : list) {
        const bool separates =
            c < 0x80 && kListSeparators.find(static_cast<char>(c)) != std::string_view::npos;
        names += separated && !separates ? 1U : 0U;
        separated = separates;
    }
    budget.Spend(Of::ListedNames, names);
}

// A document type can give every element many attributes of any length for the length of its tag.
void ConfigLoader::SpendAttributes(const Attributes& attrs) {
    std::uint64_t length = 0;
    for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
        length += std::u16string_view(attrs.getQName(i)).size();
        length += std::u16string_view(attrs.getValue(i)).size();
    }
    budget.Count(Of::Attributes, attrs.getLength());
    budget.Spend(Of::AttributeText, length);
}

// Declarations of namespaces are attributes, but the parser does not tell them as such.
void ConfigLoader::startPrefixMapping(const XMLCh* const prefix, const XMLCh* const uri) {
    budget.Count(Of::Namespaces);
    budget.Count(Of::Attributes);
    budget.Spend(Of::AttributeText,
                 std::u16string_view(prefix).size() + std::u16string_view(uri).size());
}

void ConfigLoader::endPrefixMapping(const XMLCh* const /*prefix*/) {
    budget.GiveBack(Of::Namespaces);
}

void ConfigLoader::internalEntityDecl(const XMLCh* const /*name*/, const XMLCh* const value) {
    const std::uint64_t length = std::u16string_view(value).size();
    budget.Spend(Of::EntityText, length);
    budget.GiveBack(Of::EntityText, length);
}

void ConfigLoader::error(const xercesc::SAXParseException& e) {
    ReportProblem(ProblemOf(ProblemKind::Invalid, e));
}

void ConfigLoader::fatalError(const xercesc::SAXParseException& e) {
    Break(ProblemOf(ProblemKind::Broken, e));
}

void ConfigLoader::warning(const xercesc::SAXParseException& e) {
    ReportProblem(ProblemOf(ProblemKind::Odd, e));
}

void ConfigLoader::FatalError(const std::string& message) {
    Break({ProblemKind::Broken, {message}, Reached()});
}

void ConfigLoader::Break(Problem problem) {
    problem.file = file;
    ReportProblem(problem);
    if (!fault) {
        fault = std::move(problem);
    }
}

DocumentPlace ConfigLoader::Reached() const {
    const xercesc::Locator* place = budget.Place();
    return place == nullptr ? DocumentPlace{}
                            : DocumentPlace{place->getLineNumber(), place->getColumnNumber()};
}

// What the store's own objects report has no place.
void ConfigLoader::Hear(const Problem& problem) {
    Problem placed = problem;
    placed.file = file;
    if (problem.place.line == 0) {
        placed.place = Reached();
    }
    PassOn(placed);
}

} // namespace Tarnex

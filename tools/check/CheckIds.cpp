// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kLongestId = 31; // that the game takes [bytes]
constexpr std::string_view kBlanks = " \t\r\n";

std::string Trimmed(const std::string& text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    return start == std::string::npos
               ? ""
               : text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
}

std::string Bytes(const std::string& text) {
    return " of " + std::to_string(text.size()) + " bytes, the game takes " +
           std::to_string(kLongestId);
}

struct Id {
    const ConfigElement& element;
    DocumentPlace place;
    std::string text;
    bool carried = false; // in containers, where the field has that length
};

void CheckId(const Id& id, Findings& findings) {
    const std::string trimmed = Trimmed(id.text);
    if (trimmed.empty()) {
        findings.Add(Weight::Error,
                     id.place,
                     id.element.name + " has no identifier",
                     "What is placed refers to no object.");
        return;
    }
    if (trimmed != id.text) {
        findings.Add(Weight::Error,
                     id.place,
                     id.element.name + " has blanks or line breaks around its identifier " +
                         InQuotes(trimmed),
                     "They belong to the identifier, and the game does not find it.",
                     trimmed);
    }
    if (id.text.size() > kLongestId) {
        findings.Add(
            Weight::Error,
            id.place,
            id.element.name + ' ' + InQuotes(id.text) + " has an identifier" + Bytes(id.text),
            id.carried ? "It is cut in containers, and the game does not find it. Shorten it."
                       : "The game does not find it. Shorten it.");
    }
}

void CheckTile(const ConfigElement& tile, Findings& findings) {
    CheckId({tile, tile.place, tile.firstText}, findings);
    if (!Trimmed(tile.firstText).empty() && tile.text != tile.firstText) {
        findings.Add(Weight::Error,
                     tile.place,
                     "the identifier of " + tile.name + " is read up to " +
                         InQuotes(tile.firstText) + " only",
                     "A comment, an entity or another element ends it, and the game does not find "
                     "it.",
                     Trimmed(tile.text));
    }
}

// The two texts of a container that stand in the plug-in; its identifier is made anew.
void CheckContainer(const ConfigElement& container, Findings& findings) {
    for (const std::string_view name : {Attrib_FriendlyName, Attrib_ModelFile}) {
        const std::string text = AttributeText(container, name);
        if (text.size() > kLongestId) {
            findings.Add(Weight::Warning,
                         PlaceOf(container, name),
                         std::string(name) + ' ' + InQuotes(text) + " is a text" + Bytes(text),
                         "The game's editor cuts it.");
        }
    }
    if (AttributeText(container, Attrib_ModelFile).empty()) {
        findings.Add(Weight::Warning,
                     container.place,
                     Titled(container, Attrib_UniqueName) + " has no ModelFile",
                     "It cannot be seen. Give the path of its model.");
    }
}

} // namespace

void CheckIds(const ConfigTree& tree, Findings& findings) {
    for (const ConfigElement* tile : tree.OfClass(ElementClass::Tile)) {
        CheckTile(*tile, findings);
    }
    const auto uniqueName = [](const ConfigElement& element, bool carried) {
        return Id{element,
                  PlaceOf(element, Attrib_UniqueName),
                  AttributeText(element, Attrib_UniqueName),
                  carried};
    };
    for (const ConfigElement* piece : tree.OfClass(ElementClass::PlatformTile)) {
        CheckId(uniqueName(*piece, false), findings);
    }
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        if (Is(*content, Content_Container)) {
            CheckContainer(*content, findings);
        } else {
            CheckId(uniqueName(*content, IsCarried(*content)), findings);
        }
    }
}

} // namespace Tarnex::Report

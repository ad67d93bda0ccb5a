#include "Workbook.h"

#include "CellNumber.h"
#include "Unicode.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

struct SheetEntry {
    std::string relationId;
    bool bVisible;
};

// Appends the text with characters in place of escapes such as _x000D_, but of _x005F_ just the underscore.
void AppendUnescaped(std::string_view escaped, std::string& text) {
    constexpr std::size_t kLength = 7;
    for (std::size_t nAt = 0; (nAt = escaped.find("_x", nAt)) != escaped.npos;) {
        const std::string_view escape = escaped.substr(nAt, kLength);
        std::uint32_t nCode = 0;
        if (escape.size() == kLength && escape.back() == '_' &&
            std::from_chars(escape.data() + 2, escape.data() + 6, nCode, 16).ptr == escape.data() + 6) {
            AppendUtf8(text.append(escaped, 0, nAt), nCode);
            escaped.remove_prefix(nAt + kLength);
            nAt = 0;
        } else {
            ++nAt;
        }
    }
    text += escaped;
}

// Excel shows the tab that is marked as active even when it is hidden.
const SheetEntry& ActiveEntry(const std::vector<SheetEntry>& sheets, std::size_t nActive) {
    if (nActive < sheets.size()) return sheets[nActive];
    const auto visible =
        std::find_if(sheets.begin(), sheets.end(), [](const SheetEntry& sheet) { return sheet.bVisible; });
    if (visible == sheets.end()) throw std::runtime_error("no visible sheet");
    return *visible;
}

}  // namespace

Workbook::Workbook(zip_source* pSource)
    : m_package(pSource),
      m_part(Package::FindPart(m_package.Relations(""), "officeDocument")),
      m_relations(m_package.Relations(m_part)) {}

std::optional<std::string> Workbook::FindActiveSheet() {
    std::vector<SheetEntry> sheets;
    std::size_t nViews = 0, nActive = 0;
    XmlScanner xml = OpenPart(m_part);
    xml.EnterRoot("workbook");
    xml.ForEachChild([&](std::string_view list) {
        const bool bViews = list == "bookViews", bSheets = list == "sheets";
        xml.ForEachChild([&](std::string_view name) {
            if (bViews && name == "workbookView" && nViews++ == 0) {
                const std::string_view active = xml.Attribute("activeTab");
                nActive = active.empty() ? 0 : ParseIndex(active);
            } else if (bSheets && name == "sheet") {
                if (sheets.size() == kTooManyEntries) throw std::runtime_error("too many sheets");
                const std::string_view state = xml.Attribute("state");
                sheets.push_back({std::string(xml.Attribute("id")), state.empty() || state == "visible"});
            }
        });
    });
    xml.Finish();
    const std::string& id = ActiveEntry(sheets, nActive).relationId;
    const auto found = std::find_if(m_relations.begin(), m_relations.end(),
                                    [&](const Relation& relation) { return relation.id == id; });
    if (found == m_relations.end()) throw std::runtime_error("no such sheet");
    if (found->kind == "chartsheet" || found->kind == "dialogsheet") return std::nullopt;
    return found->part;
}

NumberFormats Workbook::ReadFormats() {
    const std::string part = Package::FindPart(m_relations, "styles");
    return part.empty() ? NumberFormats() : NumberFormats(OpenPart(part));
}

TextPool Workbook::ReadSharedTexts() {
    TextPool texts;
    const std::string part = Package::FindPart(m_relations, "sharedStrings");
    if (part.empty()) return texts;
    XmlScanner xml = OpenPart(part);
    std::string text;
    xml.EnterRoot("sst");
    xml.ForEachChild([&](std::string_view name) {
        if (name != "si") return;
        text.clear();
        ReadRichText(xml, text);
        texts.Add(text);
    });
    xml.Finish();
    return texts;
}

void ReadPlainText(XmlScanner& xml, std::string& text) {
    const bool bPreserve = xml.Attribute("space") == "preserve";
    std::string pieces;
    const std::string_view escaped = xml.ReadText(pieces);
    AppendUnescaped(bPreserve ? escaped : Trimmed(escaped), text);
}

void ReadRichText(XmlScanner& xml, std::string& text) {
    xml.ForEachChild([&](std::string_view name) {
        if (name == "t") return ReadPlainText(xml, text);
        if (name == "r") ReadRichText(xml, text);
    });
}

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

void Trim(std::string& text) {
    constexpr char kBlanks[] = " \t\r\n";
    text.resize(text.find_last_not_of(kBlanks) + 1);
    text.erase(0, text.find_first_not_of(kBlanks));
}

// Where the tab that is marked as active is hidden or missing, Excel takes the next visible one, and behind
// the last one that before.
const SheetEntry& ActiveEntry(const std::vector<SheetEntry>& sheets, std::size_t nActive) {
    const auto visible = [](const SheetEntry& sheet) { return sheet.bVisible; };
    const auto active = sheets.begin() + static_cast<std::ptrdiff_t>(std::min(nActive, sheets.size()));
    const auto next = std::find_if(active, sheets.end(), visible);
    if (next != sheets.end()) return *next;
    const auto before = std::find_if(std::make_reverse_iterator(active), sheets.rend(), visible);
    if (before == sheets.rend()) throw std::runtime_error("no visible sheet");
    return *before;
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

void ReadRichText(XmlScanner& xml, std::string& text) {
    xml.ForEachChild([&](std::string_view name) {
        if (name == "r") return ReadRichText(xml, text);
        if (name != "t") return;
        const bool bPreserve = xml.Attribute("space") == "preserve";
        std::string run;
        xml.ReadText(run);
        if (!bPreserve) Trim(run);
        Unescape(run);
        text += run;
    });
}

void Unescape(std::string& text) {
    constexpr std::size_t kLength = 7;
    std::string result;
    std::size_t nDone = 0;
    for (std::size_t nAt = 0; (nAt = text.find("_x", nAt)) != text.npos && text.size() - nAt >= kLength;) {
        const char* const pCode = text.data() + nAt + 2;
        std::uint32_t nCode = 0;
        if (pCode[4] == '_' && std::from_chars(pCode, pCode + 4, nCode, 16).ptr == pCode + 4) {
            AppendUtf8(result.append(text, nDone, nAt - nDone), nCode);
            nDone = nAt += kLength;
        } else {
            ++nAt;
        }
    }
    if (nDone > 0) text = result.append(text, nDone);
}

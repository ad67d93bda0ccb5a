#include "Workbook.h"

#include "CellNumber.h"
#include "Limits.h"
#include "RichText.h"

#include <algorithm>
#include <stdexcept>

namespace {

struct SheetEntry {
    std::string relationshipId;
    std::string name;
    bool bVisible;
};

// What the workbook's part says of its sheets.
struct SheetList {
    std::vector<SheetEntry> sheets;
    std::optional<std::size_t> activeTab;  // of the first window
    std::size_t nBytes = 0;
};

// Reads the element that was just entered: <workbookView> or <sheet>.
void ReadEntry(const XmlScanner& xml, std::string_view name, SheetList& list) {
    if (name == "workbookView" && !list.activeTab) {
        const std::string_view active = xml.Attribute("activeTab");
        list.activeTab = active.empty() ? 0 : ParseIndex(active);
    } else if (name == "sheet") {
        const std::string_view state = xml.Attribute("state");
        std::string_view id = xml.Attribute("r:id");
        if (id.empty()) id = xml.PrefixedAttribute("id");  // nearly all writers call it r
        const std::string_view sheetName = xml.Attribute("name");
        list.sheets.push_back({std::string(id), std::string(sheetName), state.empty() || state == "visible"});
        list.nBytes += id.size() + sheetName.size();
        if (list.sheets.size() > kMaxListEntries || list.nBytes > kMaxListBytes)
            throw std::runtime_error("too many sheets");
    }
}

// The sheet of the active tab, even when it is hidden: Excel shows it all the same.
const SheetEntry& ActiveSheet(const SheetList& list) {
    const std::size_t nActive = list.activeTab.value_or(0);
    if (nActive < list.sheets.size()) return list.sheets[nActive];
    const auto visible = std::find_if(list.sheets.begin(), list.sheets.end(),
                                      [](const SheetEntry& sheet) { return sheet.bVisible; });
    if (visible == list.sheets.end()) throw std::runtime_error("no visible sheet");
    return *visible;
}

}  // namespace

Workbook::Workbook(zip_source* pSource)
    : m_package(pSource),
      m_part(FindTarget(m_package.ReadRelationships(""), "officeDocument")),
      m_relationships(m_package.ReadRelationships(m_part)) {}

std::optional<std::string> Workbook::FindActiveSheet() {
    SheetList list;
    XmlScanner xml = OpenPart(m_part);
    xml.EnterRoot("workbook");
    xml.ForEachChild([&](std::string_view child) {
        if (child == "bookViews" || child == "sheets")
            xml.ForEachChild([&](std::string_view name) { ReadEntry(xml, name, list); });
    });
    xml.Finish();
    const SheetEntry& active = ActiveSheet(list);
    m_activeSheetName = active.name;
    const auto found = std::find_if(
        m_relationships.begin(), m_relationships.end(),
        [&](const Relationship& relationship) { return relationship.id == active.relationshipId; });
    if (found == m_relationships.end()) throw std::runtime_error("no such sheet");
    if (found->type == "chartsheet" || found->type == "dialogsheet") return std::nullopt;
    return found->part;
}

NumberFormats Workbook::ReadNumberFormats() {
    const std::string part = FindTarget(m_relationships, "styles");
    return part.empty() ? NumberFormats() : NumberFormats(OpenPart(part));
}

StringPool Workbook::ReadSharedStrings() {
    StringPool strings;
    const std::string part = FindTarget(m_relationships, "sharedStrings");
    if (part.empty()) return strings;
    XmlScanner xml = OpenPart(part);
    std::string text;
    xml.EnterRoot("sst");
    xml.ForEachChild([&](std::string_view name) {
        if (name != "si") return;
        text.clear();
        ReadRichText(xml, text);
        strings.Add(text);
    });
    xml.Finish();
    return strings;
}

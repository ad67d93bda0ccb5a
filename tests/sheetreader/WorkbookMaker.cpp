#include "WorkbookMaker.h"

#include <zip.h>

#include <stdexcept>

namespace {

constexpr char kWorkbook[] =
    "<workbook><bookViews><workbookView activeTab='0'/></bookViews>"
    "<sheets><sheet name='Bands' sheetId='1' r:id='rId1'/></sheets></workbook>";

constexpr char kPackageLinks[] =
    "<Relationships><Relationship Id='rId1' Type='a/officeDocument' "
    "Target='xl/workbook.xml'/></Relationships>";

constexpr char kWorkbookLinks[] =
    "<Relationships><Relationship Id='rId1' Type='a/worksheet' Target='worksheets/sheet1.xml'/>"
    "<Relationship Id='rId2' Type='a/sharedStrings' Target='sharedStrings.xml'/>"
    "<Relationship Id='rId3' Type='a/styles' Target='styles.xml'/></Relationships>";

constexpr char kStrings[] =
    "<sst><si><t>plain</t></si>"
    "<si><r><t>Ab</t></r><r><rPr><b/></rPr><t xml:space='preserve'>c d</t></r>"
    "<rPh sb='0' eb='1'><t>guide</t></rPh><phoneticPr fontId='1'/></si>"
    "<si><t>a_x000D_b_x005F_x000D_c_x00e9_d_x12</t></si><si><t> in blanks\n</t></si>"
    "<si><t xml:space='preserve'> in blanks\n</t></si><si><t>&lt;&#x62;&#10;<![CDATA[&amp;]]></t></si></sst>";

constexpr char kStyles[] =
    "<styleSheet><numFmts count='1'><numFmt numFmtId='164' formatCode='[Red][$-409]&quot;dmy&quot;0.0\\d'/>"
    "</numFmts><cellXfs><xf/><xf numFmtId='9'/><xf numFmtId='14'/><xf "
    "numFmtId='164'/></cellXfs></styleSheet>";

}  // namespace

Parts MakeParts(const std::string& rows) {
    return {
        {"[Content_Types].xml", "<Types/>"},
        {"_rels/.rels", kPackageLinks},
        {"xl/workbook.xml", kWorkbook},
        {"xl/_rels/workbook.xml.rels", kWorkbookLinks},
        {"xl/sharedStrings.xml", kStrings},
        {"xl/styles.xml", kStyles},
        {"xl/worksheets/sheet1.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"},
    };
}

std::string MakeZip(const Parts& parts) {
    zip_source_t* const pSource = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_t* const pZip = zip_open_from_source(pSource, ZIP_TRUNCATE, nullptr);
    if (!pZip) throw std::runtime_error("no archive");
    zip_source_keep(pSource);
    for (const auto& [name, text] : parts)
        zip_file_add(pZip, name.c_str(), zip_source_buffer(pZip, text.data(), text.size(), 0), 0);
    zip_stat_t stat{};
    if (zip_close(pZip) != 0 || zip_source_open(pSource) != 0 || zip_source_stat(pSource, &stat) != 0)
        throw std::runtime_error("no archive");
    std::string bytes(stat.size, '\0');
    zip_source_read(pSource, bytes.data(), bytes.size());
    zip_source_close(pSource);
    zip_source_free(pSource);
    return bytes;
}

zip_source* OpenBytes(const std::string& bytes) {
    return zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
}

#include "WorkbookMaker.h"

#include <zip.h>

#include <stdexcept>

namespace {

#define MAIN "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
#define DOCUMENT "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
#define PACKAGE "http://schemas.openxmlformats.org/package/2006/relationships"

std::string Relation(const std::string& id, const std::string& kind, const std::string& target) {
    return "<Relationship Id='" + id + "' Type='" DOCUMENT "/" + kind + "' Target='" + target + "'/>";
}

std::string Relations(const std::string& relations) {
    return "<Relationships xmlns='" PACKAGE "'>" + relations + "</Relationships>";
}

constexpr char kTexts[] =
    "<sst xmlns='" MAIN
    "'><si><t>plain</t></si>"
    "<si><r><t>Ab</t></r><r><rPr><b/></rPr><t xml:space='preserve'>c d</t></r>"
    "<rPh sb='0' eb='1'><t>guide</t></rPh><phoneticPr fontId='1'/></si>"
    "<si><t>a_x000D_b_x005F_x000D_c_x00e9_d_x12</t></si><si><t> in blanks\n</t></si>"
    "<si><t xml:space='preserve'> in blanks\n</t></si><si><t>&lt;&#x62;&#10;<![CDATA[&amp;]]></t></si></sst>";

constexpr char kStyles[] =
    "<styleSheet xmlns='" MAIN
    "'><numFmts count='4'><numFmt numFmtId='164' formatCode='yyyy\\-mm'/>"
    "<numFmt numFmtId='165' formatCode='#,##0\\ [$CHF-807]'/><numFmt numFmtId='166' "
    "formatCode='[Red][$-409]&quot;dmy&quot;0.0\\d'/><numFmt numFmtId='167' formatCode='[hh]'/></numFmts>"
    "<cellXfs><xf/><xf numFmtId='9'/><xf numFmtId='14'/><xf numFmtId='164'/><xf numFmtId='44'/>"
    "<xf numFmtId='165'/><xf numFmtId='166'/><xf numFmtId='167'/></cellXfs></styleSheet>";

}  // namespace

Parts MakeParts(const std::string& rows) {
    return {
        {"[Content_Types].xml", "<Types/>"},
        {"_rels/.rels", Relations(Relation("rId1", "officeDocument", "xl/workbook.xml"))},
        {"xl/workbook.xml", "<workbook xmlns='" MAIN "' xmlns:r='" DOCUMENT
                            "'><bookViews><workbookView activeTab='0'/></bookViews>"
                            "<sheets><sheet name='Bands' sheetId='1' r:id='rId1'/></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels", Relations(Relation("rId1", "worksheet", "worksheets/sheet1.xml") +
                                                 Relation("rId2", "sharedStrings", "sharedStrings.xml") +
                                                 Relation("rId3", "styles", "styles.xml"))},
        {"xl/sharedStrings.xml", kTexts},
        {"xl/styles.xml", kStyles},
        {"xl/worksheets/sheet1.xml",
         "<worksheet xmlns='" MAIN "'><sheetData>" + rows + "</sheetData></worksheet>"},
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

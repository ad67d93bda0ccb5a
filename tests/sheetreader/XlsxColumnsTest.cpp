#include "XlsxColumns.h"
#include "WorkbookMaker.h"
#include "support/Texts.h"

#include <gmock/gmock.h>

#include <chrono>
#include <random>

using namespace testing;

namespace {

using Table = std::vector<std::vector<std::wstring>>;

Table ReadBytes(const std::string& bytes, const std::vector<std::wstring>& letters) {
    XlsxColumns sheet(OpenBytes(bytes), letters);
    Table table;
    for (std::size_t i = 0; i < letters.size(); ++i) table.push_back(sheet.TakeTexts<std::wstring>(i));
    return table;
}

Table Read(const Parts& parts, const std::vector<std::wstring>& letters = {L"A", L"B"}) {
    return ReadBytes(MakeZip(parts), letters);
}

// The parts of a good workbook with something replaced, which has to be there.
Parts Changed(const std::string& part, const std::string& what, const std::string& by) {
    Parts parts = MakeParts("<row r='1'><c r='A1'><v>1</v></c></row>");
    parts.at(part) = Replaced(parts.at(part), what, by);
    return parts;
}

void ExpectRefused(const Parts& parts, const std::string& what) {
    const std::string bytes = MakeZip(parts);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(ReadBytes(bytes, {L"A", L"B"}), std::exception) << what.substr(0, 80);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30)) << what.substr(0, 80);
}

const std::string kPackage = "_rels/.rels", kWorkbook = "xl/workbook.xml",
                  kLinks = "xl/_rels/workbook.xml.rels", kSheet = "xl/worksheets/sheet1.xml",
                  kStrings = "xl/sharedStrings.xml", kStyles = "xl/styles.xml";
const std::string kCell = "<c><v>1</v></c>";

}  // namespace

TEST(XlsxColumnsTest, GivesTheTextOfEachKindOfCell) {
    const std::pair<std::string, std::wstring> kCases[] = {
        {"<c><v>10</v></c>", L"10"},
        {"<c t='n'><v> -7.25 </v></c>", L"-7.25"},
        {"<c><v>1E20</v></c>", L"100000000000000000000"},
        {"<c><v>1e-400</v></c>", L"0"},
        {"<c s='2'><v>45351</v></c>", L""},
        {"<c s='99'><v>1.5</v></c>", L"1.5"},
        {"<c t='d'><v>2024-02-29</v></c>", L""},
        {"<c t='str'><f>\"x\"</f><v> x_x0041_&amp;</v></c>", L"xA&"},
        {"<c t='s'><v>0</v></c>", L"plain"},
        {"<c t='s'><v>1</v></c>", L"Abc d"},
        {"<c t='s'><v>2</v></c>", L"a\rb_x000D_c\u00E9d_x12"},
        {"<c t='s'><v>3</v></c>", L"in blanks"},
        {"<c t='s'><v>4</v></c>", L" in blanks\n"},
        {"<c t='s'><v>5</v></c>", L"<b\n&amp;"},
        {"<c t='s'/>", L""},
        {"<c t='inlineStr'><is><t>抜き\r\n😀</t></is></c>", L"抜き\n😀"},
        {"<c t='inlineStr'><is><t><![CDATA[a]]>b/c<?p?>&amp;<!-- --><b>x</b>/d</t></is></c>", L"ab/c&/d"},
        {"<c t='inlineStr'><v>a</v></c>", L"a"},
        {"<c t='s'><is><t>a</t></is></c>", L""},
        {"<x:c xmlns:x='u'><v>2</v></x:c><c/>", L""},
    };
    for (const auto& [cell, text] : kCases) {
        SCOPED_TRACE(cell);
        EXPECT_EQ(Read(MakeParts("<row>" + kCell + cell + "</row>")), (Table{{L"1"}, {text}}));
    }
}

TEST(XlsxColumnsTest, GivesACellWithoutStyleTheFirstOne) {
    Parts parts = MakeParts("<row><c s='1'><v>1.5</v></c><c><v>2</v></c></row>");
    parts[kStyles] = "<styleSheet><cellXfs><xf numFmtId='14'/><xf/></cellXfs></styleSheet>";
    EXPECT_EQ(Read(parts), (Table{{L"1.5"}, {L""}}));
}

TEST(XlsxColumnsTest, PutsCellsInTheirPlaces) {
    const struct {
        std::string rows;
        Table table;
    } kCases[] = {
        {"<row>" + kCell + "</row><row>" + kCell + "<c/>" + kCell + "</row>",
         {{L"1", L"1"}, {L"", L""}, {L"", L"1"}}},
        {"<row r='2'><c r='C2'><v>6</v></c><c r='A2'><v>4</v></c></row><row r='1'>" + kCell + kCell +
             "</row>",
         {{L"1", L"4"}, {L"1", L""}, {L"", L"6"}}},
        {"<row><c r='A1'><v>1</v></c><c r='A1'><v>2</v></c><c r='B1'><v>3</v></c><c r='B1'/></row>",
         {{L"2"}, {L""}, {L""}}},
        {"<row r='1'>" + kCell + "</row><row r='3'>" + kCell + "</row>", {{L"1"}, {L""}, {L""}}},
        {"<row r='1048576'><c r='A1048576'><v>1</v></c><c r='XFD1048576'/></row>", {{}, {}, {}}},
        {"<row>" + kCell + "<c t='b'/></row><row><c t='b'><v>1</v></c>" + kCell + "</row>",
         {{L"1"}, {L""}, {L""}}},
        {"", {{}, {}, {}}},
    };
    for (const auto& [rows, table] : kCases) {
        SCOPED_TRACE(rows);
        EXPECT_EQ(Read(MakeParts(rows), {L"A", L"B", L"C"}), table);
    }
    EXPECT_EQ(
        Read(MakeParts("<row>" + kCell + kCell + "</row>"), {L"A", L"b", L"XFE", L"", L"1", L"B", L"XFD"}),
        (Table{{L"1"}, {L"1"}, {}, {}, {}, {L"1"}, {L""}}));
}

TEST(XlsxColumnsTest, RefusesDamagedWorkbooks) {
    const std::string at = "r='A1'";
    const struct {
        std::string part, what, by;
    } kCases[] = {
        {kPackage, "officeDocument'", "image'"},
        {kWorkbook, "0'/></bookViews><sheets><sheet ", "1'/></bookViews><sheets><sheet state='hidden' "},
        {kWorkbook, "r:id='rId1'", "r:id='rId9'"},
        {kWorkbook, "activeTab='0'", "activeTab='x'"},
        {kLinks, "worksheets/sheet1.xml", "workbook.xml"},
        {kLinks, "Id='rId1'", "TargetMode='External' Id='rId1'"},
        {kLinks, "'sharedStrings.xml", "'none.xml"},
        {kSheet, at, "t='x'"},
        {kSheet, at, "s='99999999999e-9' r='A1'"},
        {kSheet, at, "t='s' r='A1'><v>6</v></c><c"},
        {kSheet, at, "t='str' r='A1'><v>\xC3(</v></c><c"},
        {kSheet, at, "t='inlineStr' r='A1'><is><t>\xED\xA0</t></is></c><c"},
    };
    for (const auto& [part, what, by] : kCases) ExpectRefused(Changed(part, what, by), by);
    for (const std::string reference : {"A0", "A1048577", "XFE1", "A99999999999", "ZZZZZZZZZZ1", "1", "A1B"})
        ExpectRefused(Changed(kSheet, at, "r='" + reference + "'"), reference);
    for (const std::string number : {"1,5", "1e999", "1e-400x", "inf"})
        ExpectRefused(Changed(kSheet, "<v>1", "<v>" + number), number);
    ExpectRefused({{kPackage, ""}}, "no package");
    Parts noData = MakeParts("");
    noData[kSheet] = "<worksheet xmlns:x='u'><x:sheetData/></worksheet>";
    ExpectRefused(noData, "no data");
}

TEST(XlsxColumnsTest, RefusesLargeWorkbooksWithoutDelay) {
    const struct {
        std::string part, what, by;
    } kCases[] = {
        {kStyles, "<xf/>", Repeated("<xf/>", 1 << 16)},
        {kStyles, "<numFmt ", Repeated("<numFmt numFmtId='9'/>", 1 << 16) + "<numFmt "},
        {kStyles, "0.0", Repeated("0", 300)},
        {kLinks, "<Relationship ", "<Relationship Target='" + std::string(5000, 'a') + "'/><Relationship "},
        {kLinks, "<Relationship ", "<Relationship Id='" + std::string(5000, 'a') + "'/><Relationship "},
        {kLinks, "<Relationship ",
         Repeated("<Relationship Target='" + std::string(3000, 'a') + "'/>", 10'000) + "<Relationship "},
        {kStrings, "plain", Repeated("<![CDATA[" + std::string(1 << 20, 'x') + "]]>", 40)},
        {kStrings, "<si>", "<si>" + Repeated("<t>" + std::string(1 << 20, 'x') + "</t>", 40)},
        {kWorkbook, "<sheet ", Repeated("<sheet r:id='rId1'/>", 1 << 16) + "<sheet "},
        {kLinks, "<Relationship ", Repeated("<Relationship/>", 1 << 16) + "<Relationship "},
        {kSheet, "<c ", Repeated("<c/>", 1'000'000) + "<c "},
        {kSheet, "<row ", Repeated("<row/>", 1 << 20) + "<row><c/></row><row "},
        {kStrings, "</sst>", Repeated("<si/>", 16 << 20) + "</sst>"},  // inflates too far
    };
    for (const auto& [part, what, by] : kCases) ExpectRefused(Changed(part, what, by), by);
    Parts parts = Changed(kSheet, "</row>", Repeated("<c r='A1'/>", 1 << 23) + "</row>");
    std::mt19937 random(1);
    for (int i = 0; i < 1 << 20; ++i)
        parts["large.bin"] += static_cast<char>(random());  // or it inflates too far
    ExpectRefused(parts, "many cells");
}

TEST(XlsxColumnsTest, RefusesArchivesOfManyEntries) {
    const auto withEntries = [](std::size_t nEntries) {
        std::string bytes = MakeZip(MakeParts("<row>" + kCell + "</row>"));
        const std::size_t nEnd = bytes.size() - 22, nSizeAt = nEnd + 12;
        const std::string entry = bytes.substr(bytes.find("PK\1\2"), 46 + 19);  // of [Content_Types].xml
        const auto nDirectory = static_cast<std::uint8_t>(bytes[nSizeAt]) +
                                256 * static_cast<std::uint8_t>(bytes[nSizeAt + 1]) +
                                static_cast<std::uint32_t>(nEntries * entry.size());
        for (int i = 0; i < 4; ++i)
            bytes[nSizeAt + static_cast<std::size_t>(i)] = static_cast<char>(nDirectory >> 8 * i);
        return bytes.insert(nEnd, Repeated(entry, nEntries));
    };
    EXPECT_EQ(ReadBytes(withEntries(1 << 16), {L"A"}), (Table{{L"1"}}));
    EXPECT_THROW(ReadBytes(withEntries(1 << 17), {L"A"}), std::runtime_error);
}

TEST(XlsxColumnsTest, RefusesLargeTables) {
    const Parts rows = MakeParts(Repeated("<row>" + kCell + "</row>", 1000));
    EXPECT_EQ(Read(rows, {L"A"}).front().size(), 1000u);
    EXPECT_THROW(Read(rows, std::vector<std::wstring>(70'000, L"A")), std::length_error);
    // A long shared string counts for each of its cells, but only for those in the table.
    const std::vector<std::wstring> columns(4000, L"A");
    Parts parts = MakeParts(Repeated("<row><c t='s'><v>0</v></c></row>", 1000));
    parts[kStrings] = "<sst><si><t>" + std::string(50, 'x') + "</t></si></sst>";
    EXPECT_THROW(Read(parts, columns), std::length_error);
    parts[kSheet].insert(parts[kSheet].find("<row>"), "<row>" + kCell + "</row><row/>");
    EXPECT_EQ(Read(parts, columns), Table(columns.size(), {L"1"}));
}

TEST(XlsxColumnsTest, ReadsSheetsThatAreInflatedInManyPieces) {
    std::string rows;
    Table table(1);
    for (std::size_t i = 0; i < 100'000; ++i) {
        table[0].push_back(L"text " + std::to_wstring(i * i));
        rows += "<row><c t='inlineStr'><is><t>text " + std::to_string(i * i) + "</t></is></c></row>";
    }
    EXPECT_TRUE(Read(MakeParts(rows), {L"A"}) == table);
}

TEST(XlsxColumnsTest, RefusesAnArchiveThatIsCutOffOrDamaged) {
    const std::string book = MakeZip(MakeParts("<row><c t='s'><v>0</v></c></row>"));
    EXPECT_EQ(ReadBytes(book, {L"A"}), (Table{{L"plain"}}));
    for (std::size_t nLength = 0; nLength < book.size(); ++nLength)
        ASSERT_THROW(ReadBytes(book.substr(0, nLength), {L"A"}), std::exception) << nLength;
    const struct {
        std::size_t nOffset;  // in each entry of the archive's directory
        char bits;
    } kDamages[] = {{8, 1}, {10, 4}, {16, 1}};  // encrypted; compressed in another way; another checksum
    for (const auto& [nOffset, bits] : kDamages) {
        std::string bytes = book;
        for (std::size_t nAt = 0; (nAt = bytes.find("PK\1\2", nAt)) != bytes.npos; ++nAt)
            bytes[nAt + nOffset] ^= bits;
        EXPECT_THROW(ReadBytes(bytes, {L"A"}), std::exception) << nOffset;
    }
}

#include "XlsxColumns.h"
#include "WorkbookMaker.h"
#include "support/Utf16.h"

#include <gmock/gmock.h>

#include <chrono>
#include <random>

using namespace testing;

namespace {

using Table = std::vector<std::vector<std::wstring>>;

Table ReadBytes(const std::string& bytes, const std::vector<std::wstring>& letters) {
    const XlsxColumns sheet(OpenBytes(bytes), letters);
    Table table;
    for (std::size_t i = 0; i < letters.size(); ++i) table.push_back(sheet.Texts<std::wstring>(i));
    return table;
}

Table Read(const Parts& parts, const std::vector<std::wstring>& letters = {L"A", L"B"}) {
    return ReadBytes(MakeZip(parts), letters);
}

// The parts with something replaced, which has to be there.
Parts Changed(const std::string& part, const std::string& what, const std::string& by) {
    Parts parts = MakeParts("<row r='1'><c r='A1'><v>1</v></c></row>");
    std::string& text = parts.at(part);
    const std::size_t nAt = text.find(what);
    if (nAt == text.npos) throw std::logic_error("nothing to replace: " + what);
    text.replace(nAt, what.size(), by);
    return parts;
}

std::string Repeated(const std::string& text, std::size_t nTimes) {
    std::string all;
    for (; nTimes > 0; --nTimes) all += text;
    return all;
}

const std::string kWorkbook = "xl/workbook.xml", kSheet = "xl/worksheets/sheet1.xml",
                  kTexts = "xl/sharedStrings.xml", kLinks = "xl/_rels/workbook.xml.rels";
const Table kOne = {{L"1"}, {L""}};

}  // namespace

TEST(XlsxColumnsTest, GivesTheTextOfEachKindOfCell) {
    const std::pair<std::string, std::wstring> kCases[] = {
        {"<c><v>10</v></c>", L"10"},
        {"<c t='n'><v> -7.25 </v></c>", L"-7.25"},
        {"<c><v>0.1234565000001</v></c>", L"0.123457"},
        {"<c><v>1E20</v></c>", L"100000000000000000000"},
        {"<c><v>-1e-7</v></c>", L"-0"},
        {"<c s='1'><v>0.25</v></c>", L"0.25"},
        {"<c s='6'><v>12.5</v></c>", L"12.5"},
        {"<c s='99'><v>1.5</v></c>", L"1.5"},
        {"<c t='b'><v>1</v></c>", L""},
        {"<c t='e'><v>#N/A</v></c>", L""},
        {"<c t='d'><v>2024-02-29</v></c>", L""},
        {"<c><f>A1*2</f><v>84</v></c>", L"84"},
        {"<c><v>1e-400</v></c>", L"0"},
        {"<c t='str'><f>\"x\"</f><v> x_x0041_&amp;</v></c>", L"xA&"},
        {"<c t='str'><v xml:space='preserve'> x_x0041_&amp;</v></c>", L" xA&"},
        {"<c t='s'><v>0</v></c>", L"plain"},
        {"<c t='s'><v>1</v></c>", L"Abc d"},
        {"<c t='s'><v>2</v></c>",
         L"a\rb_x000D_cé"
         L"d_x12"},
        {"<c t='s'><v>3</v></c>", L"in blanks"},
        {"<c t='s'><v>4</v></c>", L" in blanks\n"},
        {"<c t='s'><v>5</v></c>", L"<b\n&amp;"},
        {"<c t='s'/>", L""},
        {"<c t='inlineStr'><is><t>抜き\r\n😀</t></is></c>", L"抜き\n😀"},
        {"<c t='inlineStr'><is><t><![CDATA[a]]>b/c<?p?>&amp;<!-- --><b>x</b>/d</t></is></c>", L"ab/c&/d"},
        {"<c t='inlineStr'><v>a</v></c>", L"a"},
        {"<c t='s'><is><t>a</t></is></c>", L""},
        {"<c t='inlineStr'><is><t>_x0041_x12_</t></is></c>", L"Ax12_"},
        {"<c t='inlineStr'><is><r><t>a</t></r><!-- > --><r><t>b</t></r></is></c>", L"ab"},
        {"<x:c xmlns:x='u'><v>2</v></x:c><c/>", L""},
    };
    for (const auto& [cell, text] : kCases) {
        SCOPED_TRACE(cell);
        const std::string rows = "<row><c><v>1</v></c>" + cell + "</row>";
        EXPECT_EQ(Read(MakeParts(rows)), (Table{{L"1"}, {text}}));
    }
}

TEST(XlsxColumnsTest, PutsCellsInTheirPlaces) {
    const std::string a = "<c><v>1</v></c>";
    const struct {
        std::string rows;
        Table table;
    } kCases[] = {
        {"<row>" + a + "</row><row>" + a + "<c/>" + a + "</row>", {{L"1", L"1"}, {L"", L""}, {L"", L"1"}}},
        {"<row r='2'><c r='C2'><v>6</v></c><c r='A2'><v>4</v></c></row><row r='1'>" + a + a + "</row>",
         {{L"1", L"4"}, {L"1", L""}, {L"", L"6"}}},
        {"<row><c r='A1'><v>1</v></c><c r='A1'><v>2</v></c><c r='B1'><v>3</v></c><c r='B1'/></row>",
         {{L"2"}, {L""}, {L""}}},
        {"<row r='1'>" + a + "</row><row r='3'>" + a + "</row>", {{L"1"}, {L""}, {L""}}},
        {"<row r='1048576'><c r='A1048576'><v>1</v></c><c r='XFD1048576'/></row>", {{}, {}, {}}},
        {"<row>" + a + "<c t='b'/></row><row><c t='b'><v>1</v></c>" + a + "</row>", {{L"1"}, {L""}, {L""}}},
        {"", {{}, {}, {}}},
    };
    for (const auto& [rows, table] : kCases) {
        SCOPED_TRACE(rows);
        EXPECT_EQ(Read(MakeParts(rows), {L"A", L"B", L"C"}), table);
    }
    EXPECT_EQ(Read(MakeParts("<row>" + a + a + "</row>"), {L"A", L"b", L"XFE", L"", L"1", L"B", L"XFD"}),
              (Table{{L"1"}, {L"1"}, {}, {}, {}, {L"1"}, {L""}}));
}

TEST(XlsxColumnsTest, TakesTheSheetThatExcelActivates) {
    const struct {
        int nActive;
        std::string states[3];
        std::wstring text;  // of the sheet; empty for the chart or dialog
    } kCases[] = {
        {0, {"", "", ""}, L"1"},
        {1, {"", "", ""}, L"2"},
        {2, {"", "", ""}, L""},
        {0, {"hidden", "", ""}, L"1"},
        {1, {"", "veryHidden", ""}, L"2"},
        {3, {"hidden", "visible", ""}, L"2"},
    };
    for (const auto& [nActive, states, text] : kCases) {
        SCOPED_TRACE(std::to_string(nActive) + states[0] + states[1] + states[2]);
        Parts parts = MakeParts("<row><c><v>1</v></c></row>");
        std::string& list = parts[kWorkbook] = "<workbook><bookViews><workbookView activeTab='" +
                                               std::to_string(nActive) +
                                               "'/><workbookView/></bookViews><sheets>";
        for (int i = 0; i < 3; ++i)
            list += "<sheet r:id='s" + std::to_string(i) + "' state='" + states[i] + "'/>";
        list += "</sheets></workbook>";
        parts[kLinks] =
            "<Relationships><Relationship Id='s0' Type='a/worksheet' Target='/xl/../xl/./worksheets/"
            "sheet1.xml'/><Relationship Id='s2' Type='a/chartsheet' Target='none.xml'/>"
            "<Relationship Id='s1' Type='a/worksheet' Target='../Other%20sheet.XML'/></Relationships>";
        for (const std::string other : {"other Sheet.xml", "OTHER%20sheet.xml"}) {
            for (const std::string kind : {"chartsheet", "dialogsheet"}) {
                Parts book = parts;
                book[kLinks].replace(book[kLinks].find("chartsheet"), 10, kind);
                book[other] = "<worksheet><sheetData><row><c><v>2</v></c></row></sheetData></worksheet>";
                EXPECT_EQ(Read(book, {L"A"}), text.empty() ? Table{{}} : Table{{text}});
            }
        }
    }
}

TEST(XlsxColumnsTest, TellsPlainNumbersFromDatesAndCurrencies) {
    const auto read = [](int nId, const std::string& code) {
        const std::string id = "numFmtId='" + std::to_string(nId) + "'";
        Parts parts = MakeParts("<row><c s='1'><v>1.5</v></c></row>");
        parts["xl/styles.xml"] =
            "<styleSheet><numFmts>" + (code.empty() ? "" : "<numFmt " + id + " formatCode='" + code + "'/>") +
            "</numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs><cellXfs><xf/><xf " + id +
            "/></cellXfs></styleSheet>";
        return Read(parts, {L"A"});
    };
    const Table plain = {{L"1.5"}}, other = {{}};
    for (const int nPlain : {1, 10, 12, 39, 41, 43, 48, 49}) EXPECT_EQ(read(nPlain, ""), plain) << nPlain;
    for (const int nOther : {5, 8, 14, 22, 42, 44, 46, 57, 81}) EXPECT_EQ(read(nOther, ""), other) << nOther;
    for (const std::string code :
         {"General", "[]0.0", "0.00%", "# ?/?", "0.00E+00", "[Red][&lt;0]-0.0;[$-409]0.0", "0.0\\d;0_d;*d0",
          "0.0&quot; dmy&quot;;&quot;h", "0.0&quot;mm&quot;", "_(* #,##0.00_$"})
        EXPECT_EQ(read(164, code), plain) << code;
    for (const std::string code :
         {"_($* #,##0.00_)", "yyyy\\-mm", "0;[$-411]ggge&quot;年&quot;m&quot;月&quot;", "h:mm AM/PM",
          "[mm]:ss", "[HH]", "\\$0.0", "&quot;$&quot;#,##0", "#,##0\\ [$CHF-807]", "&quot;₩&quot;#,##0",
          "[$￥-804]#,##0", "#,##0.00 €"})
        EXPECT_EQ(read(164, code), other) << code;
    // Built-in ones with codes of their own: dates may be redefined, currencies differ between countries.
    EXPECT_EQ(read(14, "0.0"), plain);
    EXPECT_EQ(read(43, "_-* #,##0.00\\ _€_-"), plain);
    EXPECT_EQ(read(44, "_-* #,##0.00\\ &quot;kr&quot;_-"), other);
    // A cell without a style has the first one.
    Parts parts = MakeParts("<row><c s='1'><v>1.5</v></c><c><v>2</v></c></row>");
    parts["xl/styles.xml"] = "<styleSheet><cellXfs><xf numFmtId='14'/><xf/></cellXfs></styleSheet>";
    EXPECT_EQ(Read(parts), (Table{{L"1.5"}, {L""}}));
}

TEST(XlsxColumnsTest, TakesXmlInAnyForm) {
    const std::string text = MakeParts("<row><c><v>1</v></c></row>").at(kSheet);
    const std::string forms[] = {
        "\xEF\xBB\xBF<?xml version='1.0'?>\n" + text + "\n<!-- end -->\n",
        ToUtf16(text, false, true),
        ToUtf16(text, true, true),
        ToUtf16(text, false, false),
        ToUtf16(text, true, false),
        "<x:worksheet xmlns:x='http://purl.oclc.org/ooxml/spreadsheetml/main'><x:sheetData><x:row r='1' >\n"
        "<x:c r=\"A1\" x = '>'\n><x:v\n>1</x:v ></x:c></x:row></x:sheetData></x:worksheet>",
        "<worksheet><sheetData><!--" + std::string(200000, '-') + "x--><row a='" + std::string(200000, '>') +
            "'><c><v>&#49;" + std::string(200000, ' ') + "</v></c></row></sheetData></worksheet>",
    };
    for (const std::string& form : forms) {
        SCOPED_TRACE(form.substr(0, 40));
        Parts parts = MakeParts("");
        parts[kSheet] = form;
        EXPECT_EQ(Read(parts), kOne);
    }
    const auto everywhere = [](auto&& change) {
        Parts parts = MakeParts("<row><c t='s'><v>0</v></c><c s='2'><v>1</v></c></row>");
        for (auto& [name, part] : parts) change(part);
        EXPECT_EQ(Read(parts), (Table{{L"plain"}, {L""}}));
    };
    everywhere([](std::string& part) { part = ToUtf16(part, false, true); });
    everywhere([](std::string& part) {  // the strict variant
        for (const std::string old : {"http://schemas.openxmlformats.org/", "/2006/"})
            for (std::size_t nAt; (nAt = part.find(old)) != part.npos;)
                part.replace(nAt, old.size(), old == "/2006/" ? "/" : "http://purl.oclc.org/ooxml/");
    });
    everywhere([](std::string& part) {
        for (std::size_t nAt = 0; (nAt = part.find('<', nAt)) != part.npos; ++nAt)
            if (part[nAt + 1] != '!') part.insert(nAt + (part[nAt + 1] == '/' ? 2 : 1), "p:");
    });
}

TEST(XlsxColumnsTest, RefusesWhatIsWrongWithoutDelay) {
    const std::string a1 = "<c r='A1'><v>1</v></c>", row = "<row r='1'>";
    const std::string kSome = "r='A1'";
    Parts noData = MakeParts("");
    noData[kSheet] = "<worksheet xmlns:x='u'><x:sheetData/></worksheet>";
    Parts manyCells = Changed(kSheet, "</row>", Repeated("<c r='A1'/>", 1 << 24) + "</row>");
    std::mt19937 random(1);
    for (int i = 0; i < 1 << 20; ++i)
        manyCells["large.bin"] += static_cast<char>(random());  // or it inflates too far
    const Parts kCases[] = {
        Changed("_rels/.rels", "officeDocument'", "image'"),
        Changed("_rels/.rels", "workbook.xml", "none.xml"),
        Changed("_rels/.rels", "xl/workbook.xml", "_rels/.rels"),
        Changed(kWorkbook, "workbook ", "document "),
        Changed(kWorkbook, "0'/></bookViews><sheets><sheet ",
                "1'/></bookViews><sheets><sheet state='hidden' "),
        Changed(kWorkbook, "r:id='rId1'", "r:id='rId9'"),
        Changed(kWorkbook, "activeTab='0'", "activeTab='x'"),
        Changed(kLinks, "worksheets/sheet1.xml", "workbook.xml"),
        Changed(kLinks, "worksheets/sheet1.xml", "worksheets/none.xml"),
        Changed(kLinks, "Id='rId1'", "TargetMode='External' Id='rId1'"),
        Changed(kLinks, "'sharedStrings.xml", "'none.xml"),
        Changed(kSheet, kSome, "r='A0'"),
        Changed(kSheet, kSome, "r='A1048577'"),
        Changed(kSheet, kSome, "r='XFE1'"),
        Changed(kSheet, kSome, "r='A99999999999'"),
        Changed(kSheet, kSome, "r='ZZZ99999999'"),
        Changed(kSheet, row, row + Repeated("<c/>", 1'000'000)),
        noData,
        Changed(kSheet, kSome, "r='1'"),
        Changed(kSheet, kSome, "r='A-1'"),
        Changed(kSheet, kSome, "r='A1B'"),
        Changed(kSheet, kSome, "t='s' r='A1'><v>6</v></c><c"),
        Changed(kSheet, kSome, "t='s' r='A1'><v>-1</v></c><c"),
        Changed(kSheet, kSome, "t='x'"),
        Changed(kSheet, "<v>1", "<v>1,5"),
        Changed(kSheet, "<v>1", "<v>1e999"),
        Changed(kSheet, "<v>1", "<v>1e-400x"),
        Changed(kSheet, kSome, "s='99999999999e-9' r='A1'"),
        Changed(kSheet, "<v>1", "<v>inf"),
        Changed(kSheet, "<v>1", "<v>&one;"),
        Changed(kSheet, "<v>1", "<v>&#xD800;"),
        Changed(kSheet, kSome, "t='str' r='A1'><v>&#0;</v></c><c"),
        Changed(kSheet, kSome, "t='str' r='A1'><v>\xC3(</v></c><c"),
        Changed(kSheet, "<v>1</v>", "<v>1</w>"),
        Changed(kSheet, "</v>", ""),
        Changed(kSheet, "</worksheet>", "</worksheet><worksheet/>"),
        Changed(kSheet, "</worksheet>", "</worksheet>x"),
        Changed(kSheet, "<worksheet", "<!DOCTYPE a [<!ENTITY b '1'>]><worksheet"),
        Changed(kSheet, row, Repeated("<a>", 100000)),
        Changed(kSheet, row, Repeated("<a>", 300) + Repeated("</a>", 300) + row),
        Changed(kSheet, row, "<a b='" + std::string(34 << 20, '>') + "'/>" + row),
        Changed("xl/styles.xml", "<xf/>", Repeated("<xf/>", 1 << 16)),
        Changed(kWorkbook, "<sheet ", Repeated("<sheet r:id='rId1'/>", 1 << 16) + "<sheet "),
        Changed(kLinks, "<Relationship ", Repeated("<Relationship/>", 1 << 16) + "<Relationship "),
        Changed(kSheet, row, Repeated("<row/>", 1 << 20) + "<row>" + a1.substr(0, 2) + a1.substr(9)),
        Changed(kSheet, kSome, "t='inlineStr' r='A1'><is><t>\xED\xA0</t></is></c><c"),
        Changed(kTexts, "</sst>", Repeated("<si/>", 16 << 20) + "</sst>"),  // inflates too far
        manyCells,
        {{"_rels/.rels", ""}},
    };
    for (const Parts& parts : kCases) {
        SCOPED_TRACE(PrintToString(&parts - kCases));
        const std::string bytes = MakeZip(parts);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_THROW(ReadBytes(bytes, {L"A", L"B"}), std::exception);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
    }
    const Parts rows = MakeParts(Repeated("<row>" + a1.substr(0, 2) + a1.substr(9) + "</row>", 1000));
    EXPECT_EQ(Read(rows, {L"A"}).front().size(), 1000u);
    EXPECT_THROW(Read(rows, std::vector<std::wstring>(70'000, L"A")), std::length_error);
    // A long text that many cells share.
    Parts parts = MakeParts(Repeated("<row><c t='s'><v>0</v></c></row>", 2000));
    parts[kTexts] = "<sst><si><t>" + std::string(1 << 20, 'x') + "</t></si></sst>";
    EXPECT_THROW(Read(parts, {L"A"}), std::length_error);
    parts[kSheet].insert(parts[kSheet].find("<row>"),
                         "<row><c><v>1</v></c></row><row/>");  // not in the table
    EXPECT_EQ(Read(parts), kOne);
}

TEST(XlsxColumnsTest, ReadsSheetsThatAreInflatedInManyPieces) {
    std::string rows;
    Table table(2);
    for (std::size_t i = 0; i < 60000; ++i) {
        table[0].push_back(std::to_wstring(i));
        table[1].push_back(L"text " + std::to_wstring(i * i));
        rows += "<row><c><v>" + std::to_string(i) + "</v></c><c t='inlineStr'><is><t>text " +
                std::to_string(i * i) + "</t></is></c></row>";
    }
    Parts parts = MakeParts(rows);
    EXPECT_TRUE(Read(parts) == table);
    parts[kSheet] = ToUtf16(parts[kSheet], true, true);
    EXPECT_TRUE(Read(parts) == table);
    parts[kSheet] += '\n';  // half a character
    EXPECT_THROW(Read(parts), std::exception);
}

TEST(XlsxColumnsTest, RefusesAnArchiveThatIsCutOffOrDamaged) {
    const std::string book = MakeZip(MakeParts("<row><c t='s'><v>0</v></c></row>"));
    EXPECT_EQ(ReadBytes(book, {L"A"}), (Table{{L"plain"}}));
    for (std::size_t nLength = 0; nLength < book.size(); ++nLength)
        ASSERT_THROW(ReadBytes(book.substr(0, nLength), {L"A"}), std::exception) << nLength;
    const auto damaged = [&](const char* pszMark, std::size_t nBehind, char bits) {
        std::string bytes = book;
        for (std::size_t nAt = 0; (nAt = bytes.find(pszMark, nAt)) != bytes.npos; ++nAt)
            bytes[nAt + nBehind] ^= bits;
        return bytes;
    };
    for (const std::string& bytes : {damaged("PK\1\2", 8, 1),      // encrypted
                                     damaged("PK\1\2", 10, 4),     // compressed in another way
                                     damaged("PK\1\2", 16, 1)}) {  // another checksum
        EXPECT_THROW(ReadBytes(bytes, {L"A"}), std::exception);
    }
}

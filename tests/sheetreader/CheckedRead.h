#pragma once

#include "WorkbookMaker.h"
#include "XlsxColumns.h"

#include <cstdlib>
#include <exception>

// Reads a workbook that may be damaged: false when it is refused. Aborts when the table can't be right.
inline bool CheckedRead(const std::string& bytes) {
    try {
        XlsxColumns sheet(OpenBytes(bytes), {L"A", L"B", L"C", L"ZZZZ"});
        const auto columnA = sheet.TakeTexts<std::wstring>(0);
        for (const std::wstring& text : columnA)
            if (text.empty()) std::abort();
        for (const std::size_t nColumn : {1u, 2u})
            if (sheet.TakeTexts<std::wstring>(nColumn).size() != columnA.size()) std::abort();
        if (!sheet.TakeTexts<std::wstring>(3).empty()) std::abort();
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

// A good workbook's rows, with cells of all kinds.
inline constexpr char kManyCells[] =
    "<row r='1' spans='1:3'><c r='A1' t='s'><v>1</v></c><c r='B1' s='2'><v>45351</v></c>"
    "<c r='C1'><v>-0.25</v></c></row>"
    "<row><c t='inlineStr'><is><t xml:space='preserve'> a_x000D_</t></is></c><c t='b'><v>1</v></c></row>"
    "<row r='4'><c r='A4'><f>1/3</f><v>0.33333333333333331</v></c><c r='C4' t='e'><v>#N/A</v></c></row>"
    "<row r='3'><c r='A3' t='str'><v>x &amp; y</v></c><c r='C3' t='s' s='3'><v>5</v></c></row>";

#include "ValueText.h"

#include "XmlNumber.h"

namespace {

CString JoinTexts(const std::vector<CString>& texts) {
    CString strJoined;
    for (const CString& strText : texts) {
        for (int i = 0; i < strText.GetLength(); ++i) {
            if (strText[i] == L';' || strText[i] == L'\\') strJoined += L'\\';
            strJoined += strText[i];
        }
        strJoined += L';';
    }
    return strJoined;
}

// The last text counts also without its ";", so that a single word typed by hand is a list of one.
std::vector<CString> SplitTexts(const CString& strJoined) {
    std::vector<CString> texts;
    CString strText;
    bool bPending = false;
    for (int i = 0; i < strJoined.GetLength(); ++i) {
        wchar_t ch = strJoined[i];
        bPending = ch != L';';
        if (ch == L';') {
            texts.push_back(strText);
            strText.Empty();
            continue;
        }
        if (ch == L'\\' && i + 1 < strJoined.GetLength()) ch = strJoined[++i];
        strText += ch;
    }
    if (bPending) texts.push_back(strText);
    return texts;
}

}  // namespace

CString ToText(bool value) {
    return value ? L"1" : L"0";
}
CString ToText(std::int32_t value) {
    return FormatInteger(value);
}
CString ToText(std::int64_t value) {
    return FormatInteger(value);
}
CString ToText(double value) {
    return FormatShortest(value);
}
CString ToText(const CString& value) {
    return value;
}
CString ToText(const MfxDoublePair& value) {
    return FormatShortest(value.first) + L";" + FormatShortest(value.second);
}
CString ToText(const MfxTextList& value) {
    return JoinTexts(value.texts);
}
CString ToText(const MfxTableRow& value) {
    return JoinTexts(value.cells);
}

void FromText(const CString& strText, bool& value) {
    std::int32_t number = 0;
    ParseInteger(strText, number);
    value = number != 0;
}

void FromText(const CString& strText, std::int32_t& value) {
    value = 0;
    ParseInteger(strText, value);
}

void FromText(const CString& strText, std::int64_t& value) {
    value = 0;
    ParseInteger(strText, value);
}

void FromText(const CString& strText, double& value) {
    value = 0.0;
    ParseReal(strText, value);
}

void FromText(const CString& strText, CString& value) {
    value = strText;
}

void FromText(const CString& strText, MfxDoublePair& value) {
    value = {};
    ParseReal(strText, value.first);
    const int nSeparator = strText.Find(L';');
    if (nSeparator >= 0) ParseReal(strText.Mid(nSeparator + 1), value.second);
}

void FromText(const CString& strText, MfxTextList& value) {
    value.texts = SplitTexts(strText);
}

void FromText(const CString& strText, MfxTableRow& value) {
    value.cells = SplitTexts(strText);
}

#pragma once

#include "LanguageUtil.h"
#include "MfxRule.h"
#include "MfxXMLDocument.h"
#include "SandCastingRulesApp.h"

#include <memory>
#include <string>
#include <vector>

using NodePtr = std::unique_ptr<MfxXMLNode>;

// The module's application object, started in a language, while the resource handle is the host's own.
struct StartedApp : CMFXSandCastingRulesApp {
    explicit StartedApp(LPCWSTR pszLanguage) {
        CLanguageUtil::SetMfxKitLang(pszLanguage);
        InitInstance();
        AfxSetResourceHandle(nullptr);
    }
    ~StartedApp() override { ExitInstance(); }
};

// A string of a library, by the system.
inline std::wstring StringOf(HINSTANCE hLibrary, UINT nStringId) {
    wchar_t szText[1000] = L"";
    LoadStringW(hLibrary, nStringId, szText, static_cast<int>(std::size(szText)));
    return szText;
}

using TableText = std::vector<std::wstring>;  // one "cell|cell|" per row

inline TableText TextOf(const MfxArray<MfxTableRow>& rows) {
    TableText table;
    for (const MfxTableRow& row : rows) {
        table.emplace_back();
        for (const CString& strCell : row.cells) table.back() += strCell + L"|";
    }
    return table;
}

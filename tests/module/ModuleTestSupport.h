#pragma once

#include "LanguageUtil.h"
#include "MfxXMLDocument.h"
#include "SandCastingRulesApp.h"

#include <memory>
#include <string>

using NodePtr = std::unique_ptr<MfxXMLNode>;

// The module's application object, started in a language, while the resource handle is the host's own.
struct StartedApp : CMFXSandCastingRulesApp {
    explicit StartedApp(LPCWSTR pszLanguage) {
        CLanguageUtil::SetMfxKitLang(pszLanguage);
        InitInstance();
        AfxSetResourceHandle(nullptr);
    }
    ~StartedApp() override { ExitInstance(); }

    // A string in the user's language, by the system.
    std::wstring Text(UINT nStringId) const {
        wchar_t szText[1000] = L"";
        LoadStringW(m_hResDll, nStringId, szText, static_cast<int>(std::size(szText)));
        return szText;
    }
};

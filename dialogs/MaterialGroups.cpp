#include "MaterialGroups.h"

#include "MFXDataHelper.h"
#include "MaterialTables.h"
#include "ModulePath.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

namespace {

constexpr wchar_t kDatabaseFile[] = L"MFXDatabaseu.dll";
constexpr char kNameExport[] = "GetModuleName";

// What a database that has no list of the process's groups is asked for.
constexpr const wchar_t* kFamilies[] = {
    L"Aluminium Alloys", L"Copper and its Alloys", L"Magnesium and its Alloys", L"Titanium Alloys", L"Steel",
    L"Cast Iron"};

void AppendNames(std::vector<CString>& groups, const std::vector<CString>& names) {
    for (const CString& strName : names) {
        if (strName.IsEmpty()) return;  // it ends the names
        groups.push_back(strName);
    }
}

void AppendPieces(std::vector<CString>& groups, CString strList) {
    while (!strList.IsEmpty()) {
        const CString strPiece = strList.SpanExcluding(L";");
        if (!strPiece.IsEmpty()) groups.push_back(strPiece);
        strList = strList.Mid(strPiece.GetLength() + 1);
    }
}

}  // namespace

HMODULE FindDatabaseModule() {
    static const int inThisModule = 0;
    const CString strFolder = GetModuleFolder(GetModuleOfAddress(&inThisModule));
    return GetModuleHandleW(strFolder + L"\\" + kDatabaseFile);
}

UINT FindDatabaseName(CString& strName) {
    const HMODULE hDatabase = FindDatabaseModule();
    if (!hDatabase) return IDS_DATABASE_MISSING;
    const FARPROC address = GetProcAddress(hDatabase, kNameExport);
    if (!address) return IDS_DATABASE_UNUSABLE;
    strName = L"Module Name";  // of a database that has none
    reinterpret_cast<void (*)(CString&)>(reinterpret_cast<void (*)()>(address))(strName);
    return 0;
}

bool ListMaterialGroups(std::vector<CString>& groups) {
    const IDatabaseCollector* const pDatabase = mfx_db::MFXDataHelper::getInstance();
    if (!pDatabase) return false;
    if (pDatabase->IsAvailable()) {
        for (const MfxMaterialEntry& entry : pDatabase->GetProcessEntries(kSandCastingProcess))
            AppendNames(groups, entry.names);
        return true;
    }
    CString strList;
    for (const wchar_t* pszFamily : kFamilies) strList += pDatabase->FindMaterialGroups(pszFamily);
    AppendPieces(groups, strList);
    return true;
}

// The ids stand in the order of the problems.
UINT GetProblemText(MfxDatabaseProblem_e problem) {
    static_assert(IDS_MATERIALS_REFUSED - IDS_MATERIALS_NOT_LOADED == DatabaseRefused - DatabaseNotLoaded);
    return IDS_MATERIALS_NOT_LOADED + static_cast<UINT>(problem - DatabaseNotLoaded);
}

CString GetProblemText(const MfxDatabaseResult& result) {
    return LoadLocalizedString(GetProblemText(result.problem)) + L"\n\n" + result.strText;
}

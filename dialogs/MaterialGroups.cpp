#include "MaterialGroups.h"

#include "MFXDataHelper.h"
#include "ModulePath.h"
#include "resource.h"

namespace {

constexpr wchar_t kDatabaseFile[] = L"MFXDatabaseu.dll";
constexpr char kNameExport[] = "GetModuleName";
constexpr wchar_t kProcess[] = L"Sand Casting";

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

UINT FindDatabaseName(CString& strName) {
    static const int inThisModule = 0;
    const CString strFolder = GetModuleFolder(GetModuleOfAddress(&inThisModule));
    const HMODULE hDatabase = GetModuleHandleW(strFolder + L"\\" + kDatabaseFile);
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
        for (const MfxMaterialEntry& entry : pDatabase->GetProcessEntries(kProcess))
            AppendNames(groups, entry.names);
        return true;
    }
    CString strList;
    for (const wchar_t* pszFamily : kFamilies) strList += pDatabase->FindMaterialGroups(pszFamily);
    AppendPieces(groups, strList);
    return true;
}

#include "LocationHelper.h"

#include "LanguageUtil.h"
#include "ModulePath.h"

namespace {

CString ParentFolder(const CString& strPath) {
    return strPath.Left(strPath.ReverseFind(L'\\'));
}

const wchar_t kInThisLibrary = 0;

CString LanguageFolder(const CString& strLanguage) {
    return ParentFolder(GetModuleFolder(GetModuleOfAddress(&kInThisLibrary))) + L"\\lang\\" + strLanguage;
}

}  // namespace

CString CLocationHelper::GetLocalizedResPath() {
    return LanguageFolder(CLanguageUtil::GetMfxKitLang());
}

CString CLocationHelper::GetDefaultResPath() {
    return LanguageFolder(CLanguageUtil::GetLanguageWords().front());
}

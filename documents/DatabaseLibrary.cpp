#include "DatabaseLibrary.h"

#include "DocumentError.h"
#include "ModulePath.h"
#include "Text.h"

namespace {

template <class Function>
Function* FindExport(HMODULE library, const char* name, const CString& path) {
    const FARPROC address = GetProcAddress(library, name);
    if (!address)
        throw DocumentError(DocumentError::Kind::ComponentMissing, ToUtf8(path) + " has no export " + name);
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(address));
}

}  // namespace

DatabaseLibrary::DatabaseLibrary() {
    const CString path = GetModuleFolder(nullptr) + L"\\" + kDatabaseLibrary;
    m_pLibrary = LoadLibraryAt(path);
    if (!m_pLibrary)
        throw DocumentError(DocumentError::Kind::ComponentMissing,
                            ToUtf8(path) + " can't be loaded, install the program again: " +
                                WindowsErrorText(GetLastError()));
    FindExport<GetDatabaseNameFunction>(m_pLibrary.get(), kDatabaseNameExport, path)(m_strName);
    m_pDatabase = FindExport<GetDatabaseFunction>(m_pLibrary.get(), kDatabaseExport, path)();
}

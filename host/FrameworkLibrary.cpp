#include "FrameworkLibrary.h"

#include "ExitCode.h"
#include "LibraryPtr.h"
#include "ModulePath.h"
#include "Text.h"

#include <afx.h>
#include <delayimp.h>

namespace {

constexpr char kFrameworkFile[] = "MfxKitu.dll";

}  // namespace

#ifdef _MSC_VER

static bool BindDelayedImports(HMODULE) {
    return SUCCEEDED(__HrLoadAllImportsForDll(kFrameworkFile));
}

#else

// Made by dlltool; the name is that of the delay-import library.
extern "C" const ImgDelayDescr __DELAY_IMPORT_DESCRIPTOR_libMfxKitu_delay_a;

// Fills in every import at once. Left to the first call of each function, dlltool's stubs would lose the
// call's floating-point arguments: they save the integer registers only.
static bool BindDelayedImports(HMODULE hLibrary) {
    const ImgDelayDescr& descriptor = __DELAY_IMPORT_DESCRIPTOR_libMfxKitu_delay_a;
    const auto base = reinterpret_cast<ULONG_PTR>(GetModuleHandleW(nullptr));
    auto* pName = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + descriptor.rvaINT);
    auto* pAddress = reinterpret_cast<IMAGE_THUNK_DATA*>(base + descriptor.rvaIAT);
    for (; pName->u1.AddressOfData; ++pName, ++pAddress) {
        const auto* pImport = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + pName->u1.AddressOfData);
        const FARPROC address = GetProcAddress(hLibrary, pImport->Name);
        if (!address) return false;
        pAddress->u1.Function = reinterpret_cast<ULONGLONG>(address);
    }
    return true;
}

#endif

void LoadFrameworkLibrary() {
    const CString path = GetModuleFolder(nullptr) + L"\\" + CString(kFrameworkFile);
    const HMODULE hLibrary = LoadLibraryAt(path).release();  // stays for the program's life
    if (!hLibrary)
        throw CommandError(ExitCode::NotPossible, ToUtf8(path) +
                                                      " can't be loaded, install the program again: " +
                                                      WindowsErrorText(GetLastError()));
    if (!BindDelayedImports(hLibrary))
        throw CommandError(ExitCode::NotPossible,
                           ToUtf8(path) + " belongs to another version, install the program again");
}

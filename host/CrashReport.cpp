#include "CrashReport.h"

#include <windows.h>

#include <cstdio>

namespace {

void PrintFrame(DWORD64 qwAddress) {
    HMODULE hModule = nullptr;
    wchar_t szPath[MAX_PATH] = L"?";
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(qwAddress), &hModule);
    if (hModule) GetModuleFileNameW(hModule, szPath, MAX_PATH);
    const wchar_t* pszName = szPath;
    for (const wchar_t* p = szPath; *p; ++p)
        if (*p == L'\\') pszName = p + 1;
    fprintf(stderr, "  %ls+0x%llx\n", pszName, qwAddress - reinterpret_cast<DWORD64>(hModule));
}

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* pCrash) {
    fprintf(stderr, "crash: exception 0x%08lx\n", pCrash->ExceptionRecord->ExceptionCode);
    CONTEXT context = *pCrash->ContextRecord;
    constexpr int kMaxFrames = 48;
    for (int i = 0; i < kMaxFrames && context.Rip; ++i) {
        PrintFrame(context.Rip);
        DWORD64 qwImageBase = 0;
        PRUNTIME_FUNCTION pFunction = RtlLookupFunctionEntry(context.Rip, &qwImageBase, nullptr);
        if (!pFunction) break;
        void* pHandlerData = nullptr;
        DWORD64 qwFrame = 0;
        RtlVirtualUnwind(UNW_FLAG_NHANDLER, qwImageBase, context.Rip, pFunction, &context, &pHandlerData,
                         &qwFrame, nullptr);
    }
    fflush(stderr);
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void InstallCrashReport() {
    SetUnhandledExceptionFilter(ReportCrash);
}

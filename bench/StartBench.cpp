// "mfxhost list" from its start to its end, against a program that only loads the system's libraries.

#include "RatioReport.h"

#include <benchmark/benchmark.h>
#include <windows.h>

#include <string>

namespace {

// A program beside this one.
void Run(benchmark::State& state, const std::wstring& program, std::wstring arguments) {
    wchar_t szOwnPath[MAX_PATH];
    GetModuleFileNameW(nullptr, szOwnPath, MAX_PATH);
    const std::wstring path =
        std::wstring(szOwnPath).substr(0, std::wstring(szOwnPath).rfind(L'\\') + 1) + program;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    start.hStdOutput = CreateFileW(L"NUL", GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING, 0, nullptr);
    for (auto _ : state) {
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(path.c_str(), arguments.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                            &start, &process))
            return state.SkipWithError("it does not start");
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD dwExitCode = 0;
        GetExitCodeProcess(process.hProcess, &dwExitCode);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        if (dwExitCode != 0) return state.SkipWithError("it fails");
    }
    CloseHandle(start.hStdOutput);
}

void RunReference(benchmark::State& state) {
    Run(state, L"start_reference.exe", L"start_reference");
}

void RunHost(benchmark::State& state) {
    Run(state, L"mfxhost.exe", L"mfxhost list");
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    benchmark::RegisterBenchmark("start/reference", RunReference)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("start/subject", RunHost)->Unit(benchmark::kMillisecond)->UseRealTime();
    return RunWithRatios(argc, argv);
}

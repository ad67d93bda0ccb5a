#include "MutationRun.h"

#include "CrashReport.h"

#include <windows.h>
#include <io.h>
#include <psapi.h>

#include <chrono>
#include <cstdlib>

namespace {

constexpr std::size_t kMaxMegabytes = 500;
constexpr std::chrono::seconds kMaxRoundTime{10};

unsigned long g_nSeed = 0;  // of the round that is running
int g_nOutput = -1;         // standard output as the program found it
LPTOP_LEVEL_EXCEPTION_FILTER g_pReportCrash = nullptr;

void SilenceOutput() {
    g_nOutput = _dup(_fileno(stdout));
    for (FILE* pStream : {stdout, stderr}) freopen("NUL", "wb", pStream);
}

void Report(const std::string& text) {
    for (FILE* pStream : {stdout, stderr}) fflush(pStream), _dup2(g_nOutput, _fileno(pStream));
    printf("seed %lu: %s\n", g_nSeed, text.c_str());
    fflush(stdout);
}

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* pCrash) {
    Report("a crash");
    return g_pReportCrash(pCrash);
}

std::size_t PeakMegabytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize >> 20;
}

}  // namespace

int RunMutationTest(int argc, wchar_t** argv, const std::function<void(unsigned)>& runRound) {
    const unsigned long nRounds = argc > 1 ? wcstoul(argv[1], nullptr, 10) : 1000;
    const unsigned long nFirst = argc > 2 ? wcstoul(argv[2], nullptr, 10) : 1;
    InstallCrashReport();
    g_pReportCrash = SetUnhandledExceptionFilter(ReportCrash);
    SilenceOutput();
    for (g_nSeed = nFirst; g_nSeed != nFirst + nRounds; ++g_nSeed) {
        const auto start = std::chrono::steady_clock::now();
        runRound(static_cast<unsigned>(g_nSeed));
        if (std::chrono::steady_clock::now() - start > kMaxRoundTime)
            FailRound("takes longer than 10 seconds");
        if (PeakMegabytes() > kMaxMegabytes) FailRound("takes more than 500 MB");
    }
    Report("not run; all before it passed, with at most " + std::to_string(PeakMegabytes()) + " MB");
    return EXIT_SUCCESS;
}

void FailRound(const std::string& reason) {
    Report(reason);
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

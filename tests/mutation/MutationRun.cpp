#include "MutationRun.h"

#include "CrashReport.h"
#include "support/Process.h"

#include <windows.h>
#include <io.h>
#include <psapi.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace {

constexpr std::size_t kMaxMegabytes = 500;
constexpr std::chrono::seconds kMaxRoundTime{10};

std::atomic<unsigned> g_nSeed;  // of the round that is running
std::wstring g_inputFolder;
int g_nOutput = -1;  // standard output as the program found it
LPTOP_LEVEL_EXCEPTION_FILTER g_pReportCrash = nullptr;

void SilenceOutput() {
    g_nOutput = _dup(_fileno(stdout));
    for (FILE* pStream : {stdout, stderr}) freopen("NUL", "wb", pStream);
}

void RestoreOutput() {
    for (FILE* pStream : {stdout, stderr}) fflush(pStream), _dup2(g_nOutput, _fileno(pStream));
}

void Report(const std::string& reason) {
    RestoreOutput();
    printf("seed %u: %s\n", g_nSeed.load(), reason.c_str());
    if (!g_inputFolder.empty()) printf("its input is in %s\n", Utf8(g_inputFolder).c_str());
    fflush(stdout);
}

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* pCrash) {
    Report("a crash");
    return g_pReportCrash(pCrash);
}

void WatchRounds() {
    for (unsigned nSeen = g_nSeed;; nSeen = g_nSeed) {
        std::this_thread::sleep_for(kMaxRoundTime);
        if (g_nSeed == nSeen) FailRound("takes longer than 10 seconds");
    }
}

std::size_t PeakMegabytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize >> 20;
}

}  // namespace

int RunMutationTest(int argc, wchar_t** argv, const MutationTest& test) {
    const unsigned long nRounds = argc > 1 ? wcstoul(argv[1], nullptr, 10) : 1000;
    const unsigned long nFirst = argc > 2 ? wcstoul(argv[2], nullptr, 10) : 1;
    InstallCrashReport();
    g_pReportCrash = SetUnhandledExceptionFilter(ReportCrash);
    g_inputFolder = test.inputFolder;
    SilenceOutput();
    std::thread(WatchRounds).detach();
    const auto start = std::chrono::steady_clock::now();
    for (g_nSeed = nFirst; g_nSeed != nFirst + nRounds; ++g_nSeed) {
        test.runRound(g_nSeed);
        if (PeakMegabytes() > kMaxMegabytes) FailRound("takes more than 500 MB");
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    RestoreOutput();
    printf("%lu rounds in %.1f s, at most %zu MB\n", nRounds, time.count(), PeakMegabytes());
    test.printSummary();
    return EXIT_SUCCESS;
}

void FailRound(const std::string& reason) {
    Report(reason);
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

// Reads mutated .xlsx workbooks:
//     mfx_workbook_mutation [ROUNDS [SEED]]
// Whatever a workbook holds, it is read or refused, in time and without more than 500 MB of memory. Half of
// the rounds change parts of a good one, half the bytes of its archive. The first failure ends the run;
// "mfx_workbook_mutation 1 SEED" repeats it.

#include "CrashReport.h"
#include "DocumentMutator.h"
#include "sheetreader/CheckedRead.h"

#include <windows.h>
#include <psapi.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

std::atomic<unsigned> g_nSeed;  // of the round that is running
LPTOP_LEVEL_EXCEPTION_FILTER g_pReportCrash = nullptr;

void Report(const char* pszFailure) {
    std::printf("seed %u: %s\n", g_nSeed.load(), pszFailure);
    std::fflush(stdout);
}

void WatchRounds() {
    for (unsigned nSeen = g_nSeed;; nSeen = g_nSeed) {
        std::this_thread::sleep_for(std::chrono::seconds(10));
        if (g_nSeed != nSeen) continue;
        Report("takes longer than 10 seconds");
        TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    }
}

std::size_t PeakMegabytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize >> 20;
}

std::string MutateParts(Parts parts) {
    std::vector<std::string> names;
    for (const auto& [name, text] : parts) names.push_back(name);
    const std::string& name = DocumentMutator(names, g_nSeed).OneOf(names);
    const std::vector<std::string> original{parts.at(name)};
    DocumentMutator mutator(original, g_nSeed);
    parts[name] = mutator.MakeDocument();
    if (mutator.Below(20) == 0) parts.erase(mutator.OneOf(names));
    return MakeZip(parts);
}

std::string MutateBytes(std::string bytes) {
    const std::vector<std::string> none;
    DocumentMutator mutator(none, g_nSeed);
    for (std::size_t n = 1 + mutator.Below(8); n > 0; --n)
        bytes[mutator.Below(bytes.size())] ^= static_cast<char>(1 << mutator.Below(8));
    if (mutator.Below(8) == 0) bytes.resize(mutator.Below(bytes.size()));
    return bytes;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    g_pReportCrash = SetUnhandledExceptionFilter([](EXCEPTION_POINTERS* pCrash) {
        Report("a crash");
        return g_pReportCrash(pCrash);
    });
    const unsigned nRounds = argc > 1 ? std::stoul(argv[1]) : 1000,
                   nFirst = argc > 2 ? std::stoul(argv[2]) : 1;
    const Parts parts = MakeParts(kManyCells);
    const std::string archive = MakeZip(parts);
    if (!CheckedRead(archive)) return Report("the workbook is refused as it is"), EXIT_FAILURE;
    std::thread(WatchRounds).detach();
    unsigned nRead = 0;
    for (g_nSeed = nFirst; g_nSeed != nFirst + nRounds; ++g_nSeed) {
        nRead += CheckedRead(g_nSeed % 2 ? MutateParts(parts) : MutateBytes(archive));
        if (PeakMegabytes() > 500) return Report("takes more than 500 MB"), EXIT_FAILURE;
    }
    std::printf("%u workbooks: %u read, %u refused, at most %zu MB\n", nRounds, nRead, nRounds - nRead,
                PeakMegabytes());
    return EXIT_SUCCESS;
}

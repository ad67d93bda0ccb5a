#include "RatioReport.h"

#include <benchmark/benchmark.h>
#include <windows.h>
#include <psapi.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr char kSubject[] = "/subject";
constexpr char kReference[] = "/reference";

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    RatioReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name + "/" + run.run_name.args] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios() const {
        printf("\n%-40s %14s\n", "ratio to the reference", "median");
        for (const auto& [name, time] : m_medians) {
            const std::size_t at = name.find(kSubject);
            if (at == std::string::npos) continue;
            std::string reference = name;
            reference.replace(at, name.find('/', at + 1) - at, kReference);
            const auto found = m_medians.find(reference);
            if (found != m_medians.end()) printf("%-40s %14.2f\n", name.c_str(), time / found->second);
        }
    }

  private:
    std::map<std::string, double> m_medians;
};

void PrintPeakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    printf("%-40s %11.1f MB\n", "peak working set",
           static_cast<double>(counters.PeakWorkingSetSize) / (1024.0 * 1024.0));
}

}  // namespace

int RunWithRatios(int argc, wchar_t** argv) {
    std::vector<std::string> arguments{"bench", "--benchmark_enable_random_interleaving=true",
                                       "--benchmark_repetitions=7",
                                       "--benchmark_report_aggregates_only=true"};
    for (int i = 1; i < argc; ++i) arguments.emplace_back(argv[i], argv[i] + wcslen(argv[i]));
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    int nArguments = static_cast<int>(pointers.size());
    benchmark::Initialize(&nArguments, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(nArguments, pointers.data())) return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    PrintPeakMemory();
    return 0;
}

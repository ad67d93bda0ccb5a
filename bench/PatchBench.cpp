// Applying a patch against finding the differences that it is made of.

#include "CrashReport.h"
#include "DocumentEdit.h"
#include "PatchApplication.h"
#include "RatioReport.h"
#include "RuleParameters.h"

#include <afxwin.h>
#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

constexpr int kChanges = 3000;  // bands, and rules

CWinApp theApp(L"patch_bench");

const RuleModule& Module() {
    static const RuleModule module;
    return module;
}

// A group of many bands, and many rules with one value each.
struct SampleDocument : RuleDocument {
    explicit SampleDocument(int nNumber) : RuleDocument(Module()) {
        GroupRows group{L"Bronze", true, {}};
        for (int i = 0; i < kChanges; ++i)
            group.bands.push_back({i + 0.0, i + 1.0, kValueNotGiven, kValueNotGiven, nNumber + 0.0});
        Append(Module().CreateDefault(kSizeAndWeightRuleId));
        DocumentEdit edit(*this);
        edit.SetGroups(GetEntries()[0].key, {group});
        for (int i = 0; i < kChanges; ++i) {
            Append(Module().CreateDefault(kVariationRuleId));
            edit.Set(GetEntries().back().key + "/" + std::to_string(kVariationId), std::to_string(nNumber));
        }
        edit.Finish();
    }
};

void FindDifferences(benchmark::State& state) {
    const SampleDocument left(5), right(6);
    for (auto _ : state) benchmark::DoNotOptimize(MakePatch(left, right).differences.size());
}

void Apply(benchmark::State& state) {
    const Patch patch = MakePatch(SampleDocument(5), SampleDocument(6));
    for (auto _ : state) {
        state.PauseTiming();
        SampleDocument document(5);
        state.ResumeTiming();
        if (!ApplyPatch(document, patch, ConflictChoice::None).empty()) throw std::logic_error("conflicts");
    }
}

void Register(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("patch/reference", FindDifferences);
    Register("patch/subject", Apply);
    return RunWithRatios(argc, argv);
}

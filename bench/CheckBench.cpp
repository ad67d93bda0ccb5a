// Checking rule documents against reading them: what checking costs beyond the reading that it starts with.

#include "CrashReport.h"
#include "DocumentCheck.h"
#include "RatioReport.h"
#include "RuleDocument.h"
#include "RuleParameters.h"

#include <afxwin.h>
#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

CWinApp theApp(L"check_bench");

const RuleModule& Module() {
    static const RuleModule module;
    return module;
}

// Contradictory limits and a gap between bands of size.
void Spoil(CMfxRule& rule) {
    if (CMfxParamStorage* pMinimum = rule.FindParameterInArray(kThicknessMinId))
        pMinimum->GetValues<double>()[0] = 1000;
    if (CMfxParamStorage* pTable = rule.FindParameterInArray(kDraftAngleTableId))
        pTable->GetValues<MfxTableRow>()[1].cells[0] = L"26";
}

// A document of 10,000 rules, the four of the module again and again, in the system's folder for such files.
struct SampleFile {
    explicit SampleFile(bool bFindings) {
        constexpr int kRules = 10000;
        wchar_t szFolder[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, szFolder);
        m_strPath = CString(szFolder) + L"check_bench.xml";
        RuleDocument document(Module());
        while (document.GetEntries().size() < kRules)
            for (RulePtr& pRule : Module().CreateAllRules()) {
                if (bFindings) Spoil(*pRule);
                document.Append(std::move(pRule));
            }
        document.Save(m_strPath);
    }
    ~SampleFile() { DeleteFileW(m_strPath); }

    CString m_strPath;
};

void Read(benchmark::State& state, bool bFindings) {
    const SampleFile file(bFindings);
    for (auto _ : state) benchmark::DoNotOptimize(RuleDocument(Module(), file.m_strPath).GetEntries().size());
}

void Check(benchmark::State& state, bool bFindings) {
    const SampleFile file(bFindings);
    for (auto _ : state) {
        std::string text;
        for (const Finding& finding : CheckDocument(RuleDocument(Module(), file.m_strPath)))
            if (finding.Kind().severity == Severity::Error) text += DescribeFinding(finding) + "\n";
        if (text.empty() == bFindings) throw std::logic_error("other findings than expected: " + text);
    }
}

void Register(const char* name, void (*function)(benchmark::State&, bool), bool bFindings) {
    benchmark::RegisterBenchmark(name, function, bFindings)->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("check/reference/clean", Read, false);
    Register("check/subject/clean", Check, false);
    Register("check/reference/findings", Read, true);
    Register("check/subject/findings", Check, true);
    return RunWithRatios(argc, argv);
}

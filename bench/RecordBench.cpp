// Rule records: reading and writing against the bare XML library, unit conversion against a plain loop.

#include "CrashReport.h"
#include "MFXUnitConvertor.h"
#include "RatioReport.h"
#include "RuleModule.h"
#include "RuleParameters.h"
#include "XmlNumber.h"

#include <afxwin.h>
#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace {

CWinApp theApp(L"record_bench");

const RuleModule& Module() {
    static const RuleModule module;
    return module;
}

// A document of that many rules: the four rules as they are by default, again and again.
std::string MakeDocument(int nRules) {
    MfxXMLDocument document;
    const std::unique_ptr<MfxXMLNode> pRoot(document.CreateRootNode(L"MfxRules"));
    pRoot->AddAttribute(L"Unit", L"1");
    Module().SetDocument(&document);
    const std::vector<RulePtr> rules = Module().CreateAllRules();
    for (int i = 0; i < nRules; ++i) {
        const std::unique_ptr<MfxXMLNode> pRecord(
            rules[static_cast<std::size_t>(i) % rules.size()]->BuildXMLNode());
        pRoot->AppendNode(pRecord.get());
    }
    Module().SetDocument(nullptr);
    return document.ToUtf8();
}

std::vector<RulePtr> ReadRules(MfxXMLDocument& document) {
    const std::unique_ptr<MfxXMLNode> pRoot(document.GetRootNode());
    const std::unique_ptr<MfxXMLNodeList> pRecords(pRoot->GetNodeList(L"Rule"));
    std::vector<RulePtr> rules;
    for (long i = 0; i < pRecords->GetSize(); ++i) rules.push_back(Module().CreateRule(*(*pRecords)[i]));
    return rules;
}

// Counts the operation alone as the iteration's time; what it made is destroyed afterwards.
template <class Operation>
void Time(benchmark::State& state, Operation&& operation) {
    const auto start = std::chrono::steady_clock::now();
    operation();
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

void BareParse(benchmark::State& state) {
    const std::string text = MakeDocument(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        pugi::xml_document document;
        Time(state, [&] { benchmark::DoNotOptimize(document.load_buffer(text.data(), text.size())); });
    }
}

void ReadDocument(benchmark::State& state) {
    const std::string text = MakeDocument(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        MfxXMLDocument document;
        std::vector<RulePtr> rules;
        Time(state, [&] {
            document.Parse(text);
            rules = ReadRules(document);
        });
    }
}

struct MemoryWriter : pugi::xml_writer {
    std::string text;
    void write(const void* pData, std::size_t nSize) override {
        text.append(static_cast<const char*>(pData), nSize);
    }
};

void BareSave(benchmark::State& state) {
    const std::string text = MakeDocument(static_cast<int>(state.range(0)));
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    for (auto _ : state) {
        MemoryWriter writer;
        Time(state,
             [&] { document.save(writer, PUGIXML_TEXT("  "), pugi::format_indent, pugi::encoding_utf8); });
    }
}

void WriteDocument(benchmark::State& state) {
    MfxXMLDocument source;
    source.Parse(MakeDocument(static_cast<int>(state.range(0))));
    const std::vector<RulePtr> rules = ReadRules(source);
    for (auto _ : state) {
        MfxXMLDocument document;
        std::string text;
        Time(state, [&] {
            const std::unique_ptr<MfxXMLNode> pRoot(document.CreateRootNode(L"MfxRules"));
            Module().SetDocument(&document);
            for (const RulePtr& pRule : rules) {
                const std::unique_ptr<MfxXMLNode> pRecord(pRule->BuildXMLNode());
                pRoot->AppendNode(pRecord.get());
            }
            Module().SetDocument(nullptr);
            text = document.ToUtf8();
        });
    }
}

void CreateAndDeleteRules(benchmark::State& state) {
    std::size_t nRules = 0;
    for (auto _ : state) nRules += Module().CreateAllRules().size();
    state.counters["rules/s"] = benchmark::Counter(static_cast<double>(nRules), benchmark::Counter::kIsRate);
}

constexpr int kGroups = 100;
constexpr int kBands = 200;
constexpr UnitPair kMillimetres{LengthMillimetre, AngleDegree};
constexpr UnitPair kInches{LengthInch, AngleDegree};

// A rule by size and weight with many groups, as a long document has one.
RulePtr MakeLargeRule() {
    constexpr int kSizeAndWeightRule = 19020;
    std::vector<RulePtr> rules = Module().CreateAllRules();
    RulePtr pRule = std::move(*std::find_if(rules.begin(), rules.end(), [](const RulePtr& pCandidate) {
        return pCandidate->GetRuleId() == kSizeAndWeightRule;
    }));
    for (int nGroup = 0; nGroup < kGroups; ++nGroup) {
        CMFXConstraint* pGroup =
            pRule->CreateConstraintObject(ConstraintByMaterial, L"Group " + FormatInteger(nGroup), true);
        for (const long nParamId : {kSizeMinId, kSizeMaxId, kWeightMinId, kWeightMaxId, kThicknessId}) {
            CMfxParamStorage* pStorage = pRule->CreateParamStorageObject(TypeDouble, nParamId, OperatorAtMost,
                                                                         ParamLimit, true, false);
            for (int nBand = 0; nBand < kBands; ++nBand) pStorage->GetValues<double>().Add(nBand + 0.5);
            pGroup->AddParameter(pStorage);
        }
    }
    return pRule;
}

void PlainConversion(benchmark::State& state) {
    std::vector<std::vector<double>> lists(3 * kGroups);
    for (std::vector<double>& values : lists)
        for (int nBand = 0; nBand < kBands; ++nBand) values.push_back(nBand + 0.5);
    double numerator = 10, denominator = 254;  // exact, as the converter's ratios
    for (auto _ : state) {
        for (std::vector<double>& values : lists)
            for (double& value : values) value = value * numerator / denominator;
        std::swap(numerator, denominator);
        benchmark::DoNotOptimize(numerator);
        benchmark::DoNotOptimize(denominator);
        benchmark::ClobberMemory();
    }
}

void ConvertRule(benchmark::State& state) {
    const RulePtr pRule = MakeLargeRule();
    UnitPair from = kMillimetres, to = kInches;
    for (auto _ : state) {
        pRule->ConvertUnits(from, to);
        std::swap(from, to);
        benchmark::ClobberMemory();
    }
}

// Interleaved with its reference, so that a disturbance meets both.
void Register(const char* name, void (*function)(benchmark::State&), bool bBySize) {
    auto* pBenchmark = benchmark::RegisterBenchmark(name, function);
    if (bBySize) pBenchmark->UseManualTime()->Arg(4)->Arg(1000)->Arg(10000);
    pBenchmark->Unit(benchmark::kMicrosecond);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    Register("read/reference", BareParse, true);
    Register("read/subject", ReadDocument, true);
    Register("write/reference", BareSave, true);
    Register("write/subject", WriteDocument, true);
    Register("create and delete 4 rules", CreateAndDeleteRules, false);
    Register("convert/reference", PlainConversion, false);
    Register("convert/subject", ConvertRule, false);
    return RunWithRatios(argc, argv);
}

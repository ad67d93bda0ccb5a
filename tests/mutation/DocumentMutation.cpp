// Runs the host's commands on mutated sample documents:
//     mfx_document_mutation [ROUNDS [SEED]]
// Whatever a document holds, every command ends in time and with one of its exit codes; a conversion that is
// refused leaves the file alone, one that is done keeps the values. The first failure ends the run and keeps
// its document; "mfx_document_mutation 1 SEED" repeats it.

#include "CheckCommand.h"
#include "Commands.h"
#include "CrashReport.h"
#include "DiffCommand.h"
#include "DocumentMutator.h"
#include "XmlNumber.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <afxwin.h>
#include <io.h>

#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <thread>

namespace {

CWinApp theApp(L"mfx_document_mutation");

const TempFolder* g_pFolder = nullptr;
std::atomic<unsigned> g_nSeed;  // of the round that is running
int g_nOutput = -1;             // standard output as the program found it
LPTOP_LEVEL_EXCEPTION_FILTER g_pReportCrash = nullptr;

void Report(const std::string& reason) {
    for (FILE* pStream : {stdout, stderr}) fflush(pStream), _dup2(g_nOutput, _fileno(pStream));
    printf("seed %u: %s\nits document is in %s\n", g_nSeed.load(), reason.c_str(),
           Utf8(g_pFolder->Path()).c_str());
    fflush(stdout);
}

// Ends the program without a word to anyone, so that the folder stays.
void Fail(const std::string& reason) {
    Report(reason);
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
}

LONG WINAPI NameDocumentOfCrash(EXCEPTION_POINTERS* pCrash) {
    Report("a crash");
    return g_pReportCrash(pCrash);
}

void WatchRounds() {
    for (unsigned nSeen = g_nSeed;; nSeen = g_nSeed) {
        std::this_thread::sleep_for(std::chrono::seconds(10));
        if (g_nSeed == nSeen) Fail("takes longer than 10 seconds");
    }
}

class MutationRun {
  public:
    MutationRun() {
        g_pFolder = &m_folder;
        for (const auto& entry : std::filesystem::directory_iterator(Wide(MFX_SAMPLES))) {
            if (entry.path().extension() != L".xml") continue;
            m_samplePaths.push_back(entry.path().wstring());
            m_samples.push_back(m_folder.Read(m_samplePaths.back()));
        }
    }

    void RunRound(bool bRealProgram) {
        DocumentMutator mutator(m_samples, g_nSeed);
        const std::string document = mutator.MakeDocument();
        m_folder.Write(L"document.xml", document);
        m_folder.Write(L"converted.xml", document);
        const std::wstring sample = mutator.OneOf(m_samplePaths);
        const char* const kUnits[][2] = {{"mm", "deg"}, {"in", "rad"}, {"yd", "arcmin"}, {"um", "deg"}};
        const auto& [length, angle] = mutator.OneOf(kUnits);
        RunCommands(document, sample, length, angle);
        if (bRealProgram) RunProgram(sample, Wide(length));
    }

    void PrintCounts() const {
        printf("%-10s%10s%10s%10s\n", "", "done", "findings", "unreadable");
        for (const auto& [name, counts] : m_counts)
            printf("%-10s%10d%10d%10d\n", name.c_str(), counts[0], counts[1], counts[3]);
    }

  private:
    void RunCommands(const std::string& document, const std::wstring& sample, const char* length,
                     const char* angle) {
        const CString strPath = m_folder.Path(L"document.xml").c_str();
        const CString strConverted = m_folder.Path(L"converted.xml").c_str();
        const auto diff = [&](const CString& strRight, bool bDefaults) {
            return [=, this] { return DiffDocuments(m_module, {strPath, strRight, bDefaults, bDefaults}); };
        };
        for (const bool bJson : {false, true})
            Run("check", [&] { return CheckDocuments(m_module, {{strPath}, Severity::Hint, bJson}); });
        Run("show json", [&] { return ShowDocument(m_module, strPath, true); });
        const ExitCode shown = Run("show", [&] { return ShowDocument(m_module, strPath, false); });
        Run("diff", diff(CString(sample.c_str()), false));
        Run("defaults", diff(CString(), true));
        if (Run("itself", diff(strPath, false)) !=
            (shown == ExitCode::UnreadableInput ? shown : ExitCode::Done))
            Fail("a document differs from itself");

        const ExitCode converted = Run("convert", [&] {
            return ConvertDocument(m_module, {strConverted, CString(), length, angle});
        });
        if (converted != ExitCode::Done && m_folder.Read(L"converted.xml") != document)
            Fail("a conversion that was refused changed the file");
        if (converted != ExitCode::Done) return;
        if (Run("again", [&] { return ShowDocument(m_module, strConverted, false); }) != ExitCode::Done)
            Fail("what was converted is not understood");
        // The draft angle rule makes zeros of empty cells.
        const bool bEmptyCells = document.find("=\"\"") != std::string::npos ||
                                 document.find("=\0\"\0\"", 0, 5) != std::string::npos;
        if (!bEmptyCells && Run("values", diff(strConverted, false)) != ExitCode::Done)
            Fail("a conversion changed a value");
    }

    // Nothing in a document makes a command line wrong, or a part of the installation missing.
    ExitCode Run(const char* pszName, const std::function<ExitCode()>& command) {
        ExitCode code = ExitCode::Done;
        try {
            code = command();
        } catch (const HostError& error) {
            code = error.Code();
            if (code != ExitCode::UnreadableInput) Fail(error.what());
        } catch (const std::exception& error) {
            Fail(std::string("unexpected: ") + error.what());
        }
        ++m_counts[pszName][static_cast<std::size_t>(code)];
        return code;
    }

    void RunProgram(const std::wstring& sample, const std::wstring& length) {
        for (const std::vector<std::wstring>& arguments :
             {std::vector<std::wstring>{L"show", L"document.xml"},
              {L"check", L"document.xml", L"--json"},
              {L"diff", L"document.xml", sample},
              {L"convert", L"document.xml", L"--length", length, L"-o", L"output.xml"}}) {
            const auto run = RunProcess(ProgramFolder() + L"\\mfxhost.exe", arguments, m_folder.Path());
            if (run.bTimedOut || run.nExitCode < 0 || run.nExitCode > 3)
                Fail("exit code " + std::to_string(run.nExitCode) + "\n" + run.err);
            else
                ++m_counts["mfxhost"][static_cast<std::size_t>(run.nExitCode)];
        }
    }

    const TempFolder m_folder;
    const RuleModule m_module;
    std::vector<std::wstring> m_samplePaths;
    std::vector<std::string> m_samples;
    std::map<std::string, std::array<int, 5>> m_counts;
};

std::optional<unsigned> NumberOf(const CString& strArgument) {
    std::int32_t nNumber = 0;
    const bool bNumber = IsInteger(strArgument) && ParseInteger(strArgument, nNumber) && nNumber >= 0;
    return bNumber ? std::optional(static_cast<unsigned>(nNumber)) : std::nullopt;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    g_pReportCrash = SetUnhandledExceptionFilter(NameDocumentOfCrash);
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    const auto nRounds = NumberOf(argc > 1 ? argv[1] : L"1000"), nFirst = NumberOf(argc > 2 ? argv[2] : L"1");
    if (!nRounds || !nFirst || argc > 3) {
        printf("usage: mfx_document_mutation [ROUNDS [SEED]]\n");
        return 2;
    }
    g_nOutput = _dup(_fileno(stdout));
    for (FILE* pStream : {stdout, stderr}) freopen("NUL", "wb", pStream);  // the commands' output

    MutationRun run;
    std::thread(WatchRounds).detach();
    constexpr unsigned kRealProgramEvery = 50;
    const auto start = std::chrono::steady_clock::now();
    for (g_nSeed = *nFirst; g_nSeed != *nFirst + *nRounds; ++g_nSeed)
        run.RunRound((g_nSeed - *nFirst) % kRealProgramEvery == 0);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;

    fflush(stdout);
    _dup2(g_nOutput, _fileno(stdout));
    printf("%u rounds in %.1f s\n", *nRounds, time.count());
    run.PrintCounts();
    return EXIT_SUCCESS;
}

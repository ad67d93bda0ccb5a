// Runs the host's commands on mutated sample documents:
//     mfx_document_mutation [ROUNDS [SEED]]
// Every command ends with one of its exit codes. A conversion that is refused leaves the file alone, one that
// is done keeps the values.

#include "CheckCommand.h"
#include "Commands.h"
#include "DiffCommand.h"
#include "DocumentMutator.h"
#include "MutationRun.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <afxwin.h>

#include <array>
#include <filesystem>
#include <map>

namespace {

CWinApp theApp(L"mfx_document_mutation");

class DocumentRounds {
  public:
    DocumentRounds() {
        for (const auto& entry : std::filesystem::directory_iterator(Wide(MFX_SAMPLES))) {
            if (entry.path().extension() != L".xml") continue;
            m_samplePaths.push_back(entry.path().wstring());
            m_samples.push_back(m_folder.Read(m_samplePaths.back()));
        }
    }

    std::wstring Folder() const { return m_folder.Path(); }

    void RunRound(unsigned nSeed) {
        DocumentMutator mutator(m_samples, nSeed);
        m_document = mutator.MakeDocument();
        m_folder.Write(L"document.xml", m_document);
        m_folder.Write(L"converted.xml", m_document);
        Compare(mutator.OneOf(m_samplePaths));
        const char* const kUnits[][2] = {{"mm", "deg"}, {"in", "rad"}, {"yd", "arcmin"}, {"um", "deg"}};
        const auto& [length, angle] = mutator.OneOf(kUnits);
        Convert(length, angle);
    }

    void PrintSummary() const {
        printf("%-10s%10s%10s%10s\n", "", "done", "findings", "unreadable");
        for (const auto& [name, counts] : m_counts)
            printf("%-10s%10d%10d%10d\n", name.c_str(), counts[0], counts[1], counts[3]);
    }

  private:
    void Compare(const std::wstring& sample) {
        for (const bool bJson : {false, true})
            Run("check", [&] { return CheckDocuments(m_module, {{m_strPath}, Severity::Hint, bJson}); });
        Run("show json", [&] { return ShowDocument(m_module, m_strPath, true); });
        const ExitCode shown = Run("show", [&] { return ShowDocument(m_module, m_strPath, false); });
        Diff("diff", sample.c_str(), false);
        Diff("defaults", L"", true);
        if (Diff("itself", m_strPath, false) != (shown == ExitCode::UnreadableInput ? shown : ExitCode::Done))
            FailRound("a document differs from itself");
    }

    void Convert(const char* length, const char* angle) {
        const ExitCode converted = Run("convert", [&] {
            return ConvertDocument(m_module, {m_strConverted, CString(), length, angle});
        });
        if (converted != ExitCode::Done && m_folder.Read(L"converted.xml") != m_document)
            FailRound("a conversion that was refused changed the file");
        if (converted != ExitCode::Done) return;
        if (Run("again", [&] { return ShowDocument(m_module, m_strConverted, false); }) != ExitCode::Done)
            FailRound("what was converted is not understood");
        // The draft angle rule makes zeros of empty cells.
        const bool bEmptyCells = m_document.find("=\"\"") != std::string::npos ||
                                 m_document.find("=\0\"\0\"", 0, 5) != std::string::npos;
        if (!bEmptyCells && Diff("values", m_strConverted, false) != ExitCode::Done)
            FailRound("a conversion changed a value");
    }

    ExitCode Diff(const char* pszName, const CString& strRight, bool bDefaults) {
        return Run(pszName, [&] {
            return DiffDocuments(m_module, {m_strPath, strRight, bDefaults, bDefaults});
        });
    }

    // Nothing in a document makes a command line wrong, or a part of the installation missing.
    template <class Command>
    ExitCode Run(const char* pszName, Command&& command) {
        ExitCode code = ExitCode::Done;
        try {
            code = command();
        } catch (const HostError& error) {
            code = error.Code();
            if (code != ExitCode::UnreadableInput) FailRound(error.what());
        } catch (const std::exception& error) {
            FailRound(std::string("unexpected: ") + error.what());
        }
        ++m_counts[pszName][static_cast<std::size_t>(code)];
        return code;
    }

    const TempFolder m_folder;
    const RuleModule m_module;
    const CString m_strPath = m_folder.Path(L"document.xml").c_str();
    const CString m_strConverted = m_folder.Path(L"converted.xml").c_str();
    std::vector<std::wstring> m_samplePaths;
    std::vector<std::string> m_samples;
    std::string m_document;
    std::map<std::string, std::array<int, 5>> m_counts;
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    DocumentRounds rounds;
    return RunMutationTest(argc, argv,
                           {.runRound = [&](unsigned nSeed) { rounds.RunRound(nSeed); },
                            .printSummary = [&] { rounds.PrintSummary(); },
                            .inputFolder = rounds.Folder()});
}

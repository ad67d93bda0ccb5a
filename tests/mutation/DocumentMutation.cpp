// Runs the host's commands on mutated sample documents:
//     mfx_document_mutation [ROUNDS [SEED]]
// Every command ends with one of its exit codes. A conversion that is refused leaves the file alone, one that
// is done keeps the values. A patch makes the second document of the first, or is refused.

#include "Commands.h"
#include "DocumentMutator.h"
#include "EditError.h"
#include "MutationRun.h"
#include "PatchApplication.h"
#include "PatchJson.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <afxwin.h>

#include <filesystem>

namespace {

CWinApp theApp(L"mfx_document_mutation");

class DocumentRounds {
  public:
    DocumentRounds() {
        for (const auto& entry : std::filesystem::directory_iterator(Wide(MFX_SAMPLES))) {
            if (entry.path().extension() != L".xml") continue;
            m_samplePaths.push_back(Utf8(entry.path().wstring()));
            m_samples.push_back(m_folder.Read(entry.path().wstring()));
        }
    }

    void RunRound(unsigned nSeed) {
        DocumentMutator mutator(m_samples, nSeed);
        m_document = mutator.MakeDocument();
        m_folder.Write(L"document.xml", m_document);
        m_folder.Write(L"converted.xml", m_document);
        const std::string& sample = mutator.OneOf(m_samplePaths);
        Compare(sample);
        MakePatches(sample);
        const char* const kUnits[][2] = {{"mm", "deg"}, {"in", "rad"}, {"yd", "arcmin"}, {"um", "deg"}};
        const auto& [length, angle] = mutator.OneOf(kUnits);
        Convert(length, angle);
    }

  private:
    using Arguments = std::vector<std::string>;

    void Compare(const std::string& sample) {
        const ExitCode shown = Run({"show", m_path});
        for (const Arguments& arguments : {Arguments{"check", m_path},
                                           {"check", m_path, "--json"},
                                           {"check", m_path, "--format", "sarif"},
                                           {"show", m_path, "--json"},
                                           {"diff", m_path, sample, "--json"},
                                           {"diff", m_path, "--defaults", "--json"},
                                           {"limits", m_path, "--material", "Steel", "--size", "100"}})
            Run(arguments);
        const ExitCode same = shown == ExitCode::UnreadableInput ? shown : ExitCode::Done;
        if (Run({"diff", m_path, m_path}) != same) FailRound("a document differs from itself");
    }

    void MakePatches(const std::string& sample) {
        try {
            CheckPatch(m_path, sample);
            CheckPatch(sample, m_path);
        } catch (const DocumentError& error) {
            if (error.GetKind() != DocumentError::Kind::Unreadable) FailRound(error.what());
        } catch (const EditError&) {  // what the rules' dialogs refuse
        }
    }

    void CheckPatch(const std::string& leftPath, const std::string& rightPath) {
        RuleDocument left(m_module, Wide(leftPath).c_str()), right(m_module, Wide(rightPath).c_str());
        const Patch patch = ParsePatch("patch", FormatPatch(MakePatch(left, right), "", ""));
        if (!ApplyPatch(left, patch, ConflictChoice::None).empty()) FailRound("a patch has conflicts");
        for (const RuleDocument::Entry& entry : right.GetEntries())  // older forms become the present one
            if (entry.rule) right.StoreRule(entry);
        const std::vector<Difference> differences = CompareDocuments(left, right);
        if (!differences.empty())
            FailRound("a patch does not make the second document: " + differences.front().key);
    }

    void Convert(const char* length, const char* angle) {
        const ExitCode converted = Run({"convert", m_convertedPath, "--length", length, "--angle", angle});
        if (converted != ExitCode::Done && m_folder.Read(L"converted.xml") != m_document)
            FailRound("a conversion that was refused changed the file");
        if (converted != ExitCode::Done) return;
        if (Run({"show", m_convertedPath}) != ExitCode::Done)
            FailRound("what was converted is not understood");
        // The draft angle rule makes zeros of empty cells.
        const bool hasEmptyCells = m_document.find("=\"\"") != std::string::npos ||
                                   m_document.find("=\0\"\0\"", 0, 5) != std::string::npos;
        if (!hasEmptyCells && Run({"diff", m_path, m_convertedPath}) != ExitCode::Done)
            FailRound("a conversion changed a value");
    }

    // Nothing in a document makes a command line wrong, or a part of the installation missing.
    ExitCode Run(const Arguments& arguments) {
        ExitCode code = ExitCode::Done;
        std::vector<const char*> pointers{"mfxhost"};
        for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
        try {
            CommandLine commandLine;
            AddCommands(commandLine);
            code = commandLine.Run(static_cast<int>(pointers.size()), pointers.data());
        } catch (const DocumentError& error) {
            code = ExitCodeOf(error.GetKind());
            if (code != ExitCode::UnreadableInput) FailRound(error.what());
        } catch (const std::exception& error) {
            FailRound(std::string("unexpected: ") + error.what());
        }
        return code;
    }

    const TempFolder m_folder;
    const RuleModule m_module;  // stays loaded between the commands
    const std::string m_path = Utf8(m_folder.Path(L"document.xml"));
    const std::string m_convertedPath = Utf8(m_folder.Path(L"converted.xml"));
    std::vector<std::string> m_samplePaths, m_samples;
    std::string m_document;
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    DocumentRounds rounds;
    return RunMutationTest(argc, argv, [&](unsigned nSeed) { rounds.RunRound(nSeed); });
}

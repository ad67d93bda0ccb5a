// mfxhost: works with rule documents and with the module's import of workbooks, without the CAD system.

#include "CommandLine.h"
#include "Commands.h"
#include "Console.h"
#include "CrashReport.h"
#include "EditError.h"
#include "FrameworkLibrary.h"
#include "Text.h"

#include <afxwin.h>

#include <vector>

namespace {

CWinApp theApp(L"mfxhost");

ExitCode Run(int argc, wchar_t** argv) {
    LoadFrameworkLibrary();
    CommandLine commandLine;
    AddCommands(commandLine);
    std::vector<std::string> arguments;
    for (int i = 0; i < argc; ++i) arguments.push_back(ToUtf8(argv[i]));
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
    const ExitCode exitCode = commandLine.Run(argc, pointers.data());
    if (!FlushOutput())
        throw CommandError(ExitCode::NotPossible, IsSaved()
                                                      ? "standard output can't be written; the file was saved"
                                                      : "standard output can't be written");
    return exitCode;
}

ExitCode Fail(const std::string& message, ExitCode exitCode) {
    PrintError("mfxhost: " + Escaped(message) + "\n");
    return exitCode;
}

ExitCode RunToItsEnd(int argc, wchar_t** argv) {
    try {
        return Run(argc, argv);
    } catch (const CommandError& error) {
        return Fail(error.what(), error.Code());
    } catch (const DocumentError& error) {
        return Fail(error.what(), ExitCodeOf(error.GetKind()));
    } catch (const EditError& error) {
        return Fail(std::string(error.what()) + " (nothing was changed)", ExitCode::Findings);
    } catch (const std::exception& error) {
        return Fail(std::string("unexpected failure: ") + error.what(), ExitCode::NotPossible);
    }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    // From now on libraries come from the program's and the system's folders, never from the current one.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    InstallCrashReport();
    const ConsoleScope console;
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    return static_cast<int>(RunToItsEnd(argc, argv));
}

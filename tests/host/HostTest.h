#pragma once

#include "support/Process.h"
#include "support/TempFolder.h"
#include "support/Texts.h"

#include <windows.h>

#include <gmock/gmock.h>

// Starts the real program, in a folder of the test's own, so that file names need no path.
class HostTest : public testing::Test {
  protected:
    using Arguments = std::vector<std::wstring>;
    using TextMatcher = testing::Matcher<const std::string&>;

    ProcessResult Run(const Arguments& arguments, const std::wstring& bin = ProgramFolder()) const {
        return RunProcess(bin + L"\\mfxhost.exe", arguments, m_folder.Path());
    }

    // Expects an exit code and texts on standard output and standard error.
    void Run(const Arguments& arguments, int nExitCode, const TextMatcher& out, const TextMatcher& err,
             const std::wstring& bin = ProgramFolder()) const {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const ProcessResult run = Run(arguments, bin);
        EXPECT_FALSE(run.bTimedOut);
        EXPECT_EQ(run.nExitCode, nExitCode);
        EXPECT_THAT(run.out, out);
        EXPECT_THAT(run.err, err);
    }

    // The sample's rule many times over, in one document.
    std::string ManyRules(std::size_t nRules) const {
        const std::size_t nRule = m_sample.find("  <Rule "), nEnd = m_sample.find("</MfxRules>");
        return m_sample.substr(0, nRule) + Repeated(m_sample.substr(nRule, nEnd - nRule), nRules) +
               m_sample.substr(nEnd);
    }

    const TempFolder m_folder;
    const std::string m_sample = m_folder.Read(Wide(MFX_SAMPLES "draft-angle.xml"));  // mm and degrees
    // Inches and degrees, without a limit of the last band.
    const std::string m_inches = m_folder.Read(Wide(MFX_SAMPLES "draft-angle-inches.xml"));
};

// A document with one rule: its record starts on line 2, the rows stand from line 5 on.
inline std::string Document(const std::string& rows, const std::string& inRoot = "") {
    return R"(<MfxRules Unit="1" AngleUnit="0">)" + inRoot + R"(
<Rule Name="Variable Draft Angle" Module="MFXSandCastingRulesValidator" Severity="2">
<Parameter Type="29183" Status="1">
<Operator>3</Operator><ParameterType>24</ParameterType>
)" + rows + "\n<Remarks>r</Remarks></Parameter></Rule></MfxRules>\n";
}

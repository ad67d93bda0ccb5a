#include "HostTest.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

using namespace testing;

// Killed at any moment, the program leaves the old document or the new one, and the next run does not mind a
// temporary file. Every second kill waits for the save to begin. MFX_KILLS=1000 kills more often.
TEST_F(HostTest, LeavesAWholeDocumentWhenItIsKilled) {
    using Clock = std::chrono::steady_clock;
    const std::string old = ManyRules(300);  // 300 kB
    const std::wstring path = m_folder.Write(L"d.xml", old);
    const Arguments toInches{L"convert", L"d.xml", L"--length", L"in"};
    const auto start = Clock::now();
    Run(toInches, 0, _, _);
    const std::chrono::duration<double> duration = Clock::now() - start;
    const std::string converted = m_folder.Read(L"d.xml");

    const char* pszKills = std::getenv("MFX_KILLS");
    const int nKills = pszKills ? std::atoi(pszKills) : 25;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> upToOne;
    int nOld = 0, nInSave = 0;
    for (int i = 0; i < nKills; ++i) {
        m_folder.Write(L"d.xml", old);
        const std::size_t nFiles = m_folder.Names().size();
        const auto isSaving = [&] {
            return m_folder.Names().size() > nFiles || std::filesystem::file_size(path) != old.size();
        };
        const auto moment = upToOne(random) * 1.2 * duration;
        const auto momentOfSave = upToOne(random) * std::chrono::milliseconds(4);
        RunProcess(ProgramFolder() + L"\\mfxhost.exe", toInches, m_folder.Path(), 0, [&] {
            if (i % 2 == 0) return std::this_thread::sleep_for(moment);
            for (const auto end = Clock::now() + std::chrono::seconds(30); Clock::now() < end && !isSaving();)
                continue;
            nInSave += isSaving();
            for (const auto end = Clock::now() + momentOfSave; Clock::now() < end;) continue;
        });
        const std::string after = m_folder.Read(L"d.xml");
        ASSERT_TRUE(after == old || after == converted) << "kill " << i << ": " << after.size() << " bytes";
        nOld += after == old;
    }
    const std::size_t nLeft = m_folder.Names().size();
    EXPECT_GT(nOld, 0);
    EXPECT_GT(nInSave, 0);
    m_folder.Write(L"d.xml", old);
    Run(toInches, 0, _, _);
    EXPECT_TRUE(m_folder.Read(L"d.xml") == converted);
    EXPECT_LE(m_folder.Names().size(), nLeft);
}

// Of two conversions at once that have read the same document, the second one to save does not undo the
// first.
TEST_F(HostTest, LosesNoUpdate) {
    const std::string old = ManyRules(100);
    for (int i = 0; i < 10; ++i) {
        m_folder.Write(L"d.xml", old);
        ProcessResult length, angle;
        {
            const std::jthread other([&] { length = Run({L"convert", L"d.xml", L"--length", L"in"}); });
            angle = Run({L"convert", L"d.xml", L"--angle", L"rad"});
        }
        const std::string after = m_folder.Read(L"d.xml");
        EXPECT_THAT(after, HasSubstr(length.nExitCode == 0 ? "Unit=\"3\" Angle" : "Unit=\"1\" Angle"));
        EXPECT_THAT(after, HasSubstr(angle.nExitCode == 0 ? "AngleUnit=\"1\"" : "AngleUnit=\"0\""));
        for (const ProcessResult& run : {length, angle}) {
            if (run.nExitCode == 0) continue;
            EXPECT_EQ(run.nExitCode, 4);
            EXPECT_THAT(run.err, HasSubstr("d.xml was changed by another program meanwhile"));
        }
    }
}

#include "MaterialsTest.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

namespace fs = std::filesystem;
using namespace testing;

namespace {

using Clock = std::chrono::steady_clock;

// Waits until the function is true, at most for some seconds. Whether it came true.
template <class Condition>
bool WaitFor(Condition condition) {
    for (const auto end = Clock::now() + std::chrono::seconds(20); Clock::now() < end;)
        if (condition()) return true;
    return false;
}

}  // namespace

// Killed at any moment, the program leaves all of an import or nothing, also while it makes the database.
// Every second kill waits for the import to write. MFX_KILLS=200 kills more often.
TEST_F(MaterialsTest, LosesNothingWhenItIsKilled) {
    constexpr int kLines = 20'000;
    const Arguments import{L"materials", L"import", L"a.csv"};
    m_folder.Write(L"a.csv", kHeadings + ManyLines(0, kLines));
    const auto start = Clock::now();
    Run(import, 0, _, "");
    const std::chrono::duration<double> duration = Clock::now() - start;

    const char* kills = std::getenv("MFX_KILLS");
    const int killCount = kills ? std::atoi(kills) : 12;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> upToOne;
    int nothing = 0, inWriting = 0;
    for (int i = 0; i < killCount; ++i) {
        fs::remove(Database());
        if (i % 4 != 0) CountWhole();  // makes it
        const auto isWriting = [&] {
            std::error_code none;
            constexpr std::uintmax_t kStarted = 100'000;  // bytes; making the database takes less
            const std::uintmax_t size = fs::file_size(Database() + L"-wal", none);
            return !none && size > kStarted;
        };
        RunProcess(ProgramFolder() + L"\\mfxhost.exe", import, m_folder.Path(), 0, [&] {
            if (i % 2 == 0) return std::this_thread::sleep_for(upToOne(random) * 1.1 * duration);
            inWriting += WaitFor(isWriting);
            std::this_thread::sleep_for(upToOne(random) * std::chrono::milliseconds(60));
        });
        const std::int64_t count = CountWhole();
        ASSERT_THAT(count, AnyOf(kDefaultMaterials, kDefaultMaterials + kLines)) << "kill " << i;
        nothing += count == kDefaultMaterials;
    }
    EXPECT_GT(nothing, 0);
    EXPECT_GT(inWriting, 0);
    Run(import, 0, _, "");
    EXPECT_EQ(CountWhole(), kDefaultMaterials + kLines);
}

TEST_F(MaterialsTest, LetsTwoProgramsWrite) {
    constexpr int kLines = 3'000;
    m_folder.Write(L"a.csv", kHeadings + ManyLines(0, kLines));
    m_folder.Write(L"b.csv", kHeadings + ManyLines(kLines, kLines));
    for (int i = 0; i < 5; ++i) {
        fs::remove(Database());  // both make it
        const auto import = [&](const wchar_t* file) {
            Run({L"materials", L"import", file}, 0, HasSubstr("3000 materials added"), "");
        };
        {
            const std::jthread other(import, L"b.csv");
            import(L"a.csv");
        }
        EXPECT_EQ(CountWhole(), kDefaultMaterials + 2 * kLines);
    }
}

TEST_F(MaterialsTest, TellsThatAnotherProgramIsWriting) {
    m_folder.Write(L"a.csv", kHeadings + ManyLines(0, 2));
    const DatabaseFile file = OpenDatabase(Database().c_str());
    file.connection->Execute("BEGIN EXCLUSIVE");
    Run({L"materials", L"import", L"a.csv"}, 4, "",
        HasSubstr("m.db is locked by another program; try again"));
    Run({L"materials", L"find", L"magnesium"}, 0, HasSubstr("Magnesium"), "");
    file.connection->Execute("COMMIT");
    Run({L"materials", L"import", L"a.csv"}, 0, _, "");
}

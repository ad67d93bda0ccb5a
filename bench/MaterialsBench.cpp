// "mfxhost materials import" of 100,000 lines, against SQLite's own shell, which imports the same file into
// the same tables: into a temporary table, and from there by three statements.

#include "RatioReport.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr int kLines = 100'000, kGroups = 50;

constexpr char kShellScript[] = R"(
PRAGMA foreign_keys = ON;
CREATE TEMP TABLE line(process TEXT, family TEXT, grp TEXT, name TEXT, density TEXT, minimum TEXT, maximum TEXT);
.import --csv --skip 1 --schema temp a.csv line
BEGIN IMMEDIATE;
INSERT INTO process(name) SELECT DISTINCT process FROM line WHERE true ON CONFLICT DO NOTHING;
INSERT INTO material_group(process_id, name, family)
  SELECT DISTINCT p.id, grp, nullif(family, '') FROM line JOIN process p ON p.name = process;
INSERT INTO material(group_id, name, density, density_unit, minimum_wall, maximum_wall, wall_unit)
  SELECT g.id, line.name, nullif(density, ''), 2, nullif(minimum, ''), nullif(maximum, ''), 1
  FROM line JOIN process p ON p.name = process JOIN material_group g ON g.process_id = p.id AND g.name = grp;
COMMIT;
SELECT count(*) FROM material;
)";

std::string MakeMaterials() {
    std::string lines =
        "Process,Family,Group,Material,Density [g/cm3],Minimum wall thickness [mm],Maximum wall thickness "
        "[mm]\n";
    for (int i = 0; i < kLines; ++i)
        lines += "Sand Casting,,Group " + std::to_string(i * kGroups / kLines) + ",Material " +
                 std::to_string(i) + "," + std::to_string(2 + i % 7) + "." + std::to_string(i % 1'000 + 1) +
                 "," + std::to_string(3 + i % 5) + "," + std::to_string(7 + i % 7) + "\n";
    return lines;
}

// A folder with the file of materials, and a database with the default materials.
class Folder {
  public:
    Folder() {
        m_folder.Write(L"a.csv", MakeMaterials());
        m_folder.Write(L"script", kShellScript);
        Import({L"materials", L"list", L"--database", L"fresh.db"});
    }

    void Restore() const {
        fs::remove(m_folder.Path(L"m.db"));
        fs::copy_file(m_folder.Path(L"fresh.db"), m_folder.Path(L"m.db"));
    }
    std::string Import(const std::vector<std::wstring>& arguments) const {
        return RunProcess(ProgramFolder() + L"\\mfxhost.exe", arguments, m_folder.Path()).out;
    }
    std::string ImportByShell() const {
        return RunProcess(Wide(MFX_SQLITE_SHELL), {L"m.db", L".read script"}, m_folder.Path()).out;
    }

  private:
    TempFolder m_folder;
};

template <class Import>
void Run(benchmark::State& state, const std::string& expected, Import import) {
    const Folder folder;
    for (auto _ : state) {
        state.PauseTiming();
        folder.Restore();
        state.ResumeTiming();
        const std::string output = import(folder);
        if (output.find(expected) == output.npos) return state.SkipWithError("it fails");
    }
}

void RunHost(benchmark::State& state) {
    Run(state, "100000 materials added", [](const Folder& folder) {
        return folder.Import({L"materials", L"import", L"a.csv", L"--database", L"m.db"});
    });
}

void RunShell(benchmark::State& state) {
    Run(state, "100043", [](const Folder& folder) { return folder.ImportByShell(); });
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    benchmark::RegisterBenchmark("materials/reference", RunShell)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("materials/subject", RunHost)->Unit(benchmark::kMillisecond)->UseRealTime();
    return RunWithRatios(argc, argv);
}

#include "Commands.h"
#include "Console.h"
#include "FileArguments.h"
#include "MFXDataHelper.h"
#include "Text.h"
#include "TextTable.h"
#include "UnitNames.h"
#include "ValueContent.h"

#include <algorithm>
#include <memory>

namespace {

struct MaterialsOptions {
    std::function<ExitCode(IMaterialDatabase&)> run;  // of the chosen subcommand
    std::string searched;
    std::string file;
    std::string output;
    std::string densityUnit;
    std::string wallUnit;
    bool hasByteOrderMark = false;
    bool isDryRun = false;
};

ExitCode ExitCodeOf(MfxDatabaseProblem_e problem) {
    switch (problem) {
        case DatabaseDamaged:
        case DatabaseForeign:
        case DatabaseTooNew:
        case DatabaseRefused:
            return ExitCode::UnreadableInput;
        default:
            return ExitCode::NotPossible;
    }
}

void ThrowIfProblem(const MfxDatabaseResult& result) {
    if (result.problem != DatabaseNoProblem)
        throw CommandError(ExitCodeOf(result.problem), ToUtf8(result.strText));
}

std::string FormatFigure(const std::optional<double>& figure, const std::string& unit) {
    return figure ? FormatNumber(*figure) + " " + unit : "-";
}

std::vector<std::string> MakeRow(const MfxMaterialGroup& group, const MfxMaterial& material) {
    const std::string wallUnit = SymbolOfUnit(kLengthUnits, material.wallUnit);
    return {ToUtf8(group.strProcess),
            ToUtf8(group.strName),
            material.strName.IsEmpty() ? "-" : ToUtf8(material.strName),
            FormatFigure(material.density, SymbolOfUnit(kDensityUnits, material.densityUnit)),
            FormatFigure(material.minimumWall, wallUnit),
            FormatFigure(material.maximumWall, wallUnit)};
}

bool HasPart(const CString& text, CString part) {
    CString upper = text;
    return upper.MakeUpper().Find(part.MakeUpper()) >= 0;
}

// Calls use(row) for each material that has the text in its name, or in that of its group or process; for a
// group without materials once. Returns how many rows there are.
template <class Use>
std::size_t ForEachRow(const IDatabaseCollector& database, const CString& searched, Use use) {
    std::size_t count = 0;
    std::vector<MfxMaterialGroup> groups;
    ThrowIfProblem(database.GetGroups(groups));
    for (const MfxMaterialGroup& group : groups) {
        const bool isGroupFound = HasPart(group.strName, searched) || HasPart(group.strProcess, searched);
        std::vector<MfxMaterial> materials;
        ThrowIfProblem(database.GetMaterials({group.strProcess, group.strName}, materials));
        if (materials.empty()) materials.emplace_back();
        for (const MfxMaterial& material : materials) {
            if (!isGroupFound && !HasPart(material.strName, searched)) continue;
            use(MakeRow(group, material));
            ++count;
        }
    }
    return count;
}

// Row by row, as there can be very many.
ExitCode PrintMaterials(const IMaterialDatabase& file, const CString& searched) {
    const IDatabaseCollector& database = *mfx_db::MFXDataHelper::getInstance();

    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Right, Align::Right, Align::Right});
    const std::vector<std::string> header{"process", "group",        "material",
                                          "density", "minimum wall", "maximum wall"};
    table.Measure(header);
    if (ForEachRow(database, searched, [&](const auto& row) { table.Measure(row); }) == 0) {
        PrintError("mfxhost: " + ToUtf8(file.GetPath()) + " has no material like " + Quoted(searched) + "\n");
        return ExitCode::Done;
    }
    Print(table.FormatRow(header, 0));
    ForEachRow(database, searched, [&](const auto& row) { Print(table.FormatRow(row, 0)); });
    return ExitCode::Done;
}

template <class Unit>
std::optional<Unit> UnitOrThrow(std::span<const UnitName> units, const char* option,
                                const std::string& name) {
    if (name.empty()) return std::nullopt;
    if (const std::optional<int> unit = FindUnit(units, name)) return static_cast<Unit>(*unit);
    throw CommandError(ExitCode::WrongUsage, std::string(option) + ": \"" + name +
                                                 "\" is not a unit that is known; those are " +
                                                 UnitSymbols(units));
}

ExitCode Export(IMaterialDatabase& database, const MaterialsOptions& options) {
    const MaterialExportOptions exported{
        UnitOrThrow<MfxDensityUnit_e>(kDensityUnits, "--density", options.densityUnit),
        UnitOrThrow<MfxLengthUnit_e>(kLengthUnits, "--length", options.wallUnit), options.hasByteOrderMark};
    if (options.output.empty() || options.output == kStandardStream) {
        ThrowIfProblem(database.ExportCsv(exported, [](std::string_view text) { Print(std::string(text)); }));
        return ExitCode::Done;
    }
    RefuseSameFile(options.output, ToUtf8(database.GetPath()), "material database");
    std::string bytes;
    ThrowIfProblem(database.ExportCsv(exported, [&](std::string_view text) { bytes += text; }));
    WriteBytes(options.output, bytes);
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) - 1;  // and the headings
    PrintOutcome(options.output, options.output + ": " + Count(lines, "line") + "\n");
    return ExitCode::Done;
}

// "5 materials added, 1 changed, 37 unchanged".
std::string CountsText(const MaterialImportCounts& counts, bool isDryRun) {
    return Count(static_cast<std::size_t>(counts.added), "material") + (isDryRun ? " would be" : "") +
           " added, " + std::to_string(counts.changed) + " changed, " + std::to_string(counts.unchanged) +
           " unchanged";
}

ExitCode Import(IMaterialDatabase& database, const MaterialsOptions& options) {
    const MaterialImportEvents events{
        [&](std::uint64_t line, const std::string& flaw) {
            PrintError(options.file + ":" + std::to_string(line) + ": " + Escaped(flaw) + "\n");
        },
        [](std::uint64_t done, std::uint64_t total) {
            constexpr std::uint64_t kKilobyte = 1024;
            PrintProgress(done / kKilobyte, total / kKilobyte, "kilobyte");
        }};
    MaterialImportCounts counts;
    ThrowIfProblem(database.ImportCsv(FromUtf8(options.file), options.isDryRun, events, counts));
    if (counts.badLines > 0) {
        PrintError("mfxhost: " + options.file + " has " +
                   Count(static_cast<std::size_t>(counts.badLines), "bad line") + "; nothing was written\n");
        return ExitCode::Findings;
    }
    Print(options.file + ": " + CountsText(counts, options.isDryRun) + "\n");
    return ExitCode::Done;
}

using Options = std::shared_ptr<MaterialsOptions>;

void AddListAndFind(CLI::App& command, const Options& options) {
    command.add_subcommand("list", "Print all materials")->callback([options] {
        options->run = [](IMaterialDatabase& database) { return PrintMaterials(database, L""); };
    });
    CLI::App* const find = command.add_subcommand(
        "find", "Print the materials with a text in their name, or in that of their group or process");
    find->callback([options] {
        options->run = [options](IMaterialDatabase& database) {
            return PrintMaterials(database, FromUtf8(options->searched));
        };
    });
    find->add_option("TEXT", options->searched, "Text to look for, in any letter case")
        ->type_name("")
        ->required();
}

void AddExport(CLI::App& command, const Options& options) {
    CLI::App& added =
        *command.add_subcommand("export", "Print all materials as comma-separated values (RFC 4180, UTF-8)");
    added.callback([options] {
        options->run = [options](IMaterialDatabase& database) { return Export(database, *options); };
    });
    AddFile(added, "-o,--output", options->output, "File to write instead; replaces an existing one")
        ->type_name("FILE");
    added
        .add_option("--length", options->wallUnit,
                    "Unit of the wall thicknesses: " + UnitSymbols(kLengthUnits))
        ->type_name("UNIT");
    added
        .add_option("--density", options->densityUnit, "Unit of the densities: " + UnitSymbols(kDensityUnits))
        ->type_name("UNIT");
    added.add_flag("--mark", options->hasByteOrderMark,
                   "Begin with a byte-order mark, by which spreadsheet programs know UTF-8");
}

void AddImport(CLI::App& command, const Options& options) {
    CLI::App& added = *command.add_subcommand(
        "import", "Add the materials of a file as export writes it, and change those that are there already");
    added.callback([options] {
        options->run = [options](IMaterialDatabase& database) { return Import(database, *options); };
    });
    AddFile(added, "FILE", options->file, "File of comma-separated values")->required();
    added.add_flag("--dry-run", options->isDryRun, "Report what would be done, and write nothing");
}

}  // namespace

void AddMaterials(CommandLine& commandLine) {
    const auto options = std::make_shared<MaterialsOptions>();
    CLI::App& command = commandLine.Add(
        "materials", "List, search, export and import the materials of the material database",
        {"mfxhost materials find iron", "mfxhost materials export -o materials.csv",
         "mfxhost materials import materials.csv --dry-run"},
        [&commandLine, options](const RuleModule&) { return options->run(commandLine.GetDatabase()); },
        CommandLine::Database::Needed);
    command.require_subcommand(1);
    AddListAndFind(command, options);
    AddExport(command, options);
    AddImport(command, options);
}

// Reads columns of .xlsx workbooks. The reference is the least that this takes: it inflates the same parts
// and passes over their bytes once.

#include "CrashReport.h"
#include "RatioReport.h"
#include "XlsxColumns.h"
#include "sheetreader/WorkbookMaker.h"
#include "support/TempFolder.h"

#include <afxwin.h>
#include <benchmark/benchmark.h>
#include <zip.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <process.h>
#include <random>

namespace {

CWinApp theApp(L"sheet_bench");

struct Book {
    std::wstring path;
    std::size_t nRows, nColumns;
};

std::size_t CountSharedStrings(const Book& book) {
    return book.nRows / 5;
}

// Columns of texts and of measured numbers take turns.
std::string MakeRows(const Book& book, bool bInline) {
    std::mt19937 random(1);
    std::string rows;
    for (std::size_t nRow = 1; nRow <= book.nRows; ++nRow) {
        rows += "<row r=\"" + std::to_string(nRow) + "\">";
        for (std::size_t i = 0; i < book.nColumns; ++i) {
            const std::string at = static_cast<char>('A' + i) + std::to_string(nRow);
            if (i % 2)
                rows += "<c r=\"" + at + "\" s=\"1\"><v>" + std::to_string(random() % 1000) + "." +
                        std::to_string(random()) + "</v></c>";
            else if (bInline)
                rows += "<c r=\"" + at + "\" t=\"inlineStr\"><is><t>band " + at + "</t></is></c>";
            else
                rows += "<c r=\"" + at + "\" t=\"s\"><v>" +
                        std::to_string(random() % CountSharedStrings(book)) + "</v></c>";
        }
        rows += "</row>";
    }
    return rows;
}

// Runs in a process of its own: the peak memory of this one is then that of reading.
int MakeBook(const Book& book, bool bInline) {
    Parts parts = MakeParts(MakeRows(book, bInline));
    std::string& strings = parts["xl/sharedStrings.xml"] = "<sst>";
    for (std::size_t i = 0; i < CountSharedStrings(book); ++i)
        strings += "<si><t>band " + std::to_string(i) + "</t></si>";
    strings += "</sst>";
    std::ofstream file(std::filesystem::path(book.path), std::ios::binary);
    return file << MakeZip(parts) << std::flush ? EXIT_SUCCESS : EXIT_FAILURE;
}

void Inflate(benchmark::State& state, const Book& book) {
    std::vector<char> buffer(1 << 16);
    for (auto _ : state) {
        zip_source_t* const pSource = zip_source_win32w_create(book.path.c_str(), 0, 0, nullptr);
        zip_t* const pZip = zip_open_from_source(pSource, ZIP_RDONLY, nullptr);
        std::ptrdiff_t nTags = 0;
        for (zip_int64_t i = 0; i < zip_get_num_entries(pZip, 0); ++i) {
            zip_file_t* const pFile = zip_fopen_index(pZip, static_cast<zip_uint64_t>(i), 0);
            for (zip_int64_t n; (n = zip_fread(pFile, buffer.data(), buffer.size())) > 0;)
                nTags += std::count(buffer.begin(), buffer.begin() + n, '<');
            zip_fclose(pFile);
        }
        zip_discard(pZip);
        benchmark::DoNotOptimize(nTags);
    }
}

// Reads the columns from A on, and makes the table that the export gives when asked to.
void Read(benchmark::State& state, const Book& book, std::size_t nColumns, bool bTable) {
    std::vector<std::wstring> letters;
    for (std::size_t i = 0; i < nColumns; ++i) letters.emplace_back(1, static_cast<wchar_t>(L'A' + i));
    for (auto _ : state) {
        XlsxColumns sheet(zip_source_win32w_create(book.path.c_str(), 0, 0, nullptr), letters);
        std::vector<std::vector<CString>> table;
        for (std::size_t i = 0; bTable && i < letters.size(); ++i)
            table.push_back(sheet.TakeTexts<CString, int>(i));
        if (bTable && table.back().size() != book.nRows) state.SkipWithError("a wrong number of rows");
    }
    state.counters["cells"] =
        benchmark::Counter(static_cast<double>(book.nRows * nColumns),
                           benchmark::Counter::kIsIterationInvariantRate, benchmark::Counter::kIs1000);
}

template <class... Arguments>
void Register(const std::string& name, Arguments&&... arguments) {
    benchmark::RegisterBenchmark(name.c_str(), arguments...)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(9);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    if (argc == 6 && argv[1] == std::wstring_view(L"--make"))
        return MakeBook({argv[2], std::stoul(argv[3]), std::stoul(argv[4])},
                        argv[5] == std::wstring_view(L"inline"));
    const TempFolder folder;
    const std::pair<std::string, Book> kBooks[] = {
        {"200 x 5, shared", {folder.Path(L"small"), 200, 5}},
        {"100000 x 10, shared", {folder.Path(L"shared"), 100000, 10}},
        {"100000 x 10, inline", {folder.Path(L"inline"), 100000, 10}},
    };
    for (const auto& [name, book] : kBooks) {
        const std::wstring path = L'"' + book.path + L'"', rows = std::to_wstring(book.nRows),
                           columns = std::to_wstring(book.nColumns);
        if (_wspawnl(_P_WAIT, _wpgmptr, L"sheet_bench", L"--make", path.c_str(), rows.c_str(),
                     columns.c_str(), name.ends_with("inline") ? L"inline" : L"shared", nullptr) != 0)
            return EXIT_FAILURE;
        Register(name + "/reference", Inflate, book);
        Register(name + "/subject, columns", Read, book, book.nColumns, false);
        Register(name + "/subject, table", Read, book, book.nColumns, true);
        Register(name + "/subject, table of 3", Read, book, std::size_t{3}, true);
    }
    return RunWithRatios(argc, argv);
}

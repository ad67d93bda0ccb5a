// Reads mutated .xlsx workbooks:
//     mfx_workbook_mutation [ROUNDS [SEED]]
// Every workbook is read or refused. Half of the rounds change a part of a good one, half the bytes of its
// archive.

#include "DocumentMutator.h"
#include "MutationRun.h"
#include "sheetreader/CheckedRead.h"

namespace {

std::string MutatePart(Parts parts, unsigned nSeed) {
    std::vector<std::string> names;
    for (const auto& [name, text] : parts) names.push_back(name);
    const std::string& name = DocumentMutator(names, nSeed).OneOf(names);
    const std::vector<std::string> original{parts.at(name)};
    DocumentMutator mutator(original, nSeed);
    parts[name] = mutator.MakeDocument();
    if (mutator.Below(20) == 0) parts.erase(mutator.OneOf(names));
    return MakeZip(parts);
}

std::string MutateBytes(std::string bytes, unsigned nSeed) {
    const std::vector<std::string> none;
    DocumentMutator mutator(none, nSeed);
    for (std::size_t n = 1 + mutator.Below(8); n > 0; --n)
        bytes[mutator.Below(bytes.size())] ^= static_cast<char>(1 << mutator.Below(8));
    if (mutator.Below(8) == 0) bytes.resize(mutator.Below(bytes.size()));
    return bytes;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const Parts parts = MakeParts(kManyCells);
    const std::string archive = MakeZip(parts);
    return RunMutationTest(argc, argv, [&](unsigned nSeed) {
        if (!CheckedRead(archive)) FailRound("the workbook is refused as it is");
        CheckedRead(nSeed % 2 ? MutatePart(parts, nSeed) : MutateBytes(archive, nSeed));
    });
}

// Writes the inputs that a fuzzing run starts from, those of a good workbook: mfx_seed_corpus FOLDER
#include "sheetreader/CheckedRead.h"

#include <fstream>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const Parts parts = MakeParts(kManyCells);
    auto write = [&, nPart = 0](const std::string& bytes) mutable {
        std::ofstream file(argv[1] + ("/seed" + std::to_string(nPart)), std::ios::binary);
        file << static_cast<char>(nPart++) << bytes;
        return file.good();
    };
    for (const auto& [name, text] : parts)
        if (!write(text)) return 1;
    return write(MakeZip(parts)) ? 0 : 1;
}

#include "MaterialTables.h"

#include "MfxTypes.h"

namespace {

// The order is the one in which the dialog offers them; it is not strictly alphabetical.
constexpr MaterialThickness kPlastics[] = {
    {L"ABS", L"0.03", L"0.168"},
    {L"Acetal", L"0.015", L"0.125"},
    {L"Acrylic", L"0.025", L"0.25"},
    {L"Alkyd, glass-filled", L"0.04", L"0.5"},
    {L"Alkyd, mineral-filled", L"0.04", L"0.375"},
    {L"Cellulosics", L"0.025", L"0.187"},
    {L"Diallyl Phthalate", L"0.04", L"0.375"},
    {L"Ethylene Vinyl Acetate", L"0.02", L"0.125"},
    {L"Epoxy/glass", L"0.03", L"1.0"},
    {L"FEP Fluoroplastic", L"0.01", L"0.5"},
    {L"Ionomer", L"0.025", L"0.75"},
    {L"Liquid Crystal Polymer", L"0.008", L"0.12"},
    {L"Long-fiber Reinforced Plastics", L"0.075", L"1.0"},
    {L"Melamine, cellulose-filled", L"0.035", L"0.187"},
    {L"Modified Polyphenylene Ether", L"0.045", L"0.14"},
    {L"Modified Polyphenylene Oxide", L"0.03", L"0.375"},
    {L"Nylon", L"0.01", L"0.125"},
    {L"PE High Density", L"0.035", L"0.25"},
    {L"PE Low/Medium Density", L"0.02", L"0.25"},
    {L"Phenolic, general purpose", L"0.05", L"1.0"},
    {L"Phenolic, flock-filled", L"0.05", L"1.0"},
    {L"Phenolic, glass-filled", L"0.03", L"0.75"},
    {L"Phenolic, fabric-filled", L"0.062", L"0.375"},
    {L"Phenolic, mineral-filled", L"0.125", L"1.0"},
    {L"Polyacrylate", L"0.045", L"0.15"},
    {L"Polycarbonate", L"0.04", L"0.375"},
    {L"Polyester", L"0.025", L"0.125"},
    {L"Polyester Elastomer", L"0.025", L"0.125"},
    {L"Polyester Premix", L"0.04", L"1.0"},
    {L"Polyphenylene Sulfide", L"0.02", L"0.18"},
    {L"Polypropylene", L"0.025", L"0.3"},
    {L"Polystyrene", L"0.03", L"0.25"},
    {L"Polysulfone", L"0.05", L"0.15"},
    {L"Polyurethane", L"0.025", L"1.5"},
    {L"Polyvinyl Chloride (rigid)", L"0.04", L"0.375"},
    {L"Silicone Glass", L"0.05", L"0.25"},
    {L"Styrene-acrylonitrile", L"0.03", L"0.25"},
    {L"Urea, cellulose-filled", L"0.035", L"0.187"},
};

// 3.18, 4.76 and 6.35 millimetres in inches, with all their digits.
constexpr MaterialThickness kMetals[] = {
    {L"Aluminium", L"0.1251968503937008", L"0.1874015748031496"},
    {L"Steel", L"0.1874015748031496", L"0.25"},
    {L"Magnesium", L"0.1874015748031496", L"0.25"},
    {L"Gray Cast Iron", L"0.1251968503937008", L"0.1874015748031496"},
    {L"Malleable Cast Iron", L"0.1251968503937008", L"0.1874015748031496"},
};

constexpr const wchar_t* kMetalGroups[] = {
    L"Steel",
    L"Iron",
    L"Aluminium Alloys",
    L"Other Metals",
    L"Copper and its Alloys",
    L"Zinc and its Alloys",
    L"Magnesium and its Alloys",
};

}  // namespace

std::span<const MaterialThickness> GetDefaultMaterials(int nCategory) {
    if (nCategory == CategoryInjectionMoulding) return kPlastics;
    if (nCategory == CategorySandCasting) return kMetals;
    return {};
}

std::span<const wchar_t* const> GetMaterialGroups(int nCategory) {
    if (nCategory == CategorySandCasting) return kMetalGroups;
    return {};
}

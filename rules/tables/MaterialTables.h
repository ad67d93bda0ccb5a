// Default materials that dialogs offer, by rule category.
#pragma once

#include <span>

// The process whose material groups the rules use, as the material database names it.
inline constexpr wchar_t kSandCastingProcess[] = L"Sand Casting";

// A material and its usual wall thicknesses. The numbers are texts, in inches, as they are shown; ParseDouble
// reads them.
struct MaterialThickness {
    const wchar_t* pszMaterial;
    const wchar_t* pszMinimumInch;
    const wchar_t* pszMaximumInch;
};

// Materials of a category (MFXRuleCategory_e): plastics for injection moulding, metals for sand casting, none
// for others.
std::span<const MaterialThickness> GetDefaultMaterials(int nCategory);

// Groups of materials of a category: seven for sand casting, none for others.
std::span<const wchar_t* const> GetMaterialGroups(int nCategory);

// Default materials that dialogs offer, by rule category.
#pragma once

#include <span>

// A material and the wall thicknesses it is usually cast or moulded in. The numbers are texts in inches, for
// ParseDouble, with the digits in which they are shown.
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

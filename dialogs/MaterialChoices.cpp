#include "MaterialChoices.h"

#include "MFXDataHelper.h"
#include "MFXUnitConvertor.h"
#include "MaterialEdits.h"
#include "MaterialTables.h"
#include "NumberText.h"

#include <algorithm>

namespace {

CString Converted(double value, int nFromUnit, int nToUnit) {
    return FormatDouble(
        CMFXUnitConvertor().ConversionFromOneUnitToAnother(value, QuantityLength, nFromUnit, nToUnit));
}

CString Converted(const std::optional<double>& value, int nFromUnit, int nToUnit) {
    return value ? Converted(*value, nFromUnit, nToUnit) : CString();
}

MaterialLimitTexts& FindOrAdd(std::vector<MaterialLimitTexts>& choices, const CString& strMaterial) {
    const auto found = std::ranges::find_if(choices, [&](const MaterialLimitTexts& choice) {
        return IsSameName(choice.strMaterial, strMaterial);
    });
    return found != choices.end() ? *found : choices.emplace_back(MaterialLimitTexts{strMaterial, L"", L""});
}

void AddOfDatabase(std::vector<MaterialLimitTexts>& choices, const CString& strGroup, int nLengthUnit) {
    const IDatabaseCollector* const pDatabase = mfx_db::MFXDataHelper::getInstance();
    std::vector<MfxMaterial> materials;
    if (pDatabase->GetMaterials({kSandCastingProcess, strGroup}, materials).problem != DatabaseNoProblem)
        return;
    for (const MfxMaterial& material : materials) {
        MaterialLimitTexts& choice = FindOrAdd(choices, material.strName);
        if (!material.minimumWall && !material.maximumWall) continue;
        choice.strMinimum = Converted(material.minimumWall, material.wallUnit, nLengthUnit);
        choice.strMaximum = Converted(material.maximumWall, material.wallUnit, nLengthUnit);
    }
}

}  // namespace

std::vector<MaterialLimitTexts> ListMaterialChoices(int nCategory, const CString& strGroup, int nLengthUnit) {
    std::vector<MaterialLimitTexts> choices;
    for (const MaterialThickness& material : GetDefaultMaterials(nCategory))
        choices.push_back({material.pszMaterial,
                           Converted(ParseDouble(material.pszMinimumInch), LengthInch, nLengthUnit),
                           Converted(ParseDouble(material.pszMaximumInch), LengthInch, nLengthUnit)});
    if (!strGroup.IsEmpty()) AddOfDatabase(choices, strGroup, nLengthUnit);
    return choices;
}

void AddMissingChoices(std::vector<MaterialLimitTexts>& choices,
                       const std::vector<MaterialLimitTexts>& table) {
    for (const MaterialLimitTexts& row : table)
        if (!row.strMaterial.IsEmpty() &&
            std::ranges::find(choices, row.strMaterial, &MaterialLimitTexts::strMaterial) == choices.end())
            choices.push_back(row);
}

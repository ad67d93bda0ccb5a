#include "MaterialChoices.h"

#include "MFXDataHelper.h"
#include "MFXUnitConvertor.h"
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

void AddOfDatabase(std::vector<MaterialLimitTexts>& choices, const CString& strGroup, int nLengthUnit) {
    const IDatabaseCollector* const pDatabase = mfx_db::MFXDataHelper::getInstance();
    std::vector<MfxMaterial> materials;
    if (pDatabase->GetMaterials({kSandCastingProcess, strGroup}, materials).problem != DatabaseNoProblem)
        return;
    for (const MfxMaterial& material : materials)
        if (std::ranges::find(choices, material.strName, &MaterialLimitTexts::strMaterial) == choices.end())
            choices.push_back({material.strName,
                               Converted(material.minimumWall, material.wallUnit, nLengthUnit),
                               Converted(material.maximumWall, material.wallUnit, nLengthUnit)});
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

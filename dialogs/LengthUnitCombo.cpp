#include "LengthUnitCombo.h"

#include "MFXUnitConvertor.h"
#include "SandCastingRulesApp.h"
#include "UnitLabels.h"
#include "resource.h"

#include <iterator>

namespace {

// By unit code, from LengthMillimetre on.
constexpr UINT kLabels[] = {IDS_UNIT_MILLIMETRE, IDS_UNIT_CENTIMETRE, IDS_UNIT_INCH, IDS_UNIT_METRE,
                            IDS_UNIT_FOOT};
static_assert(std::size(kLabels) == LengthFoot - LengthMillimetre + 1);

bool IsOffered(int nLengthUnit) {
    return nLengthUnit >= LengthMillimetre && nLengthUnit <= LengthFoot;
}

}  // namespace

void FillLengthUnits(CComboBox& combo) {
    combo.ResetContent();
    for (const UINT nLabel : kLabels) combo.AddString(LoadLocalizedString(nLabel));
}

CString GetLengthUnitCaption(int nLengthUnit) {
    CString strLabel = GetLengthUnitLabel(nLengthUnit);
    if (!strLabel.IsEmpty() || !IsOffered(nLengthUnit)) return strLabel;
    return LoadLocalizedString(kLabels[nLengthUnit - LengthMillimetre]);
}

void SelectLengthUnit(CComboBox& combo, int nLengthUnit) {
    combo.SetCurSel(IsOffered(nLengthUnit) ? nLengthUnit - LengthMillimetre : -1);
}

void StoreLengthUnit(CComboBox& combo, int& nLengthUnit) {
    const int nSelected = combo.GetCurSel();
    if (nSelected < 0)
        SelectLengthUnit(combo, nLengthUnit);
    else
        nLengthUnit = nSelected + LengthMillimetre;
}

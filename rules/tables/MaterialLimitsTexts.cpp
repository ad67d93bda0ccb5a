#include "MaterialLimitsTexts.h"

#include "ModuleText.h"
#include "XmlNumber.h"
#include "resource.h"

namespace {

UINT TextOf(MaterialLimitsFlaw flaw) {
    switch (flaw) {
        case MaterialLimitsFlaw::NoMaterial:
            return IDS_UNIFORM_ROW_NO_MATERIAL;
        case MaterialLimitsFlaw::NoPositiveNumber:
            return IDS_UNIFORM_ROW_NO_NUMBER;
        case MaterialLimitsFlaw::MinimumAboveMaximum:
            return IDS_UNIFORM_ROW_ORDER;
        default:
            return IDS_UNIFORM_ROW_TWICE;
    }
}

}  // namespace

CString MaterialFlawText(const MaterialLimitsResult& result) {
    return FormattedText(TextOf(result.flaw), FormatInteger(result.nRow));
}

#include "NumberText.h"

#include "XmlNumber.h"

#include <cmath>

bool IsNoUpperLimit(double value) {
    return std::fabs(value - NoUpperLimitValue) <= kTolerance;
}

CString FormatDouble(double value) {
    CString strText = FormatTrimmed(value);
    if (std::isfinite(value) && strText.Find(L'.') < 0) strText += L".0";
    return strText;
}

double ParseDouble(const CString& strText) {
    double value = 0.0;
    ParseReal(strText.SpanIncluding(kNumberCharacters), value);
    return value;
}

BOOL IsNumericText(const CString& strText) {
    return strText.SpanIncluding(kNumberCharacters).GetLength() == strText.GetLength();
}

// Text forms of single parameter values. Each reads back as exactly the value it was made from.
//
//   boolean           1 or 0
//   integers          decimal
//   double            shortest exact form: 0.1, 1e-300
//   text              as it stands
//   pair of doubles   first;second
//   list of texts     every text followed by ";", with "\" before a ";" or "\" of its own: a;b\;c;
//   table row         in a table parameter one attribute per cell; as one text, like a list of texts
#pragma once

#include "MfxKitExport.h"
#include "MfxTypes.h"

#include <cstdint>

MFXKIT_API CString ToText(bool value);
MFXKIT_API CString ToText(std::int32_t value);
MFXKIT_API CString ToText(std::int64_t value);
MFXKIT_API CString ToText(double value);
MFXKIT_API CString ToText(const CString& value);
MFXKIT_API CString ToText(const MfxDoublePair& value);
MFXKIT_API CString ToText(const MfxTextList& value);
MFXKIT_API CString ToText(const MfxTableRow& value);

// Text that is no value of the type gives the type's empty value (false, 0, no texts).
MFXKIT_API void FromText(const CString& strText, bool& value);
MFXKIT_API void FromText(const CString& strText, std::int32_t& value);
MFXKIT_API void FromText(const CString& strText, std::int64_t& value);
MFXKIT_API void FromText(const CString& strText, double& value);
MFXKIT_API void FromText(const CString& strText, CString& value);
MFXKIT_API void FromText(const CString& strText, MfxDoublePair& value);
MFXKIT_API void FromText(const CString& strText, MfxTextList& value);
MFXKIT_API void FromText(const CString& strText, MfxTableRow& value);

// A value as a table row: a row is itself, anything else a row of one cell that holds its text.
template <class T>
MfxTableRow ToRow(const T& value) {
    return MfxTableRow{{ToText(value)}};
}
inline const MfxTableRow& ToRow(const MfxTableRow& row) {
    return row;
}

// The reverse of ToRow. Several cells become one text in the form of a table row, so none is lost.
template <class T>
void FromRow(const MfxTableRow& row, T& value) {
    FromText(row.cells.size() == 1 ? row.cells[0] : ToText(row), value);
}
inline void FromRow(const MfxTableRow& row, MfxTableRow& value) {
    value = row;
}

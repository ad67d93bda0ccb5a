#pragma once

#include "Reporter.h"

// The rows of the draft angle table as the record has them, beside the rows that were read.
void CheckDraftRows(const Reporter& reporter, const MfxXMLNode& parameter, const MfxArray<MfxTableRow>& rows);

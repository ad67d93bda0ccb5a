// Why a sheet has no draft angles to import, in the user's language.
#pragma once

#include "DraftSheet.h"

// A fault that a sheet has.
CString DraftSheetFaultText(const DraftSheet& sheet);

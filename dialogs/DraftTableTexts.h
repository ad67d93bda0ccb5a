// What a table of size bands with draft angles lacks, in the user's language.
#pragma once

#include "DraftSheet.h"

CString DraftFlawText(const DraftTableResult& result);

// A fault that a sheet has.
CString DraftSheetFaultText(const DraftSheet& sheet);

// What a table of size bands with draft angles lacks, in the user's language.
#pragma once

#include "DraftTableCheck.h"

CString DraftFlawText(const DraftTableResult& result);

#pragma once

#include "afxwin.h"
#include "cfiledialog.h"

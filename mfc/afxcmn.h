#pragma once

#include "afxwin.h"
#include "cheaderctrl.h"
#include "clistctrl.h"
#include "ctooltipctrl.h"
#include "ctreectrl.h"

// The module's application object. It has its own source file so that tests can use the exports with another.

#include "SandCastingRulesApp.h"

static CMFXSandCastingRulesApp theApp;

// The module's one application object, in a source of its own: tests of the exports have one of theirs.

#include "SandCastingRulesApp.h"

static CMFXSandCastingRulesApp theApp;

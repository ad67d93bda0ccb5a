// The dialogs of the rules. Each runs until the user closes it, edits the rule on OK, and belongs to the
// host's window. dialogs/ defines them.
#pragma once

class CMFXSCWTVariationRule;

void RunVariationDialog(CMFXSCWTVariationRule& rule);

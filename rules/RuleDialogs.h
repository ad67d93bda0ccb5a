// Each opens a rule's dialog and returns when it is closed. OK changes the rule. The host's window owns the
// dialog. dialogs/ defines these functions; exceptions may leave them.
#pragma once

class CMFXSCVariableDraftAngleRule;
class CMFXSCWTVariationRule;
class CMFXWTBasedOnCastSizeAndWeightRule;
class CMFXUniformThicknessRule;

void RunDraftAngleDialog(CMFXSCVariableDraftAngleRule& rule);
void RunUniformThicknessDialog(CMFXUniformThicknessRule& rule);
void RunVariationDialog(CMFXSCWTVariationRule& rule);
void RunSizeAndWeightDialog(CMFXWTBasedOnCastSizeAndWeightRule& rule);

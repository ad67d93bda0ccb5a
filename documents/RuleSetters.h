// Changes of a rule's values in memory, without checks of what they mean.
#pragma once

#include "CastSizeAndWeightBand.h"
#include "RuleValues.h"

#include <optional>

// A whole constraint, or a whole row of bands. Their keys are "Steel", "29183/2" and "Steel/band/2".
struct WholePlace {
    std::string name = {};  // of the constraint
    int constraint = -1;    // -1 for one that is not there, and for rows of the rule itself
    long paramId = 0;       // of the table
    int row = 0;            // from 1; 0 for a constraint
};

// A material of the uniform thickness rule, in the rule's length unit.
struct MaterialRow {
    CString name;
    bool isActive;
    double minimum, maximum;
};

// A material group with its bands, in the rule's units.
struct GroupRows {
    CString name;
    bool isActive;
    std::vector<CastSizeAndWeightBand> bands = {};
};

// Nothing when the key is not that of a whole place. Of rows it is one when the row is there, or would be the
// one after the last.
std::optional<WholePlace> FindWholePlace(const CMfxRule& rule, const std::string& key);

// Whether the rule's values may differ by material or by group.
bool HasConstraints(const CMfxRule& rule);

// Inserts an empty row, or removes the row or the constraint.
void ChangeWhole(CMfxRule& rule, const WholePlace& place, bool isPresent);

// Appends a row of bands when the key is of a value in the row after the last one.
bool AppendRowFor(CMfxRule& rule, const std::string& key);

// Sets the value of a place that ListRuleValues lists. A new mass unit converts the weights.
void SetContent(CMfxRule& rule, const RuleValue& place, const ValueContent& content);

// Deletes the constraints that are not named, and puts the others in that order.
void SelectConstraints(CMfxRule& rule, const std::vector<CString>& names);

// Give a constraint what the rows say.
void FillMaterial(CMFXConstraint& material, const MaterialRow& row);
void FillGroup(CMFXConstraint& group, const GroupRows& rows);

// Makes the first constraint that is active, or is not, the first of all, since it decides which limits are
// in force. False when there is none.
bool PutFirst(CMfxRule& rule, bool isActive);

// Empty rows of draft angles go. A last band without an upper bound has no upper limit.
void CloseLastBand(CMfxRule& rule);

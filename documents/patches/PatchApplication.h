#pragma once

#include "Patch.h"
#include "RuleDocument.h"

#include <string>
#include <vector>

// Who is right where the patch expects something else than the document says.
enum class ConflictChoice { None, Patch, Document };

// A value of the document, or a whole row, constraint or rule, that is neither what the patch expects nor
// what it sets, as texts: "4.76 mm", "present", "(none)".
struct Conflict {
    std::string key;  // in the document, or in the patch where the document has none
    std::string expected, found, wanted;
};

// Makes the changes of a patch in a document, in memory. With conflicts and without a choice nothing is
// changed. Throws EditError for a patch of another document, for values that do not fit their places, and for
// what the rules' dialogs would refuse; the document is of no use then.
std::vector<Conflict> ApplyPatch(RuleDocument& document, const Patch& patch, ConflictChoice choice);

// Merges the changes from the base to theirs into mine. Their side is taken by merging the other way round,
// so the result is then in the units of theirs.
struct MergeResult {
    std::vector<Conflict> conflicts;  // expected in the base, found in mine, wanted by theirs
    RuleDocument* merged;             // mine or theirs; as it was when there are conflicts without a choice
};
enum class MergeChoice { None, Mine, Theirs };
MergeResult MergeDocuments(const RuleDocument& base, RuleDocument& mine, RuleDocument& theirs,
                           MergeChoice choice);

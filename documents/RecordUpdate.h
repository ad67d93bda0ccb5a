#pragma once

#include "MfxXMLNode.h"

// Whose is the status of constraints: rules that read every constraint as active do not know it.
enum class ConstraintStatus { OfRecord, OfRule };

// Makes an old "Rule" element say what a newly written one says, and keeps whatever in it is not the rule's
// own: attributes, elements and comments that the rule does not write, and attributes that were missing and
// that the rule therefore read as -1. Constraints are recognised by their names. The new element loses its
// contents.
void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated, ConstraintStatus status);

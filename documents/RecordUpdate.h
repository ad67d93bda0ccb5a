#pragma once

#include "MfxXMLNode.h"

// Makes an old "Rule" element say what a newly written one says, and keeps whatever in it is not the rule's
// own: attributes, elements and comments that the rule does not write, the status of constraints, and
// attributes that were missing and that the rule therefore read as -1. The new element loses its contents.
void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated);

#pragma once

#include "MfxXMLNode.h"

// Makes an old "Rule" element say what a newly written one says, and keeps whatever in it is not the rule's
// own: attributes, elements and comments that the rule does not write. pNew loses its contents.
void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated);

#pragma once

// Where in a rule's record a value stands.
struct RecordLocation {
    int constraint = -1;  // from 0; -1 in the rule itself
    long paramId = 0;
    int row = 0;  // from 1, of the parameter's values
};

#include "afx.h"

// Not in the header, so that the type's tables exist once, in this library.
CObject::~CObject() = default;

#include "ccmdtarget.h"

CCmdTarget::CCmdTarget() = default;

CCmdTarget::~CCmdTarget() = default;

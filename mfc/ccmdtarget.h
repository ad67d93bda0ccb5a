#pragma once

#include "afx.h"

// Base of the classes that receive commands and messages.
class MFX_MFC_API CCmdTarget : public CObject {
  public:
    CCmdTarget();
    ~CCmdTarget() override;
};

#pragma once

#include "MfxKitExport.h"

#include <afxwin.h>

// Shows the picture of a rule in its dialog: as large as the control allows, in the middle, its proportions
// kept.
class MFXKIT_API PictureControl : public CStatic {
  public:
    // Shows the bitmap, which the control owns from now on; null for none.
    void SetBitmap(HBITMAP hBitmap);

  protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnPaint();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

  private:
    bool ScaleTo(CDC& dc, CSize size);

    CBitmap m_bitmap;
    CBitmap m_scaled;  // as it was painted last
    CSize m_scaledSize{0, 0};
};

// With the real MFC, nobody holds back C++ exceptions but the windows' own classes.

#include "MFXRuleDlgBase.h"
#include "MFXWTBasedOnSizeAndWeightListCtrl.h"
#include "NoThrow.h"
#include "PictureControl.h"
#include "support/MessageBoxRecorder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

// Without a window: its functions are called directly.
template <class Window>
class FailingWindow : public Window {
  public:
    using Window::Window;
    using Window::WindowProc;

  protected:
    BOOL OnWndMsg(UINT, WPARAM, LPARAM, LRESULT*) override { throw std::runtime_error("message"); }
};

template <class Window>
void ExpectHeldBack(FailingWindow<Window>&& window) {
    MessageBoxRecorder boxes;
    EXPECT_EQ(window.WindowProc(WM_CREATE, 0, 0), -1) << "no window then";
    EXPECT_EQ(window.WindowProc(WM_PAINT, 0, 0), 0) << "no box: Windows would ask again at once";
    boxes.Expect(L"message", MB_ICONSTOP);
    EXPECT_EQ(window.WindowProc(WM_TIMER, 0, 0), 0);
}

struct FailingGrid : CMFXListCtrl {
    BOOL HandleKey(WPARAM) override { throw std::runtime_error("key"); }
};

class DeletedException : public CException {
  public:
    explicit DeletedException(bool& bDeleted) : CException(TRUE), m_bDeleted(bDeleted) {}
    ~DeletedException() override { m_bDeleted = true; }

  private:
    bool& m_bDeleted;
};

}  // namespace

TEST(FailingHandlersTest, TellTheUserAndHoldBackTheException) {
    ExpectHeldBack(FailingWindow<CMFXRuleDlgBase>(1, 1, L"", nullptr));
    ExpectHeldBack(FailingWindow<CMFXWTBasedOnSizeAndWeightListCtrl>());
    ExpectHeldBack(FailingWindow<PictureControl>());
    MessageBoxRecorder boxes;
    boxes.Expect(L"key", MB_ICONSTOP);
    MSG msg{nullptr, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_TRUE(FailingGrid().HandleKeyDown(&msg)) << "or Enter would close the dialog";
}

TEST(FailingHandlersTest, ExceptionsOfMfcAreDeleted) {
    bool bDeleted = false;
    NoThrow([&] { throw static_cast<CException*>(new DeletedException(bDeleted)); });
    EXPECT_TRUE(bDeleted);
}

#pragma once

#include <type_traits>

#include "afx.h"
#include "atltypes.h"

class CDC;
class CScrollBar;
class CWnd;

// How the handlers of message maps are called.
namespace mfx {

// Where handlers' arguments come from.
template <class T>
T WParam(const MSG& msg) {
    return (T)msg.wParam;  // T is a number or a pointer
}
template <class T>
T LParam(const MSG& msg) {
    return (T)msg.lParam;
}
template <class T>
T LowWParam(const MSG& msg) {
    return static_cast<T>(LOWORD(msg.wParam));
}
template <class T>
T HighWParam(const MSG& msg) {
    return static_cast<T>(HIWORD(msg.wParam));
}
template <class T>
T LowLParam(const MSG& msg) {
    return static_cast<T>(LOWORD(msg.lParam));
}
template <class T>
T HighLParam(const MSG& msg) {
    return static_cast<T>(HIWORD(msg.lParam));
}
inline CPoint Point(const MSG& msg) {
    return msg.lParam;
}
MFX_MFC_API CWnd* WParamWnd(const MSG& msg);
MFX_MFC_API CWnd* LParamWnd(const MSG& msg);
MFX_MFC_API CScrollBar* LParamScrollBar(const MSG& msg);
MFX_MFC_API CDC* WParamDC(const MSG& msg);
MFX_MFC_API UINT ControlKind(const MSG& msg);  // CTLCOLOR_EDIT and the like

// Calls a handler with arguments taken from the message. A handler with another signature does not compile.
template <class Result, auto... Arguments>
class Handler {
  public:
    template <auto Member>
    static LRESULT Call(CWnd& wnd, const MSG& msg) {
        return Invoke(wnd, Member, msg);
    }

  private:
    template <class Class>
    static LRESULT Invoke(CWnd& wnd, Result (Class::*member)(decltype(Arguments(MSG()))...),
                          [[maybe_unused]] const MSG& msg) {
        Class& target = static_cast<Class&>(wnd);
        if constexpr (std::is_void_v<Result>)
            return (target.*member)(Arguments(msg)...), 0;
        else
            return (LRESULT)(target.*member)(Arguments(msg)...);
    }
};

// The same for WM_NOTIFY, whose handlers write the answer through a pointer.
class NotifyHandler {
  public:
    template <auto Member>
    static LRESULT Call(CWnd& wnd, const MSG& msg) {
        return Invoke(wnd, Member, msg);
    }

  private:
    template <class Class>
    static LRESULT Invoke(CWnd& wnd, void (Class::*member)(NMHDR*, LRESULT*), const MSG& msg) {
        LRESULT result = 0;
        (static_cast<Class&>(wnd).*member)(LParam<NMHDR*>(msg), &result);
        return result;
    }
};

using PlainHandler = Handler<void>;
using FocusHandler = Handler<void, WParamWnd>;
using KeyHandler = Handler<void, WParam<UINT>, LowLParam<UINT>, HighLParam<UINT>>;
using MouseHandler = Handler<void, WParam<UINT>, Point>;
using ScrollHandler = Handler<void, LowWParam<UINT>, HighWParam<UINT>, LParamScrollBar>;
using ActivateHandler = Handler<void, LowWParam<UINT>, LParamWnd, HighWParam<BOOL>>;
using ColorHandler = Handler<HBRUSH, WParamDC, LParamWnd, ControlKind>;
using SizeHandler = Handler<void, WParam<UINT>, LowLParam<int>, HighLParam<int>>;
using WheelHandler = Handler<BOOL, LowWParam<UINT>, HighWParam<short>, Point>;
using MessageHandler = Handler<LRESULT, WParam<WPARAM>, LParam<LPARAM>>;

}  // namespace mfx

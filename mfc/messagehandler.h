#pragma once

#include <type_traits>

#include "cwnd.h"

// How the handlers of message maps are called.
namespace mfx {

// A message on its way to a handler, and the answer to WM_NOTIFY.
struct Message : MSG {
    Message(HWND hTarget, UINT nMessage, WPARAM w, LPARAM l) : MSG{hTarget, nMessage, w, l, 0, {}} {}

    LRESULT result = 0;
};

// Where handlers' arguments come from. T is a number, or a pointer for the whole of WPARAM or LPARAM.
template <class T>
constexpr auto WParam = [](Message& msg) { return (T)msg.wParam; };
template <class T>
constexpr auto LParam = [](Message& msg) { return (T)msg.lParam; };
template <class T>
constexpr auto LowWParam = [](Message& msg) { return static_cast<T>(LOWORD(msg.wParam)); };
template <class T>
constexpr auto HighWParam = [](Message& msg) { return static_cast<T>(HIWORD(msg.wParam)); };
template <class T>
constexpr auto LowLParam = [](Message& msg) { return static_cast<T>(LOWORD(msg.lParam)); };
template <class T>
constexpr auto HighLParam = [](Message& msg) { return static_cast<T>(HIWORD(msg.lParam)); };
constexpr auto Point = [](Message& msg) { return CPoint(msg.lParam); };
constexpr auto WParamWnd = [](Message& msg) { return CWnd::FromHandle(WParam<HWND>(msg)); };
constexpr auto LParamWnd = [](Message& msg) { return CWnd::FromHandle(LParam<HWND>(msg)); };
constexpr auto LParamBar = [](Message& msg) { return static_cast<CScrollBar*>(LParamWnd(msg)); };
constexpr auto WParamDC = [](Message& msg) { return CDC::FromHandle(WParam<HDC>(msg)); };
constexpr auto Result = [](Message& msg) { return &msg.result; };
// CTLCOLOR_EDIT and the like.
constexpr auto ControlKind = [](Message& msg) { return UINT{msg.message - WM_CTLCOLORMSGBOX}; };

// Calls a handler with arguments taken from the message. One with another signature does not compile.
template <class Return, auto... Arguments>
class Handler {
  public:
    template <auto Member>
    static LRESULT Call(CWnd& wnd, Message& msg) {
        return Invoke(wnd, Member, msg);
    }

  private:
    template <class Class>
    static LRESULT Invoke(CWnd& wnd,
                          Return (Class::*member)(decltype(Arguments(std::declval<Message&>()))...),
                          Message& msg) {
        Class& target = static_cast<Class&>(wnd);
        if constexpr (std::is_void_v<Return>)
            return (target.*member)(Arguments(msg)...), msg.result;
        else
            return (LRESULT)(target.*member)(Arguments(msg)...);
    }
};

using PlainHandler = Handler<void>;
using NotifyHandler = Handler<void, LParam<NMHDR*>, Result>;
using MessageHandler = Handler<LRESULT, WParam<WPARAM>, LParam<LPARAM>>;
using CreateHandler = Handler<int, LParam<LPCREATESTRUCT>>;
using SizeHandler = Handler<void, WParam<UINT>, LowLParam<int>, HighLParam<int>>;
using ActivateHandler = Handler<void, LowWParam<UINT>, LParamWnd, HighWParam<BOOL>>;
using FocusHandler = Handler<void, WParamWnd>;
using EraseHandler = Handler<BOOL, WParamDC>;
using ColorHandler = Handler<HBRUSH, WParamDC, LParamWnd, ControlKind>;
using HelpHandler = Handler<BOOL, LParam<HELPINFO*>>;
using TimerHandler = Handler<void, WParam<UINT_PTR>>;
using KeyHandler = Handler<void, WParam<UINT>, LowLParam<UINT>, HighLParam<UINT>>;
using MouseHandler = Handler<void, WParam<UINT>, Point>;
using WheelHandler = Handler<BOOL, LowWParam<UINT>, HighWParam<short>, Point>;
using ScrollHandler = Handler<void, LowWParam<UINT>, HighWParam<UINT>, LParamBar>;

// Added to WM_COMMAND and WM_NOTIFY for lines that handle a control's notification in the control.
constexpr UINT kReflected = 0x2000;

template <class Handler, auto Member>
constexpr AFX_MSGMAP_ENTRY Entry(UINT message, UINT code = 0, int id = 0) {
    return {message, code, static_cast<UINT>(id), &Handler::template Call<Member>};
}

}  // namespace mfx

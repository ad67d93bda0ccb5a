#pragma once

#include <type_traits>

#include "cwnd.h"

// How the handlers of message maps are called.
namespace mfx {

// How a handler's argument, of type T, is taken from its message.
template <class T>
constexpr auto WParam = [](const MSG& msg) { return (T)msg.wParam; };
template <class T>
constexpr auto LParam = [](const MSG& msg) { return (T)msg.lParam; };
template <class T>
constexpr auto LowWParam = [](const MSG& msg) { return static_cast<T>(LOWORD(msg.wParam)); };
template <class T>
constexpr auto HighWParam = [](const MSG& msg) { return static_cast<T>(HIWORD(msg.wParam)); };
template <class T>
constexpr auto LowLParam = [](const MSG& msg) { return static_cast<T>(LOWORD(msg.lParam)); };
template <class T>
constexpr auto HighLParam = [](const MSG& msg) { return static_cast<T>(HIWORD(msg.lParam)); };
constexpr auto Point = [](const MSG& msg) { return CPoint(msg.lParam); };
constexpr auto LParamWnd = [](const MSG& msg) { return CWnd::FromHandle(LParam<HWND>(msg)); };
constexpr auto LParamBar = [](const MSG& msg) { return static_cast<CScrollBar*>(LParamWnd(msg)); };

// Calls a handler with arguments taken from the message. One with another signature does not compile.
template <class Return, auto... Arguments>
class Handler {
  public:
    template <auto Member>
    static LRESULT Call(CWnd& wnd, const MSG& msg) {
        return Invoke(wnd, Member, msg);
    }

  private:
    template <class Class>
    static LRESULT Invoke(CWnd& wnd,
                          Return (Class::*member)(decltype(Arguments(std::declval<const MSG&>()))...),
                          const MSG& msg) {
        auto& target = static_cast<Class&>(wnd);
        if constexpr (std::is_void_v<Return>)
            return (target.*member)(Arguments(msg)...), 0;
        else
            return (LRESULT)(target.*member)(Arguments(msg)...);
    }
};

using PlainHandler = Handler<void>;
using MessageHandler = Handler<LRESULT, WParam<WPARAM>, LParam<LPARAM>>;
using CreateHandler = Handler<int, LParam<LPCREATESTRUCT>>;
using SizeHandler = Handler<void, WParam<UINT>, LowLParam<int>, HighLParam<int>>;
using ActivateHandler = Handler<void, LowWParam<UINT>, LParamWnd, HighWParam<BOOL>>;
using HotKeyHandler = Handler<void, WParam<UINT>, LowLParam<UINT>, HighLParam<UINT>>;
using KeyHandler = Handler<void, WParam<UINT>, LowLParam<UINT>, HighLParam<UINT>>;
using MouseHandler = Handler<void, WParam<UINT>, Point>;
using ScrollHandler = Handler<void, LowWParam<UINT>, HighWParam<UINT>, LParamBar>;

class NotifyHandler {
  public:
    template <auto Member>
    static LRESULT Call(CWnd& wnd, const MSG& msg) {
        LRESULT result = 0;
        Invoke(wnd, Member, reinterpret_cast<NMHDR*>(msg.lParam), result);
        return result;
    }

  private:
    template <class Class>
    static void Invoke(CWnd& wnd, void (Class::*member)(NMHDR*, LRESULT*), NMHDR* pNotify, LRESULT& result) {
        (static_cast<Class&>(wnd).*member)(pNotify, &result);
    }
};

// Added to WM_COMMAND for lines that handle a control's notification in the control.
constexpr UINT kReflected = 0x2000;

template <class Handler, auto Member>
constexpr AFX_MSGMAP_ENTRY Entry(UINT message, UINT code = 0, int id = 0) {
    return {message, code, static_cast<UINT>(id), &Handler::template Call<Member>};
}

}  // namespace mfx

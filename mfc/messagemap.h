#pragma once

#include "afx.h"

class CWnd;

namespace mfx {
struct Message;
}

// Marks a message handler for the reader.
#define afx_msg

// One line of a class's message map: the messages it takes, and what calls the handler.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;  // notification code, 0 where there is none
    UINT nID;    // control or command, 0 where there is none
    LRESULT (*pfnCall)(CWnd& wnd, mfx::Message& msg);
};

// A class's own lines, up to one without pfnCall, and the map of its base class; null for CWnd.
struct AFX_MSGMAP {
    const AFX_MSGMAP* pBaseMap;
    const AFX_MSGMAP_ENTRY* pEntries;
};

// clang-format off
#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                        \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                 \
        using ThisClass [[maybe_unused]] = theClass;                                  \
        static const AFX_MSGMAP* const baseMap = baseClass::GetThisMessageMap();      \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                              \
            {}};                                       \
        static const AFX_MSGMAP map{baseMap, entries}; \
        return &map;                                   \
    }
// clang-format on

// Commands and notifications, whose handlers have no parameters; those of WM_NOTIFY have (NMHDR*, LRESULT*).
#define ON_CONTROL(wNotifyCode, id, memberFxn) \
    mfx::Entry<mfx::PlainHandler, memberFxn>(WM_COMMAND, wNotifyCode, id),
#define ON_COMMAND(id, memberFxn) ON_CONTROL(0, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
    mfx::Entry<mfx::NotifyHandler, memberFxn>(WM_NOTIFY, wNotifyCode, id),

// The same in the control itself; its parent then does not get the notification.
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
    mfx::Entry<mfx::PlainHandler, memberFxn>(mfx::kReflected + WM_COMMAND, wNotifyCode),
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn) \
    mfx::Entry<mfx::NotifyHandler, memberFxn>(mfx::kReflected + WM_NOTIFY, wNotifyCode),

#define ON_MESSAGE(message, memberFxn) mfx::Entry<mfx::MessageHandler, memberFxn>(message),

// Window messages. The handlers override those of CWnd, with their parameters.
#define ON_WM_CREATE() mfx::Entry<mfx::CreateHandler, &ThisClass::OnCreate>(WM_CREATE),
#define ON_WM_DESTROY() mfx::Entry<mfx::PlainHandler, &ThisClass::OnDestroy>(WM_DESTROY),
#define ON_WM_SIZE() mfx::Entry<mfx::SizeHandler, &ThisClass::OnSize>(WM_SIZE),
#define ON_WM_ACTIVATE() mfx::Entry<mfx::ActivateHandler, &ThisClass::OnActivate>(WM_ACTIVATE),
#define ON_WM_SETFOCUS() mfx::Entry<mfx::FocusHandler, &ThisClass::OnSetFocus>(WM_SETFOCUS),
#define ON_WM_KILLFOCUS() mfx::Entry<mfx::FocusHandler, &ThisClass::OnKillFocus>(WM_KILLFOCUS),
#define ON_WM_PAINT() mfx::Entry<mfx::PlainHandler, &ThisClass::OnPaint>(WM_PAINT),
#define ON_WM_ERASEBKGND() mfx::Entry<mfx::EraseHandler, &ThisClass::OnEraseBkgnd>(WM_ERASEBKGND),
// One line for the messages of all kinds of controls (WM_CTLCOLOREDIT and so on).
#define ON_WM_CTLCOLOR() mfx::Entry<mfx::ColorHandler, &ThisClass::OnCtlColor>(WM_CTLCOLORMSGBOX),
#define ON_WM_HELPINFO() mfx::Entry<mfx::HelpHandler, &ThisClass::OnHelpInfo>(WM_HELP),
#define ON_WM_TIMER() mfx::Entry<mfx::TimerHandler, &ThisClass::OnTimer>(WM_TIMER),
#define ON_WM_HOTKEY() mfx::Entry<mfx::KeyHandler, &ThisClass::OnHotKey>(WM_HOTKEY),
#define ON_WM_KEYDOWN() mfx::Entry<mfx::KeyHandler, &ThisClass::OnKeyDown>(WM_KEYDOWN),
#define ON_WM_CHAR() mfx::Entry<mfx::KeyHandler, &ThisClass::OnChar>(WM_CHAR),
#define ON_WM_LBUTTONDOWN() mfx::Entry<mfx::MouseHandler, &ThisClass::OnLButtonDown>(WM_LBUTTONDOWN),
#define ON_WM_LBUTTONUP() mfx::Entry<mfx::MouseHandler, &ThisClass::OnLButtonUp>(WM_LBUTTONUP),
#define ON_WM_LBUTTONDBLCLK() mfx::Entry<mfx::MouseHandler, &ThisClass::OnLButtonDblClk>(WM_LBUTTONDBLCLK),
#define ON_WM_NCLBUTTONDOWN() mfx::Entry<mfx::MouseHandler, &ThisClass::OnNcLButtonDown>(WM_NCLBUTTONDOWN),
#define ON_WM_MOUSEWHEEL() mfx::Entry<mfx::WheelHandler, &ThisClass::OnMouseWheel>(WM_MOUSEWHEEL),
#define ON_WM_HSCROLL() mfx::Entry<mfx::ScrollHandler, &ThisClass::OnHScroll>(WM_HSCROLL),
#define ON_WM_VSCROLL() mfx::Entry<mfx::ScrollHandler, &ThisClass::OnVScroll>(WM_VSCROLL),

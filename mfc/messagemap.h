#pragma once

#include "afx.h"

class CWnd;

// Marks a message handler for the reader.
#define afx_msg

// One line of a class's message map: the messages it takes, and what calls the handler.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;  // notification code, 0 where there is none
    UINT nID;    // control or command, 0 where there is none
    LRESULT (*pfnCall)(CWnd& wnd, const MSG& msg);
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

// A command, for example of a button. The handler has no parameters.
#define ON_COMMAND(id, memberFxn) mfx::Entry<mfx::PlainHandler, memberFxn>(WM_COMMAND, 0, id),

// Notifications of a control to its parent. The handler has no parameters.
#define ON_BN_CLICKED(id, memberFxn) mfx::Entry<mfx::PlainHandler, memberFxn>(WM_COMMAND, BN_CLICKED, id),
#define ON_CBN_SELCHANGE(id, memberFxn) \
    mfx::Entry<mfx::PlainHandler, memberFxn>(WM_COMMAND, CBN_SELCHANGE, id),

// A control's own notification. Its parent then does not get it. The handler has no parameters.
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
    mfx::Entry<mfx::PlainHandler, memberFxn>(mfx::kReflected + WM_COMMAND, wNotifyCode),

// The same for a control that sends WM_NOTIFY. The handler is given the notification and the answer to it.
#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
    mfx::Entry<mfx::NotifyHandler, memberFxn>(WM_NOTIFY, static_cast<UINT>(wNotifyCode), id),

#define ON_MESSAGE(message, memberFxn) mfx::Entry<mfx::MessageHandler, memberFxn>(message),

// Window messages. The handlers override those of CWnd, with their parameters.
#define ON_WM_CREATE() mfx::Entry<mfx::CreateHandler, &ThisClass::OnCreate>(WM_CREATE),
#define ON_WM_DESTROY() mfx::Entry<mfx::PlainHandler, &ThisClass::OnDestroy>(WM_DESTROY),
#define ON_WM_SIZE() mfx::Entry<mfx::SizeHandler, &ThisClass::OnSize>(WM_SIZE),
#define ON_WM_PAINT() mfx::Entry<mfx::PlainHandler, &ThisClass::OnPaint>(WM_PAINT),
#define ON_WM_ACTIVATE() mfx::Entry<mfx::ActivateHandler, &ThisClass::OnActivate>(WM_ACTIVATE),
#define ON_WM_HOTKEY() mfx::Entry<mfx::HotKeyHandler, &ThisClass::OnHotKey>(WM_HOTKEY),
#define ON_WM_KEYDOWN() mfx::Entry<mfx::KeyHandler, &ThisClass::OnKeyDown>(WM_KEYDOWN),
#define ON_WM_CHAR() mfx::Entry<mfx::KeyHandler, &ThisClass::OnChar>(WM_CHAR),
#define ON_WM_LBUTTONDOWN() mfx::Entry<mfx::MouseHandler, &ThisClass::OnLButtonDown>(WM_LBUTTONDOWN),
#define ON_WM_LBUTTONDBLCLK() mfx::Entry<mfx::MouseHandler, &ThisClass::OnLButtonDblClk>(WM_LBUTTONDBLCLK),
#define ON_WM_NCLBUTTONDOWN() mfx::Entry<mfx::MouseHandler, &ThisClass::OnNcLButtonDown>(WM_NCLBUTTONDOWN),
#define ON_WM_VSCROLL() mfx::Entry<mfx::ScrollHandler, &ThisClass::OnVScroll>(WM_VSCROLL),

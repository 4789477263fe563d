// pane_focus.h - the calculator's window without a mouse. The keyboard always belongs
// to the window itself, so that what is typed reaches the calculator; which of its
// parts the arrow keys move in is kept here, and shown by a frame.

#ifndef SHELL_WIN32_PANE_FOCUS_H
#define SHELL_WIN32_PANE_FOCUS_H

#include "toolkit/win32/win32.h"

#include "shell/key_focus.h"
#include "toolkit/win32/window_mark.h"

class cButtonArray;
class cEditBox;
class cToolBar;

enum ePane
{
    pnNone,  // nothing is framed; arrows then begin on the keypad
    pnKeypad,
    pnListing,
    pnRegisters,
    pnToolBar,
    kPanes
};

class cPaneFocus
{
public:
    cPaneFocus(cButtonArray *pKeypad, cEditBox *pListing, cEditBox *pRegisters, cToolBar *pToolBar);

    // A virtual key: Tab and F6 go to the next part that is shown, with Shift to the
    // one before; arrows move within the part; PageUp, PageDown, Home and End scroll
    // the listing, or the registers when they are framed. 0 for every other key.
    int OnKeyDown(unsigned nKey, int bShift);

    // Whether a key or a button is framed, and presses it.
    int  CanPress() const { return Pane() == pnKeypad || Pane() == pnToolBar; }
    void Press();

    // The mouse is used: nothing is framed.
    void Clear();

    ePane Pane() const;

private:
    int  Step(int nBy);
    int  IsShown(ePane nPane) const;
    void Enter(ePane nPane);
    int  Move(eDirection nDirection);
    int  Scroll(UINT nMessage, unsigned nHow);
    void MoveInToolBar(int nBy);
    int  NextButton(int nFrom, int nBy) const;
    void FrameButton(int nButton);

    cButtonArray *m_pKeypad;
    cEditBox     *m_pListing;
    cEditBox     *m_pRegisters;
    cToolBar     *m_pToolBar;
    cWindowMark   m_Mark;     // on all parts but the keypad
    ePane         m_nPane;    // on the keypad only as long as a key there is framed
    unsigned      m_nKey;     // the last key that was framed
    int           m_nButton;  // of the toolbar, likewise
};

#endif

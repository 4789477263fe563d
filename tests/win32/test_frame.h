// test_frame.h - a window that owns the tested controls and records their
// notifications.

#ifndef TESTS_WIN32_TEST_FRAME_H
#define TESTS_WIN32_TEST_FRAME_H

#include "toolkit/win32/win32.h"

#include <functional>
#include <vector>

#include "tests/unit/recording_boxes.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/message_table.h"
#include "toolkit/win32/window_class.h"

struct cCommand
{
    WORD m_nId;
    WORD m_nCode;
    HWND m_hControl;

    bool operator==(const cCommand &) const = default;
};

class cTestFrame : public cBaseWindow
{
public:
    explicit cTestFrame(cMessageBoxes *pBoxes);
    ~cTestFrame() override;

    const char *GetClassName() const override { return "cTestFrame"; }

    // Shows a top-level window with the title "Test frame".
    void Open();

    // Destroys the window with all its children.
    void Close();

    std::vector<cCommand>        m_Commands;  // WM_COMMAND
    std::function<void(NMHDR *)> m_OnNotify;
    std::function<HBRUSH(HDC)>   m_OnCtlColor;

private:
    using cMessageRow = cMessageRowOf<cTestFrame>;

    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnNotify(WPARAM wParam, LPARAM lParam);
    LRESULT OnCtlColor(WPARAM wParam, LPARAM lParam);

    static const cMessageRow s_Messages[];
    static cWindowClass      s_Class;

    cWindowClassShare m_ClassShare;
};

// A frame and the message boxes that were shown. A control declared after it
// is destroyed before it, so close the frame first, as the program does.
//
//     cFrameRig Rig;
//     cListBox  List(&Rig.m_Boxes);
//     List.Create(&Rig.m_Frame, ...);
//     ...
//     Rig.m_Frame.Close();
struct cFrameRig
{
    cFrameRig() { m_Frame.Open(); }

    cRecordingBoxes m_Boxes;
    cTestFrame      m_Frame{&m_Boxes};
};

// Handles all waiting messages of this thread.
void HandleWaitingMessages();

// A frame without a window, as an owner for controls whose creation must fail.
struct cNoFrameRig
{
    cRecordingBoxes m_Boxes;
    cTestFrame      m_Frame{&m_Boxes};
};

// 1 if only the box of a failed creation was shown: the default caption, an OK
// button, the error icon and, for bUnowned, no owner.
int ShowedOnlyError(const cRecordingBoxes &Boxes, const char *szText, int bUnowned = 1);

#endif

// test_frame.h - a window that owns what is tested and keeps what it is told.

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

    // A shown top-level window with the title "Test frame".
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

// A frame and what was shown in boxes. A control declared behind it outlives
// its window, as in the program.
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

// Handles all messages that wait for this thread.
void HandleWaitingMessages();

// A frame without a window, as an owner for creations that must fail.
struct cNoFrameRig
{
    cRecordingBoxes m_Boxes;
    cTestFrame      m_Frame{&m_Boxes};
};

// The one box of a failed creation: no other caption, an OK button, the error icon,
// and mostly no owner.
int ShowedOnlyError(const cRecordingBoxes &Boxes, const char *szText, int bUnowned = 1);

#endif

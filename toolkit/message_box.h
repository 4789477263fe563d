// message_box.h - the look of a message box and its answer. Portable code shows
// boxes through cMessageBoxes; the window program shows real
// boxes, the console program prints them, the tests record them.

#ifndef TOOLKIT_MESSAGE_BOX_H
#define TOOLKIT_MESSAGE_BOX_H

enum eButtons
{
    bnOk,
    bnOkCancel,
    bnYesNoCancel,
    bnRetryCancel
};

enum eIcon
{
    icNone,
    icError,
    icQuestion
};

enum eAnswer
{
    anOk,
    anCancel,
    anYes,
    anNo,
    anRetry
};

class cMessageBoxes
{
public:
    virtual ~cMessageBoxes() {}

    // Shows a box, waits, returns the button that closed it. szText may hold
    // '\n' line ends. szCaption null: the application's name.
    virtual eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons,
                        eIcon nIcon) = 0;

    // Reports a failure in a box with OK and the error icon. The box has no owner,
    // because the owner's window may be what failed. Without windows it is an
    // ordinary box.
    virtual void ReportUnowned(const char *szText, const char *szCaption)
    {
        Ask(szText, szCaption, bnOk, icError);
    }

    // Reports something in a box with OK, which may also appear a moment later: after the
    // present line of a program, or at the end of the operation.
    virtual void Inform(const char *szText) { Ask(szText, nullptr, bnOk, icNone); }

    // Asks the application to end: the message loop returns nExitCode once the
    // current operation is finished.
    virtual void PostQuit(int nExitCode) = 0;
};

#endif

// tool_bar.h - the platform's toolbar with its standard images, additional images
// of the program, and an optional combo box among the buttons.

#ifndef TOOLKIT_WIN32_TOOL_BAR_H
#define TOOLKIT_WIN32_TOOL_BAR_H

#include "toolkit/win32/win32.h"

#include <memory>

#include "toolkit/scale.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/combo_box.h"
#include "toolkit/win32/tool_images.h"

const int kToolImageWidth  = 16;  // pixels, of an image and of a button
const int kToolImageHeight = 15;
const int kStandardImages  = 15;

class cToolBar : public cBaseWindow
{
public:
    explicit cToolBar(cMessageBoxes *pBoxes);

    const char *GetClassName() const override;  // "ToolbarWindow32"

    // A hidden toolbar with tooltips. The buttons use the platform's small
    // standard images (7 is the open folder of "Open"). If nComboIndex is 0 or
    // more, a combo box with an edit field covers that button and sends
    // WM_COMMAND with its id; the button is best a separator of the right width.
    // -1 for none. 0, after a message box, if anything cannot be created.
    int Create(cBaseWindow *pOwner, DWORD dwStyle, uint32_t nId, const TBBUTTON *pButtons,
               int nButtons, int nComboIndex);

    // Appends the nImages images of a bitmap resource, and nButtons buttons
    // whose iBitmap counts from the first of these images. 0 if there is no such
    // resource.
    int AddBitmap(unsigned nResource, int nImages, const TBBUTTON *pButtons, int nButtons);

    // Index of the first image added by the last AddBitmap. The first call adds
    // from 15 on, after the standard images.
    int GetImageBase() const { return m_nImageBase; }

    // Enlarges images, buttons and separators for a screen. Call it after all images
    // and buttons have been added; it can be called again. hStrip has the images of
    // AddBitmap for a screen like that, with premultiplied transparency, null to
    // stretch those of AddBitmap.
    void SetScale(const cScale &Scale, HBITMAP hStrip);

    // Moves to the top edge of the owner, in the owner's width.
    void AutoSize();

    // For TTN_NEEDTEXTA: the tip is the string resource with the id of the
    // command, or "Find tool" for the combo box.
    void OnToolTipText(NMTTDISPINFOA *pRequest) const;

    HWND       GetToolTipWindow() const;
    cComboBox *ComboBox() const { return m_ComboBox.get(); }  // null if there is none

private:
    int  AddButtons(const TBBUTTON *pButtons, int nButtons);
    int  CreateComboBox(int nIndex);
    void ScaleSeparators(const cScale &Scale);
    void AddTool(HWND hTool) const;
    int  IsComboBoxTool(UINT_PTR nTool) const;

    int                        m_nImageBase;
    HIMAGELIST                 m_hUsualImages;    // the toolbar's own; null until SetScale
    cImageList                 m_ScaledImages;    // empty at the usual scale
    DWORD                      m_dwUsualPadding;  // width and height, packed
    DWORD                      m_dwUsualButton;
    std::unique_ptr<cComboBox> m_ComboBox;
};

#endif

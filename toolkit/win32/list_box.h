// list_box.h - the platform's list box, with a horizontal scroll bar when an item
// is too wide.

#ifndef TOOLKIT_WIN32_LIST_BOX_H
#define TOOLKIT_WIN32_LIST_BOX_H

#include "toolkit/win32/win32.h"

#include <cstddef>
#include <memory>

#include "toolkit/win32/base_window.h"

class cListBox : public cBaseWindow
{
public:
    explicit cListBox(cMessageBoxes *pBoxes);

    const char *GetClassName() const override;  // "LISTBOX"

    // A hidden list with both scroll bars that reports selections (LBS_NOTIFY).
    // 0, after a message box, if it cannot be created.
    int Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
               uint32_t nId);

    // Replaces item nIndex, counted from 0; Count() or a negative index appends.
    // A replaced item loses its selection. 0 for an index above Count(), or if
    // the list box is full.
    int SetItem(int nIndex, const char *szText);

    int Count() const;

    // Copies an item, cut to nSize - 1 characters. 0, with an empty text, if there
    // is no such item.
    int GetItem(int nIndex, char *szText, size_t nSize) const;

    // 0 if there is no such item.
    int DeleteItem(int nIndex);

    // Removes all items.
    void Reset();

    // Index of the selected item, -1 for none.
    int GetSelection() const;

    // Selects an item, or none for -1. 0 if there is no such item.
    int SetSelection(int nIndex);

private:
    int                     PutItem(int nIndex, const char *szText);
    std::unique_ptr<char[]> CopyItem(int nIndex) const;
    void                    UpdateHorizontalExtent();
    int                     ItemWidth(HDC hDc, int nIndex) const;
};

#endif

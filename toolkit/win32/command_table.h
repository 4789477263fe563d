// command_table.h - the commands of a window as a table. One row says what a
// command does and whether it is carried out while a program of the calculator runs, which
// must not be disturbed; the window decides how it refuses.
//
//     const cVantor::cCommandRow cVantor::s_Commands[] =
//     {
//         { IDM_GRAPH_NEW,  0, &cVantor::OnNew  },
//         { IDM_GRAPH_SAVE, 1, &cVantor::OnSave },
//     };

#ifndef TOOLKIT_WIN32_COMMAND_TABLE_H
#define TOOLKIT_WIN32_COMMAND_TABLE_H

#include "toolkit/win32/win32.h"

#include <cstddef>

// One row; a class names it by "using cCommandRow = cCommandRowOf<cVantor>;".
template <class cWindow> struct cCommandRowOf
{
    unsigned m_nId;
    int      m_bWhileRunning;  // 0: not carried out while a program runs
    void (cWindow::*m_pfnHandler)();
};

// The row of command nId, null if there is none. Call this after the definition
// of the table, so that its size is known.
template <class cWindow, size_t nRows>
const cCommandRowOf<cWindow> *FindCommand(const cCommandRowOf<cWindow> (&Rows)[nRows], unsigned nId)
{
    for (const cCommandRowOf<cWindow> &Row : Rows)
        if (Row.m_nId == nId)
            return &Row;
    return nullptr;
}

#endif

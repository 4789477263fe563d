// pointer_list.h - an ordered list of pointers to objects that it does not own:
// callback records, rectangles.

#ifndef TOOLKIT_POINTER_LIST_H
#define TOOLKIT_POINTER_LIST_H

#include <algorithm>
#include <new>

#include "toolkit/retry_alloc.h"

template <class cItem> class cPointerList
{
public:
    cPointerList() : m_pItems(nullptr), m_nItems(0), m_nRoom(0) {}
    ~cPointerList() { delete[] m_pItems; }
    cPointerList(const cPointerList &)            = delete;
    cPointerList &operator=(const cPointerList &) = delete;

    // Appends pItem. 0, with the list unchanged, if memory is short and the user
    // gave up.
    int Append(cItem *pItem, cMessageBoxes *pBoxes)
    {
        if (m_nItems == m_nRoom && !Grow(pBoxes))
            return 0;
        m_pItems[m_nItems++] = pItem;
        return 1;
    }

    // Removes the first pointer to *pItem; the others keep their order. 0 if there
    // is none.
    int Remove(const cItem *pItem)
    {
        cItem **const pEnd   = m_pItems + m_nItems;
        cItem **const pFound = std::find(m_pItems, pEnd, pItem);
        if (pFound == pEnd)
            return 0;
        std::copy(pFound + 1, pEnd, pFound);
        m_nItems--;
        return 1;
    }

    unsigned Count() const { return m_nItems; }

    // The pointer at nIndex, 0 to Count() - 1, in the order of appending.
    cItem *At(unsigned nIndex) const { return m_pItems[nIndex]; }

private:
    int Grow(cMessageBoxes *pBoxes)
    {
        const unsigned nRoom = m_nRoom ? 2 * m_nRoom : 8;
        cItem **const  pItems =
            AllocateWithRetry(pBoxes, [nRoom] { return new (std::nothrow) cItem *[nRoom]; });
        if (!pItems)
            return 0;
        std::copy(m_pItems, m_pItems + m_nItems, pItems);
        delete[] m_pItems;
        m_pItems = pItems;
        m_nRoom  = nRoom;
        return 1;
    }

    cItem  **m_pItems;
    unsigned m_nItems;
    unsigned m_nRoom;  // pointers that m_pItems has room for
};

#endif

#include "toolkit/callback_obj.h"

cCallbackObj::cCallbackObj(uint32_t nSlots, cMessageBoxes *pBoxes)
    : m_pBoxes(pBoxes), m_nSlots(nSlots),
      m_pSlotLists(
          AllocateWithRetry(pBoxes, [nSlots] { return new (std::nothrow) cSlotList *[nSlots](); }))
{
}

cCallbackObj::~cCallbackObj()
{
    for (uint32_t nSlot = 0; nSlot < m_nSlots; nSlot++)
    {
        const cSlotList *const pList = SlotList(nSlot);
        for (unsigned i = 0; pList && i < pList->Count(); i++)
            delete pList->At(i);
        delete pList;
    }
    delete[] m_pSlotLists;
}

const char *cCallbackObj::GetClassName() const
{
    return "cCallbackObj";
}

int cCallbackObj::Register(cCallbackRec *pRecord)
{
    cSlotList *const pList = MakeSlotList(pRecord->nSlot);
    return pList && pList->Append(pRecord, m_pBoxes);
}

int cCallbackObj::Unregister(cCallbackRec *pRecord)
{
    cSlotList *const pList = SlotList(pRecord->nSlot);
    return pList && pList->Remove(pRecord);
}

void cCallbackObj::Fire(uint32_t nSlot, void *pArgument)
{
    const cSlotList *const pList = SlotList(nSlot);
    for (unsigned i = 0; pList && i < pList->Count();)
    {
        const cCallbackRec *const pRecord = pList->At(i);
        if (pRecord->nSlot == nSlot)
            Call(*pRecord, pArgument);

        // The call may have removed this record or one before it.
        if (i < pList->Count() && pList->At(i) == pRecord)
            i++;
    }
}

void cCallbackObj::Call(const cCallbackRec &Record, void *pArgument)
{
    if (Record.pfnStatic)
        Record.pfnStatic(this, pArgument, Record.dwUserData);
    else if (Record.pTarget && Record.pfnMember)
        Record.pfnMember(static_cast<char *>(Record.pTarget) + Record.nTargetAdjust, this,
                         pArgument, Record.dwUserData);
}

// Null for a slot without records or one that does not exist.
cCallbackObj::cSlotList *cCallbackObj::SlotList(uint32_t nSlot) const
{
    return m_pSlotLists && nSlot < m_nSlots ? m_pSlotLists[nSlot] : nullptr;
}

// Null for a slot that does not exist, or when memory is short.
cCallbackObj::cSlotList *cCallbackObj::MakeSlotList(uint32_t nSlot)
{
    if (!m_pSlotLists || nSlot >= m_nSlots)
        return nullptr;
    if (!m_pSlotLists[nSlot])
        m_pSlotLists[nSlot] =
            AllocateWithRetry(m_pBoxes, [] { return new (std::nothrow) cSlotList; });
    return m_pSlotLists[nSlot];
}

// callback_obj.h - how a control notifies its owner without knowing it: the
// control fires a numbered slot, and every record registered there is called.
//
//     cCallbackRec *pRecord = new (std::nothrow) cCallbackRec;
//     pRecord->nSlot        = 0;
//     pRecord->pTarget      = pCalculator;
//     pRecord->pfnMember    = OnKeyEvent;  // casts pTarget back, calls its operation
//     pKeypad->Register(pRecord);

#ifndef TOOLKIT_CALLBACK_OBJ_H
#define TOOLKIT_CALLBACK_OBJ_H

#include <cstdint>

#include "toolkit/pointer_list.h"

class cCallbackObj;

// The function called when a slot fires. Either pfnStatic is set, or pTarget and
// pfnMember; a record with neither is ignored. pArgument points to data of
// the firing class, for example a key event, and is valid during the call.
class cCallbackRec
{
public:
    using cStaticCall = void (*)(cCallbackObj *pSender, void *pArgument, uintptr_t dwUserData);
    using cMemberCall = void (*)(void *pTarget, cCallbackObj *pSender, void *pArgument,
                                 uintptr_t dwUserData);

    virtual ~cCallbackRec() {}

    uint32_t    nSlot         = 0;
    cStaticCall pfnStatic     = nullptr;
    void       *pTarget       = nullptr;
    cMemberCall pfnMember     = nullptr;
    int32_t     nTargetAdjust = 0;  // bytes, added to pTarget before the call
    uintptr_t   dwUserData    = 0;  // passed through; wide enough for a pointer
};

class cCallbackObj
{
public:
    // nSlots: windows have 2, the application object 1. pBoxes must outlive
    // the object.
    cCallbackObj(uint32_t nSlots, cMessageBoxes *pBoxes);

    // Deletes all records that are registered.
    virtual ~cCallbackObj();
    cCallbackObj(const cCallbackObj &)            = delete;
    cCallbackObj &operator=(const cCallbackObj &) = delete;

    // The name of the class, or of the platform's window class that it wraps.
    virtual const char *GetClassName() const;

    // Appends pRecord to its slot; from then on it belongs to this object. 0,
    // with the record still the caller's, if there is no such slot, or if memory
    // is short and the user gave up.
    int Register(cCallbackRec *pRecord);

    // Gives pRecord back to the caller. 0 if it is not registered in its slot.
    int Unregister(cCallbackRec *pRecord);

    // Calls the records of a slot in the order of their registration. A slot
    // without records, or one that does not exist, does nothing. A
    // callback may register and unregister records; it may not delete the
    // object that fires.
    void Fire(uint32_t nSlot, void *pArgument);

    uint32_t CountSlots() const { return m_nSlots; }

protected:
    cMessageBoxes *m_pBoxes;

private:
    using cSlotList = cPointerList<cCallbackRec>;

    cSlotList *SlotList(uint32_t nSlot) const;
    cSlotList *MakeSlotList(uint32_t nSlot);
    void       Call(const cCallbackRec &Record, void *pArgument);

    uint32_t    m_nSlots;
    cSlotList **m_pSlotLists;  // null until the first registration in a slot
};

#endif

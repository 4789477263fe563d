#include "toolkit/callback_obj.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"

namespace
{

struct cCall
{
    void         *m_pTarget;  // null for a plain function
    cCallbackObj *m_pSender;
    void         *m_pArgument;
    uintptr_t     m_dwUserData;
};

}  // namespace

static std::vector<cCall> s_Calls;

static void OnPlainCall(cCallbackObj *pSender, void *pArgument, uintptr_t dwUserData)
{
    s_Calls.push_back({nullptr, pSender, pArgument, dwUserData});
}

static void OnTargetCall(void *pTarget, cCallbackObj *pSender, void *pArgument,
                         uintptr_t dwUserData)
{
    s_Calls.push_back({pTarget, pSender, pArgument, dwUserData});
}

namespace
{

// A record that counts how many of its kind live.
class cCountedRec : public cCallbackRec
{
public:
    cCountedRec() { s_nLiving++; }
    ~cCountedRec() override { s_nLiving--; }

    static int s_nLiving;
};

}  // namespace

int cCountedRec::s_nLiving = 0;

static cCallbackRec *PlainRecord(uint32_t nSlot, uintptr_t dwUserData)
{
    cCallbackRec *const pRecord = new cCountedRec;
    pRecord->nSlot              = nSlot;
    pRecord->pfnStatic          = OnPlainCall;
    pRecord->dwUserData         = dwUserData;
    return pRecord;
}

namespace
{

struct cSlotRig
{
    cSlotRig() { s_Calls.clear(); }

    cRecordingBoxes m_Boxes;
    cCallbackObj    m_Object{2, &m_Boxes};
};

}  // namespace

TEST_CASE("a callback object has the name of its class")
{
    const cSlotRig Rig;

    CHECK(std::string(Rig.m_Object.GetClassName()) == "cCallbackObj");
    CHECK(Rig.m_Object.CountSlots() == 2);
}

TEST_CASE("a plain function is called with sender, argument and user data")
{
    cSlotRig Rig;
    int      nArgument = 0;
    REQUIRE(Rig.m_Object.Register(PlainRecord(0, 77)) == 1);

    Rig.m_Object.Fire(0, &nArgument);

    REQUIRE(s_Calls.size() == 1);
    CHECK(!s_Calls[0].m_pTarget);
    CHECK(s_Calls[0].m_pSender == &Rig.m_Object);
    CHECK(s_Calls[0].m_pArgument == &nArgument);
    CHECK(s_Calls[0].m_dwUserData == 77);
}

TEST_CASE("a target is moved by its adjustment before it is called")
{
    cSlotRig            Rig;
    char                Target[8];
    cCallbackRec *const pRecord = new cCallbackRec;
    pRecord->nSlot              = 1;
    pRecord->pTarget            = &Target[4];
    pRecord->pfnMember          = OnTargetCall;
    pRecord->nTargetAdjust      = -3;
    pRecord->dwUserData         = 5;
    Rig.m_Object.Register(pRecord);

    Rig.m_Object.Fire(1, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(s_Calls[0].m_pTarget == &Target[1]);
    CHECK(s_Calls[0].m_pSender == &Rig.m_Object);
    CHECK(s_Calls[0].m_dwUserData == 5);
}

TEST_CASE("a plain function goes before the target of the same record")
{
    cSlotRig            Rig;
    int                 nTarget = 0;
    cCallbackRec *const pRecord = PlainRecord(0, 0);
    pRecord->pTarget            = &nTarget;
    pRecord->pfnMember          = OnTargetCall;
    Rig.m_Object.Register(pRecord);

    Rig.m_Object.Fire(0, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(!s_Calls[0].m_pTarget);
}

TEST_CASE("a record with half a target or nothing at all is ignored")
{
    cSlotRig            Rig;
    int                 nTarget   = 0;
    cCallbackRec *const pNoCall   = new cCallbackRec;
    pNoCall->pTarget              = &nTarget;
    cCallbackRec *const pNoTarget = new cCallbackRec;
    pNoTarget->pfnMember          = OnTargetCall;
    Rig.m_Object.Register(pNoCall);
    Rig.m_Object.Register(pNoTarget);
    Rig.m_Object.Register(new cCallbackRec);
    Rig.m_Object.Register(PlainRecord(0, 4));

    Rig.m_Object.Fire(0, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(s_Calls[0].m_dwUserData == 4);
}

TEST_CASE("records of a slot are called in the order of registration")
{
    cSlotRig Rig;
    for (uintptr_t i = 0; i < 20; i++)
        Rig.m_Object.Register(PlainRecord(0, i));

    Rig.m_Object.Fire(0, nullptr);

    REQUIRE(s_Calls.size() == 20);
    for (uintptr_t i = 0; i < 20; i++)
        CHECK(s_Calls[i].m_dwUserData == i);
}

TEST_CASE("firing a slot leaves the other slots alone")
{
    cSlotRig Rig;
    Rig.m_Object.Register(PlainRecord(0, 0));
    Rig.m_Object.Register(PlainRecord(1, 1));

    Rig.m_Object.Fire(1, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(s_Calls[0].m_dwUserData == 1);
}

TEST_CASE("firing a slot that nobody registered in does nothing")
{
    cSlotRig Rig;
    Rig.m_Object.Register(PlainRecord(0, 0));

    Rig.m_Object.Fire(1, nullptr);

    CHECK(s_Calls.empty());
}

TEST_CASE("firing a slot beyond the last one does nothing")
{
    cSlotRig Rig;
    Rig.m_Object.Register(PlainRecord(0, 0));

    Rig.m_Object.Fire(2, nullptr);
    Rig.m_Object.Fire(0xFFFFFFFF, nullptr);

    CHECK(s_Calls.empty());
}

TEST_CASE("a record for a slot beyond the last one is refused and stays the caller's")
{
    cSlotRig            Rig;
    cCallbackRec *const pRecord = PlainRecord(2, 0);

    CHECK(Rig.m_Object.Register(pRecord) == 0);

    CHECK(cCountedRec::s_nLiving == 1);
    delete pRecord;
}

TEST_CASE("a record whose slot was changed after registration is ignored")
{
    cSlotRig            Rig;
    cCallbackRec *const pRecord = PlainRecord(0, 0);
    Rig.m_Object.Register(pRecord);
    pRecord->nSlot = 1;

    Rig.m_Object.Fire(0, nullptr);
    Rig.m_Object.Fire(1, nullptr);

    CHECK(s_Calls.empty());
}

TEST_CASE("an unregistered record is no longer called and belongs to the caller again")
{
    cSlotRig            Rig;
    cCallbackRec *const pRecord = PlainRecord(0, 1);
    Rig.m_Object.Register(pRecord);
    Rig.m_Object.Register(PlainRecord(0, 2));

    CHECK(Rig.m_Object.Unregister(pRecord) == 1);
    CHECK(Rig.m_Object.Unregister(pRecord) == 0);
    Rig.m_Object.Fire(0, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(s_Calls[0].m_dwUserData == 2);
    CHECK(cCountedRec::s_nLiving == 2);
    delete pRecord;
}

TEST_CASE("unregistering finds nothing in a slot without records or beyond the last one")
{
    cSlotRig     Rig;
    cCallbackRec Record;

    CHECK(Rig.m_Object.Unregister(&Record) == 0);
    Record.nSlot = 2;
    CHECK(Rig.m_Object.Unregister(&Record) == 0);
}

TEST_CASE("a callback may remove its own record and the next one is still called")
{
    cSlotRig            Rig;
    cCallbackRec *const pRecord = new cCountedRec;
    pRecord->pTarget            = pRecord;
    pRecord->pfnMember          = [](void *pTarget, cCallbackObj *pSender, void *, uintptr_t) {
        pSender->Unregister(static_cast<cCallbackRec *>(pTarget));
    };
    Rig.m_Object.Register(PlainRecord(0, 1));
    Rig.m_Object.Register(pRecord);
    Rig.m_Object.Register(PlainRecord(0, 2));

    Rig.m_Object.Fire(0, nullptr);
    delete pRecord;

    REQUIRE(s_Calls.size() == 2);
    CHECK(s_Calls[1].m_dwUserData == 2);
}

TEST_CASE("a callback may register another record, which is called in the same round")
{
    cSlotRig            Rig;
    cCallbackRec *const pRecord = new cCallbackRec;
    pRecord->pfnStatic          = [](cCallbackObj *pSender, void *, uintptr_t) {
        pSender->Register(PlainRecord(0, 9));
    };
    Rig.m_Object.Register(pRecord);

    Rig.m_Object.Fire(0, nullptr);

    REQUIRE(s_Calls.size() == 1);
    CHECK(s_Calls[0].m_dwUserData == 9);
}

TEST_CASE("a callback object deletes the records of all slots with itself")
{
    {
        cSlotRig Rig;
        Rig.m_Object.Register(PlainRecord(0, 0));
        Rig.m_Object.Register(PlainRecord(0, 0));
        Rig.m_Object.Register(PlainRecord(1, 0));
        REQUIRE(cCountedRec::s_nLiving == 3);
    }

    CHECK(cCountedRec::s_nLiving == 0);
}

TEST_CASE("registering retries when memory is short")
{
    cRecordingBoxes Boxes({anRetry, anRetry});
    cCallbackObj    Object(1, &Boxes);
    cCallbackRec   *pRecord = PlainRecord(0, 0);

    const cFailingMemory Memory(0, 2);
    CHECK(Object.Register(pRecord) == 1);

    CHECK(Boxes.m_Boxes.size() == 2);
    CHECK(Boxes.m_QuitCodes.empty());
}

TEST_CASE("registering gives 0 and posts quit when the user gives up on memory")
{
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)  // the list, its room
    {
        cRecordingBoxes     Boxes;
        cCallbackObj        Object(1, &Boxes);
        cCallbackRec *const pRecord = PlainRecord(0, 0);

        const cFailingMemory Memory(nSucceed, 1);
        CHECK(Object.Register(pRecord) == 0);

        CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
        delete pRecord;
    }
}

TEST_CASE("a callback object without memory for its slots takes no records")
{
    cRecordingBoxes      Boxes;
    const cFailingMemory Memory(0, 1);
    cCallbackObj         Object(1, &Boxes);
    cCallbackRec         Record;

    CHECK(Object.Register(&Record) == 0);
    CHECK(Object.Unregister(&Record) == 0);
    Object.Fire(0, nullptr);

    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
}

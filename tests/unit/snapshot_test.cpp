#include <cstring>
#include <memory>
#include <random>

#include "engine/snapshot.h"
#include "tests/unit/calculator_rig.h"

namespace
{

// A moment of a calculator, its listing included.
struct cMoment
{
    explicit cMoment(cCalculatorRig *pRig) : m_pSnapshot(std::make_unique<cSnapshot>())
    {
        pRig->m_Engine.TakeSnapshot(m_pSnapshot.get());
        std::vector<char> Text(pRig->m_Listing.GetTextLength() + 1);
        pRig->m_Listing.GetText(Text.data(), Text.size());
        m_Listing   = Text.data();
        m_Registers = m_pSnapshot->m_szRegisters;
        m_Shown     = pRig->Shown();
        m_Text      = pRig->Snapshot();
    }

    std::unique_ptr<cSnapshot> m_pSnapshot;
    std::string                m_Listing;
    std::string                m_Registers;
    std::string                m_Shown;
    std::string                m_Text;
};

}  // namespace

static void CheckSame(const cMoment &Is, const cMoment &Expected)
{
    CHECK(Is.m_Text == Expected.m_Text);
    CHECK(Is.m_Listing == Expected.m_Listing);
    CHECK(Is.m_Registers == Expected.m_Registers);
    CHECK(Is.m_Shown == Expected.m_Shown);
    CHECK(memcmp(Is.m_pSnapshot.get(), Expected.m_pSnapshot.get(), sizeof(cSnapshot)) == 0);
}

TEST_CASE("a restored calculator has its former state, listing, registers and display")
{
    static const char *const s_Changes[] = {"5 STO 3", "1 CHS f 2", "g STO", "f R/S",
                                            "EEX 2",   "g 7 4",     "2 0 /", "g 0 7"};
    for (const char *const szChange : s_Changes)
    {
        CAPTURE_TEXT(szChange);
        cCalculatorRig Rig;
        Rig.Load("1\nLBL 2\nSTO 4\n");
        Rig.Set(1.5, 2.5, 3.5, 4.5);
        Rig.SetReg(7, 0.125);
        const cMoment Before(&Rig);

        Rig.Type(szChange);
        Rig.Load("LBL 9\nGTO 9\n");
        REQUIRE(Rig.m_Engine.Restore(*Before.m_pSnapshot, Before.m_Listing.c_str()) == 1);

        CheckSame(cMoment(&Rig), Before);
    }
}

TEST_CASE("the program that is restored is the one that runs")
{
    cCalculatorRig Rig;
    Rig.Load("1\n2\n+\n");
    const cMoment Before(&Rig);
    Rig.Load("7\n7\n*\n");
    REQUIRE(Rig.m_Engine.Restore(*Before.m_pSnapshot, Before.m_Listing.c_str()) == 1);

    Rig.Type("R/S");

    CHECK(Rig.X() == 3.0);
}

TEST_CASE("a display that shows an error still does so after a restored calculator's next view")
{
    cCalculatorRig Rig;
    Rig.Type("0 g 4");
    const std::string Error = Rig.Shown();
    const cMoment     Before(&Rig);
    Rig.Type("CLX 5");

    REQUIRE(Rig.m_Engine.Restore(*Before.m_pSnapshot, nullptr) == 1);

    CHECK_TEXT(Rig.Shown(), Error);
}

TEST_CASE("during a run nothing is restored")
{
    cCalculatorRig Rig;
    Rig.Load("1\nPAUSE\n2\n");
    const cMoment Before(&Rig);
    int           nRestored = -1;
    Rig.m_Host.m_OnPause    = [&] { nRestored = Rig.m_Engine.Restore(*Before.m_pSnapshot, ""); };

    Rig.Type("R/S");

    CHECK(nRestored == 0);
    CHECK(Rig.X() == 2.0);
}

TEST_CASE("after random keys a calculator that went back continues as it did before")
{
    std::mt19937 Random(13);
    const auto   Keys = [&Random](cCalculatorRig *pRig, unsigned nKeys) {
        for (unsigned i = 0; i < nKeys; i++)
            pRig->Key(static_cast<unsigned>(1 + Random() % 29));
    };
    for (int nRound = 0; nRound < 300; nRound++)
    {
        cCalculatorRig Rig;
        Keys(&Rig, 1 + static_cast<unsigned>(Random()) % 40);
        const cMoment  Before(&Rig);
        const unsigned nSeed = static_cast<unsigned>(Random());

        Random.seed(nSeed);
        Keys(&Rig, 20);
        const cMoment After(&Rig);
        REQUIRE(Rig.m_Engine.Restore(*Before.m_pSnapshot, Before.m_Listing.c_str()) == 1);
        Random.seed(nSeed);
        Keys(&Rig, 20);

        CheckSame(cMoment(&Rig), After);
    }
}

#include "shell/face_geometry.h"

#include <doctest/doctest.h>

static int Overlap(const cFaceRect &A, const cFaceRect &B)
{
    return A.m_nLeft < B.m_nLeft + B.m_nWidth && B.m_nLeft < A.m_nLeft + A.m_nWidth &&
           A.m_nTop < B.m_nTop + B.m_nHeight && B.m_nTop < A.m_nTop + A.m_nHeight;
}

TEST_CASE("the widths of the keys add up to the width of the key strip")
{
    int nWidth = 0;

    for (const cFaceRect &Key : kKeyRects)
    {
        nWidth += Key.m_nWidth;
        CHECK(Key.m_nHeight == 31);
    }

    CHECK(nWidth == 1158);
}

TEST_CASE("keys and switches lie on the face and do not overlap")
{
    for (int i = 0; i < kFaceKeys; i++)
    {
        const cFaceRect &Key = kKeyRects[i];
        CHECK(Key.m_nLeft >= 0);
        CHECK(Key.m_nLeft + Key.m_nWidth <= kFaceWidth);
        CHECK(Key.m_nTop + Key.m_nHeight <= kFaceHeight);
        for (int j = 0; j < i; j++)
            CHECK_FALSE(Overlap(Key, kKeyRects[j]));
        for (const cFaceRect &Switch : kSwitchRects)
            CHECK_FALSE(Overlap(Key, Switch));
    }
}

// The longest texts end at row 93.
TEST_CASE("the lamps are below the display's texts and above the switches")
{
    for (int i = 0; i < kFaceLamps; i++)
    {
        const cFaceRect &Lamp = kLampRects[i];
        CHECK(Lamp.m_nTop > 93);
        CHECK(Lamp.m_nTop + Lamp.m_nHeight <= kSwitchRects[0].m_nTop);
        CHECK((i == 0 || Lamp.m_nLeft > kLampRects[i - 1].m_nLeft + Lamp.m_nWidth));
    }
}

TEST_CASE("keys are numbered row by row, from the left to the right")
{
    for (int i = 1; i < kFaceKeys; i++)
    {
        const int bSameRow = kKeyRects[i].m_nTop - kKeyRects[i - 1].m_nTop < 10;
        CHECK((bSameRow ? kKeyRects[i].m_nLeft > kKeyRects[i - 1].m_nLeft
                        : kKeyRects[i].m_nTop > kKeyRects[i - 1].m_nTop + 40));
    }
    CHECK(kKeyRects[10].m_nWidth == 83);
}

TEST_CASE("the blanked part of the display ends at 260 and 92")
{
    CHECK(kBlankedRect.m_nLeft == 44);
    CHECK(kBlankedRect.m_nTop == 40);
    CHECK(kBlankedRect.m_nLeft + kBlankedRect.m_nWidth == 260);
    CHECK(kBlankedRect.m_nTop + kBlankedRect.m_nHeight == 92);
}

TEST_CASE("the thumb of a slide switch runs through the frames 0 to 12")
{
    for (int nPosition = 0; nPosition <= 12; nPosition++)
        CHECK(ThumbFrame(nPosition, 12, kSwitchFrames) == nPosition * 14 / 13);

    CHECK(ThumbFrame(0, 12, kSwitchFrames) == 0);
    CHECK(ThumbFrame(12, 12, kSwitchFrames) == 12);
}

TEST_CASE("at 96 dots per inch the face has the pixels of its figures")
{
    for (const cFaceRect &Key : kKeyRects)
    {
        const cFaceRect Scaled = ScaledRect(Key, cScale());
        CHECK(Scaled.m_nLeft == Key.m_nLeft);
        CHECK(Scaled.m_nTop == Key.m_nTop);
        CHECK(Scaled.m_nWidth == Key.m_nWidth);
        CHECK(Scaled.m_nHeight == Key.m_nHeight);
    }
}

TEST_CASE("a key at 120 dots per inch has scaled edges")
{
    const cFaceRect First  = ScaledRect(kKeyRects[0], cScale(120));
    const cFaceRect Fourth = ScaledRect(kKeyRects[3], cScale(120));

    CHECK(First.m_nLeft == 49);
    CHECK(First.m_nTop == 190);
    CHECK(First.m_nLeft + First.m_nWidth == 93);
    CHECK(First.m_nTop + First.m_nHeight == 229);
    CHECK(Fourth.m_nLeft == 228);
    CHECK(Fourth.m_nLeft + Fourth.m_nWidth == 271);
}

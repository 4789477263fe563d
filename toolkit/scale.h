// scale.h - lengths in the pixels of a screen. The program's figures are pixels of a
// screen with 96 dots per inch; another screen shows them larger in proportion.
// Portable.
//
//     const cScale Scale(144);
//     Scale.Length(35)  // 53

#ifndef TOOLKIT_SCALE_H
#define TOOLKIT_SCALE_H

const int kUsualDpi = 96;

class cScale
{
public:
    constexpr cScale() : m_nDpi(kUsualDpi) {}

    // Dots per inch of the screen, above 0.
    explicit constexpr cScale(int nDpi) : m_nDpi(nDpi) {}

    constexpr int  Dpi() const { return m_nDpi; }
    constexpr bool operator==(const cScale &) const = default;

    // nLength pixels at 96 dots per inch in pixels of this screen, rounded; halves
    // away from zero. Where things touch, scale their edges and not their sizes.
    constexpr int Length(int nLength) const { return Ratio(nLength, m_nDpi, kUsualDpi); }

    // The reverse: pixels of this screen at 96 dots per inch.
    constexpr int Usual(int nLength) const { return Ratio(nLength, kUsualDpi, m_nDpi); }

    // A length on the screen of another scale in pixels of this one.
    constexpr int From(const cScale &Other, int nLength) const
    {
        return Ratio(nLength, m_nDpi, Other.m_nDpi);
    }

private:
    static constexpr int Ratio(int nLength, int nFactor, int nDivisor)
    {
        const long long nTwice = 2LL * nLength * nFactor;
        return static_cast<int>((nTwice + (nLength < 0 ? -nDivisor : nDivisor)) / (2LL * nDivisor));
    }

    int m_nDpi;
};

#endif

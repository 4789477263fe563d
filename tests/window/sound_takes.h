// sound_takes.h - recognises the program's sounds in the recordings of a fake sound
// device.
//
//     cSoundTakes Takes;
//     Calculator.HitKey(24);
//     CHECK(Takes.Hear({10050}));

#ifndef TESTS_WINDOW_SOUND_TAKES_H
#define TESTS_WINDOW_SOUND_TAKES_H

#include "toolkit/win32/win32.h"

#include <map>
#include <string>
#include <vector>

class cSoundTakes
{
public:
    struct cTake
    {
        unsigned m_nId;  // 0: none of the program's sounds
        int      m_bWhole;
    };

    // Forgets the sounds that have been played so far.
    cSoundTakes();

    // Waits until these sounds, and no others, have been played since the last call,
    // the last one to its end; 0 if that does not happen. All but the last may be
    // missing, because a sound cuts off the one before, perhaps before the device
    // has received any of it.
    int Hear(const std::vector<unsigned> &Sounds);

    // The sounds since the last call, for a message: "10050, 10052 cut".
    std::string Played() const;

private:
    std::vector<cTake> Takes() const;
    cTake              Recognise(const std::string &Samples, const std::string &Format) const;

    std::map<unsigned, std::string> m_Samples;  // of each sound, without silence
    std::map<unsigned, std::string> m_Formats;  // "22050-16-1"
    std::string                     m_LastHeard;
};

#endif

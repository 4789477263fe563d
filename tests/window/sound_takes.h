// sound_takes.h - what reached the sound device, recognised as the program's
// sounds.
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

    // Forgets what was played so far.
    cSoundTakes();

    // Waits until this has been played since the last call, the last sound to
    // its end, and nothing else; 0 if it never comes to that. A sound is cut off
    // by the next one, maybe before anything of it has reached the device, so
    // those before the last may be missing.
    int Hear(const std::vector<unsigned> &Sounds);

    // What was played since the last call, for a message: "10050, 10052 cut".
    std::string Played() const;

private:
    std::vector<cTake> Takes() const;
    cTake              Recognise(const std::string &Samples, const std::string &Format) const;

    std::map<unsigned, std::string> m_Samples;  // of each sound, without silence
    std::map<unsigned, std::string> m_Formats;  // "22050-16-1"
    std::string                     m_LastHeard;
};

#endif

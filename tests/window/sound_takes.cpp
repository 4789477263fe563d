#include "tests/window/sound_takes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <doctest/doctest.h>

#include "resources/resource.h"
#include "tests/window/program_file.h"
#include "tests/window/waiting.h"

// The folder in which the fake sound device records.
static const char kFolder[] = "takes";

// Bytes; a shorter take is not recognised and does not count.
static const size_t kRecognisable = 64;

static uint32_t Number(const std::string &Bytes, size_t nAt, size_t nBytes)
{
    uint32_t nValue = 0;
    memcpy(&nValue, Bytes.data() + nAt, nBytes);
    return nValue;
}

// Of a file with one "fmt " and one "data" chunk:
//   22 u16 channels   24 u32 rate   34 u16 bits   40 u32 size   44 samples
static std::string FormatOf(const std::string &File)
{
    return std::to_string(Number(File, 24, 4)) + "-" + std::to_string(Number(File, 34, 2)) + "-" +
           std::to_string(Number(File, 22, 2));
}

// 16-bit samples without the zeros: a busy computer may be late, and then records
// silence in between.
static std::string WithoutSilence(const std::string &Samples)
{
    std::string Heard;
    for (size_t i = 0; i + 1 < Samples.size(); i += 2)
        if (Samples[i] || Samples[i + 1])
            Heard.append(Samples, i, 2);
    return Heard;
}

static std::string SamplesOf(const std::string &File)
{
    return WithoutSilence(File.substr(44, Number(File, 40, 4)));
}

cSoundTakes::cSoundTakes()
{
    const cProgramFile Program;
    for (unsigned nId = IDW_KEY_CLICK; nId <= IDW_RUN_MODE; nId++)
    {
        const std::string File = Program.Bytes("WAVE", nId);
        m_Samples[nId]         = SamplesOf(File);
        m_Formats[nId]         = FormatOf(File);
    }
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directory(kFolder);
}

cSoundTakes::cTake cSoundTakes::Recognise(const std::string &Samples,
                                          const std::string &Format) const
{
    for (const auto &[nId, Whole] : m_Samples)
        if (m_Formats.at(nId) == Format && Whole.starts_with(Samples))
            return {nId, Samples.size() == Whole.size()};
    return {0, 0};
}

static std::string Contents(const std::filesystem::path &Path)
{
    std::ifstream File(Path, std::ios::binary);
    return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

// Names of the complete files, "1700000000123456789.22050-16-1", in the order in which
// they were begun.
static std::vector<std::string> FileNames()
{
    std::vector<std::string> Names;
    for (const auto &Entry : std::filesystem::directory_iterator(kFolder))
        if (const std::string Name = Entry.path().filename().string(); !Name.starts_with("part."))
            Names.push_back(Name);
    std::sort(Names.begin(), Names.end());
    return Names;
}

std::vector<cSoundTakes::cTake> cSoundTakes::Takes() const
{
    std::vector<cTake> Found;
    for (const std::string &Name : FileNames())
    {
        const std::string Samples = WithoutSilence(Contents(std::filesystem::path(kFolder) / Name));
        if (Name > m_LastHeard && Samples.size() >= kRecognisable)
            Found.push_back(Recognise(Samples, Name.substr(Name.find('.') + 1)));
    }
    return Found;
}

// Whether the takes are some of the sounds in their order, and the last take is the
// complete last sound.
static int Agree(const std::vector<cSoundTakes::cTake> &Takes, const std::vector<unsigned> &Sounds)
{
    auto Next = Sounds.begin();
    for (const cSoundTakes::cTake &Take : Takes)
    {
        Next = std::find(Next, Sounds.end(), Take.m_nId);
        if (Next == Sounds.end())
            return 0;
        ++Next;
    }
    return !Takes.empty() && Next == Sounds.end() && Takes.back().m_bWhole;
}

int cSoundTakes::Hear(const std::vector<unsigned> &Sounds)
{
    const int bHeard = WaitFor([&] { return Agree(Takes(), Sounds); });
    if (!bHeard)
        MESSAGE("played: ", Played());
    for (const std::string &Name : FileNames())
        m_LastHeard = Name;
    return bHeard;
}

std::string cSoundTakes::Played() const
{
    std::string Text;
    for (const cTake &Take : Takes())
        Text +=
            (Text.empty() ? "" : ", ") + std::to_string(Take.m_nId) + (Take.m_bWhole ? "" : " cut");
    return Text;
}

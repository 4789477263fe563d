#include "toolkit/temporary_names.h"

#include "toolkit/disk_file.h"

// New names are taken from the first one on, so that there are few free ones in between.
static const unsigned kFreeInARow = 10;

std::string TemporaryName(const std::string &Neighbour, unsigned n)
{
    char szName[sizeof "~vorstek.000"];
    snprintf(szName, sizeof szName, "~vorstek.%03u", n % kTemporaryNames);
    return BesideFile(Neighbour.c_str(), szName);
}

void RemoveAbandonedFiles(const std::string &Neighbour)
{
    unsigned nFree = 0;
    for (unsigned i = 0; i < kTemporaryNames && nFree < kFreeInARow; i++)
    {
        const std::string Name = TemporaryName(Neighbour, i);
        nFree                  = IsNameTaken(Name.c_str()) ? 0 : nFree + 1;
        if (nFree == 0)
            RemoveIfAbandoned(Name);
    }
}

#include "toolkit/posix/real_name.h"

#include <climits>
#include <cstdlib>

std::string RealName(const std::string &Name)
{
    char szReal[PATH_MAX];
    return realpath(Name.c_str(), szReal) ? szReal : "";
}

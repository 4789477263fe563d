#include "toolkit/posix/real_name.h"

// The folders of a program are those that it was given, under names of their own.
std::string RealName(const std::string &)
{
    return "";
}

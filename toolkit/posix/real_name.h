// real_name.h - names without links.

#ifndef TOOLKIT_POSIX_REAL_NAME_H
#define TOOLKIT_POSIX_REAL_NAME_H

#include <string>

// The name of an existing file or folder from the root, links followed; "" if there is
// none, or where it cannot be known.
std::string RealName(const std::string &Name);

#endif

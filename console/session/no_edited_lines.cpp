// no_edited_lines.cpp - a program without an editing library.

#include "console/session/line_source.h"

std::unique_ptr<cLineSource> EditedLines(const std::string &, const std::vector<std::string> &,
                                         const std::function<void()> &)
{
    return nullptr;
}

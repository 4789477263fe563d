// completion.h - what the tab key adds to a line.

#ifndef CONSOLE_SESSION_COMPLETION_H
#define CONSOLE_SESSION_COMPLETION_H

#include <string>
#include <vector>

struct cCompletion
{
    std::string              m_Insert;   // what all that fits has in common, further on
    std::vector<std::string> m_Choices;  // what fits, in alphabetical order
};

// Line is what stands left of the cursor. Its last word is completed to one of Words, in
// upper or lower case, after "load" and "save" to the name of a file. A word that is the
// only one gets a blank. Words with a blank, such as "CL REG", complete a line that has
// the first half of them.
cCompletion FindCompletion(const std::string &Line, const std::vector<std::string> &Words);

#endif

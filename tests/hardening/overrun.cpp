// overrun - a program that writes past the end of an array, to see it ended for that.

#include <cstring>

// Through pointers that the compiler knows nothing of.
static char *volatile s_pEnd;
static volatile size_t s_nBytes = 64;

static int Overrun()
{
    char buffer[8];
    s_pEnd = buffer;
    memset(s_pEnd, 'x', s_nBytes);
    return buffer[0];
}

int main()
{
    return Overrun() == 'x' ? 0 : 1;
}

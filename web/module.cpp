// module.cpp - what the worker calls. It calls "start" once, then "serve" whenever a
// request waits and the module is not suspended.

#include <cstdlib>
#include <exception>

#include "web/web_calculator.h"
#include "web/worker_calls.h"

static cWebCalculator *s_pCalculator;

// Nothing can be done without memory: the worker reports the end of the module.
static void EndWithoutMemory()
{
    static const char s_szEvent[] = "{\"type\":\"failed\",\"text\":\"not enough memory\"}";
    PostEvent(s_szEvent, sizeof s_szEvent - 1);
    abort();
}

// Where the module keeps its stack while it is suspended: two pointers, to the first free
// byte and to the end, then room. The deepest stacks need some kilobytes of it.
static const size_t kSuspendedRoom = 65536;

static struct
{
    char *m_pFree;
    char *m_pEnd;
    char  m_Room[kSuspendedRoom];
} s_Suspended = {s_Suspended.m_Room, s_Suspended.m_Room + kSuspendedRoom, {}};

extern "C"
{
    WEB_EXPORT("start") void Start();
    WEB_EXPORT("serve") void Serve();
    WEB_EXPORT("suspendedStack") const void *SuspendedStack();
}

const void *SuspendedStack()
{
    return &s_Suspended;
}

void Start()
{
    std::set_terminate(EndWithoutMemory);
    s_pCalculator = new cWebCalculator;
    s_pCalculator->Start();
}

void Serve()
{
    s_pCalculator->Serve();
}

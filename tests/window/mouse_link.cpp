#include "tests/window/mouse_link.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/probe_link.h"
#include "tests/window/waiting.h"

// Whether the system has the pointer at this position, where the next click will be,
// or as near as the pointer may come: the drag of a window that has its least size
// confines it. The system's list of positions begins with the newest one, so a search
// for the newest position finds the complete list.
static int HasArrived(POINT Position)
{
    const int      kListed = 64;
    RECT           Allowed = {};
    MOUSEMOVEPOINT Place   = {};
    MOUSEMOVEPOINT Found[kListed];
    GetClipCursor(&Allowed);
    Place.x = std::clamp(Position.x, Allowed.left, Allowed.right - 1);
    Place.y = std::clamp(Position.y, Allowed.top, Allowed.bottom - 1);
    return GetMouseMovePointsEx(sizeof Place, &Place, Found, kListed, GMMP_USE_DISPLAY_POINTS) ==
           kListed;
}

cMouseLink::cMouseLink() : m_nSocket(INVALID_SOCKET)
{
    const char *const szPort = getenv("VORSTEK_MOUSE");
    if (!szPort)
        return;
    WSADATA Ignored = {};
    REQUIRE(WSAStartup(MAKEWORD(2, 2), &Ignored) == 0);
    sockaddr_in Address     = {};
    Address.sin_family      = AF_INET;
    Address.sin_port        = htons(static_cast<u_short>(atoi(szPort)));
    Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_nSocket               = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    REQUIRE(connect(m_nSocket, reinterpret_cast<sockaddr *>(&Address), sizeof Address) == 0);
}

cMouseLink::~cMouseLink()
{
    if (!IsOpen())
        return;
    closesocket(m_nSocket);
    WSACleanup();
}

void cMouseLink::MoveTo(POINT Position) const
{
    if (!IsOpen())
    {
        SetCursorPos(Position.x, Position.y);
        return;
    }
    Send(Position);
    cProbeLink::Current()->HearScreen();
    if (HasArrived(Position))
        return;

    // A program has reported an earlier position late. The screen does not report the
    // same position twice, so the pointer moves away and back.
    REQUIRE(WaitFor([&] {
        Send({Position.x, Position.y > 0 ? Position.y - 1 : 1});
        Send(Position);
        cProbeLink::Current()->HearScreen();
        return HasArrived(Position);
    }));
}

// Returns when the screen has sent the event to the programs, which handle it later.
void cMouseLink::Send(POINT Position) const
{
    char      szLine[40];
    const int nLength = snprintf(szLine, sizeof szLine, "%ld %ld\n", Position.x, Position.y);
    REQUIRE(send(m_nSocket, szLine, nLength, 0) == nLength);
    REQUIRE(recv(m_nSocket, szLine, 1, 0) == 1);
}

const cMouseLink *cMouseLink::Current()
{
    static const cMouseLink s_Link;
    return &s_Link;
}

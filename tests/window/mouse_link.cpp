#include "tests/window/mouse_link.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/probe_link.h"
#include "tests/window/waiting.h"

// Whether the system, which every click asks where it falls, has the pointer
// there, or as near as it may come: a window that is dragged to its least size
// holds it. The system's list of places begins with the newest one; what is
// found from a place on is the whole list if that is the newest.
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

    // A program has reported late where the mouse was before. The screen does
    // not tell a place twice, so the mouse leaves it and comes again.
    REQUIRE(WaitFor([&] {
        Send({Position.x, Position.y > 0 ? Position.y - 1 : 1});
        Send(Position);
        cProbeLink::Current()->HearScreen();
        return HasArrived(Position);
    }));
}

// Returns when the screen has told the programs; they listen in their own time.
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

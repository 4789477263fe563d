#include "toolkit/win32/window_class.h"

WNDCLASSA DescribeClass(const char *szName, WNDPROC pfnProc)
{
    WNDCLASSA Class     = {};
    Class.lpfnWndProc   = pfnProc;
    Class.hInstance     = ProgramInstance();
    Class.hCursor       = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    Class.lpszClassName = szName;
    return Class;
}

int cWindowClass::Acquire(const WNDCLASSA &Class)
{
    if (!m_bRegistered && !RegisterClassA(&Class))
        return 0;
    m_bRegistered = 1;
    m_nObjects++;
    return 1;
}

void cWindowClass::Release(const char *szName)
{
    m_nObjects--;
    if (m_nObjects == 0 && UnregisterClassA(szName, ProgramInstance()))
        m_bRegistered = 0;
}

cWindowClassShare::~cWindowClassShare()
{
    if (m_szName)
        m_pClass->Release(m_szName);
}

int cWindowClassShare::Acquire(const WNDCLASSA &Class)
{
    if (!m_pClass->Acquire(Class))
        return 0;
    m_szName = Class.lpszClassName;
    return 1;
}

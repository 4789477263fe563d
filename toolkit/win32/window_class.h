// window_class.h - registers a window class while objects of it live: the first
// one registers it, the last one takes it back.
//
//     cWindowClass cKeypad::s_Class;         // one for the class
//     cWindowClassShare m_ClassShare;        // one in each object, of s_Class

#ifndef TOOLKIT_WINDOW_CLASS_H
#define TOOLKIT_WINDOW_CLASS_H

#include "toolkit/win32/win32.h"

class cWindowClass
{
public:
    // Counts one more object, and registers Class if it is the first. 0, and
    // nothing is counted, if the platform refuses.
    int Acquire(const WNDCLASSA &Class);

    // Counts one object less. The last one unregisters szName; should a window
    // have outlived its object, the class stays for the next first one.
    void Release(const char *szName);

private:
    unsigned m_nObjects    = 0;
    int      m_bRegistered = 0;
};

// What one object holds of its window class, until it is destroyed.
class cWindowClassShare
{
public:
    explicit cWindowClassShare(cWindowClass *pClass) : m_pClass(pClass), m_szName(nullptr) {}
    ~cWindowClassShare();
    cWindowClassShare(const cWindowClassShare &)            = delete;
    cWindowClassShare &operator=(const cWindowClassShare &) = delete;

    // Once per object, before its window is created. 0 if the class could not
    // be registered. Class.lpszClassName is kept, not copied.
    int Acquire(const WNDCLASSA &Class);

private:
    cWindowClass *m_pClass;
    const char   *m_szName;  // null until acquired
};

#endif

// window_class.h - registers a window class while it has objects: the first object
// registers the class, the last one unregisters it.
//
//     cWindowClass cKeypad::s_Class;         // one for the class
//     cWindowClassShare m_ClassShare;        // one in each object, of s_Class

#ifndef TOOLKIT_WIN32_WINDOW_CLASS_H
#define TOOLKIT_WIN32_WINDOW_CLASS_H

#include "toolkit/win32/win32.h"

// The description of a class of this program, with the arrow as its cursor.
WNDCLASSA DescribeClass(const char *szName, WNDPROC pfnProc);

class cWindowClass
{
public:
    // Counts one more object, and registers Class for the first one. 0, with
    // nothing counted, if registration fails.
    int Acquire(const WNDCLASSA &Class);

    // Counts one object less and unregisters szName after the last one. If a
    // window has outlived its object, the class stays registered and is reused.
    void Release(const char *szName);

private:
    unsigned m_nObjects    = 0;
    int      m_bRegistered = 0;
};

// One object's share in its window class, from Acquire until the object is
// destroyed.
class cWindowClassShare
{
public:
    explicit cWindowClassShare(cWindowClass *pClass) : m_pClass(pClass), m_szName(nullptr) {}
    ~cWindowClassShare();
    cWindowClassShare(const cWindowClassShare &)            = delete;
    cWindowClassShare &operator=(const cWindowClassShare &) = delete;

    // Call this once per object, before its window is created. 0 if the class
    // could not be registered. Class.lpszClassName is kept, not copied.
    int Acquire(const WNDCLASSA &Class);

private:
    cWindowClass *m_pClass;
    const char   *m_szName;  // null until acquired
};

#endif

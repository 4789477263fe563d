// owned_handle.h - an owner for a handle of the platform. It frees the handle at
// the end of its life, can be moved, and is never copied.
//
//     cMenu Menu(LoadMenuA(ProgramInstance(), MAKEINTRESOURCEA(IDR_MENU)));
//     if (!Menu)
//         return 0;
//     ... GetSubMenu(Menu.Get(), 0) ...

#ifndef TOOLKIT_WIN32_OWNED_HANDLE_H
#define TOOLKIT_WIN32_OWNED_HANDLE_H

#include "toolkit/win32/win32.h"

#include <utility>

// cFree has a static function Free(cHandle), which is never called with null.
template <class cHandle, class cFree> class cOwnedHandle
{
public:
    cOwnedHandle() : m_hHandle(nullptr) {}

    // Takes over a handle; null, as after a failed creation, means that there is none.
    explicit cOwnedHandle(cHandle hHandle) : m_hHandle(hHandle) {}

    ~cOwnedHandle() { Reset(); }
    cOwnedHandle(const cOwnedHandle &)            = delete;
    cOwnedHandle &operator=(const cOwnedHandle &) = delete;

    // The source is left without a handle. Moving an owner to itself changes
    // nothing.
    cOwnedHandle(cOwnedHandle &&Other) noexcept : m_hHandle(Other.Release()) {}
    cOwnedHandle &operator=(cOwnedHandle &&Other) noexcept
    {
        Reset(Other.Release());
        return *this;
    }

    explicit operator bool() const { return m_hHandle != nullptr; }

    cHandle Get() const { return m_hHandle; }

    // Frees the handle and takes over another one, or none for null.
    void Reset(cHandle hHandle = nullptr)
    {
        const cHandle hPrevious = std::exchange(m_hHandle, hHandle);
        if (hPrevious && hPrevious != hHandle)
            cFree::Free(hPrevious);
    }

    // Gives the handle up without freeing it.
    cHandle Release() { return std::exchange(m_hHandle, nullptr); }

private:
    cHandle m_hHandle;
};

// A menu that is not attached to a window.
struct cFreeMenu
{
    static void Free(HMENU hMenu) { DestroyMenu(hMenu); }
};
using cMenu = cOwnedHandle<HMENU, cFreeMenu>;

// Global memory, such as the printer settings that a dialog returns.
struct cFreeGlobalMemory
{
    static void Free(HGLOBAL hMemory) { GlobalFree(hMemory); }
};
using cGlobalMemory = cOwnedHandle<HGLOBAL, cFreeGlobalMemory>;

// A library loaded by LoadLibrary.
struct cFreeModule
{
    static void Free(HMODULE hModule) { FreeLibrary(hModule); }
};
using cModule = cOwnedHandle<HMODULE, cFreeModule>;

#endif

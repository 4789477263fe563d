#include "shell/win32/keypad_accessibility.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "engine/display.h"
#include "shell/face_geometry.h"
#include "shell/key_names.h"
#include "shell/win32/button_array.h"
#include "toolkit/win32/accessible.h"

static const UINT_PTR kAskedId      = 3;
static const LONG     kDisplayChild = static_cast<LONG>(kFaceCodes) + 1;

static const size_t kShownText = kDisplayLines * kDisplayText;

// COM's interfaces have no virtual destructor: Release() deletes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The object that programs hold. It may outlive the keypad; then it has nothing to say.
class cKeypadAccessible : public IAccessible
{
public:
    explicit cKeypadAccessible(cButtonArray *pKeypad)
        : m_nReferences(1), m_pKeypad(pKeypad), m_szShown(""), m_szTold("")
    {
    }
    virtual ~cKeypadAccessible() = default;

    void Disconnect() { m_pKeypad = nullptr; }
    void SetShown(const char *szText, int bTell);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Interface, void **ppObject) override;
    ULONG STDMETHODCALLTYPE   AddRef() override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE   Release() override;

    // Scripts find the names of the functions through the platform's own proxy.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *pCount) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *,
                                     EXCEPINFO *, UINT *) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch **ppParent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(long *pCount) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT Child, IDispatch **ppChild) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT Child, BSTR *pName) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT Child, BSTR *pValue) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT Child, BSTR *pText) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT Child, VARIANT *pRole) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT Child, VARIANT *pState) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR *pText) override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR *pFile, VARIANT, long *pTopic) override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT Child, BSTR *pKey) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT *pChild) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT *pChildren) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT Child, BSTR *pAction) override;
    HRESULT STDMETHODCALLTYPE accSelect(long nFlags, VARIANT Child) override;
    HRESULT STDMETHODCALLTYPE accLocation(long *pLeft, long *pTop, long *pWidth, long *pHeight,
                                          VARIANT Child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(long, VARIANT, VARIANT *pEnd) override;
    HRESULT STDMETHODCALLTYPE accHitTest(long nLeft, long nTop, VARIANT *pChild) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT Child) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

private:
    HRESULT Check(const VARIANT &Child) const;
    RECT    RectOfChild(LONG nChild) const;

    ULONG         m_nReferences;  // counted by the window's thread only
    cButtonArray *m_pKeypad;
    char          m_szShown[kShownText];
    char          m_szTold[kShownText];
};

#pragma GCC diagnostic pop

// --- what a child is

static int IsKey(LONG nChild)
{
    return nChild >= 1 && nChild <= kFaceKeys;
}

static int IsSwitch(LONG nChild)
{
    return nChild > kFaceKeys && nChild < kDisplayChild;
}

static unsigned CodeOf(LONG nChild)
{
    return static_cast<unsigned>(nChild);
}

static const cSwitchName &SwitchOf(LONG nChild)
{
    return kSwitchNames[nChild - kFaceKeys - 1];
}

static LONG RoleOf(LONG nChild)
{
    if (nChild == CHILDID_SELF)
        return ROLE_SYSTEM_GROUPING;
    if (nChild == kDisplayChild)
        return ROLE_SYSTEM_TEXT;
    return IsKey(nChild) ? ROLE_SYSTEM_PUSHBUTTON : ROLE_SYSTEM_CHECKBUTTON;
}

static void PutNumber(VARIANT *pResult, LONG nValue)
{
    pResult->vt   = VT_I4;
    pResult->lVal = nValue;
}

// S_FALSE without a text, as the interface wants it.
static HRESULT PutText(BSTR *pResult, const char *szText)
{
    *pResult = szText[0] ? AccessibleText(szText) : nullptr;
    if (!szText[0])
        return S_FALSE;
    return *pResult ? S_OK : E_OUTOFMEMORY;
}

// --- references

HRESULT cKeypadAccessible::QueryInterface(REFIID Interface, void **ppObject)
{
    *ppObject = nullptr;
    if (!IsEqualIID(Interface, __uuidof(IUnknown)) && !IsEqualIID(Interface, __uuidof(IDispatch)) &&
        !IsEqualIID(Interface, __uuidof(IAccessible)))
        return E_NOINTERFACE;
    *ppObject = static_cast<IAccessible *>(this);
    AddRef();
    return S_OK;
}

ULONG cKeypadAccessible::Release()
{
    const ULONG nLeft = --m_nReferences;
    if (nLeft == 0)
        delete this;
    return nLeft;
}

HRESULT cKeypadAccessible::GetTypeInfoCount(UINT *pCount)
{
    *pCount = 0;
    return S_OK;
}

// --- the object

void cKeypadAccessible::SetShown(const char *szText, int bTell)
{
    snprintf(m_szShown, sizeof m_szShown, "%s", szText);
    if (!bTell || !m_pKeypad || strcmp(m_szShown, m_szTold) == 0)
        return;
    snprintf(m_szTold, sizeof m_szTold, "%s", szText);
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, m_pKeypad->Window(), OBJID_CLIENT, kDisplayChild);
}

HRESULT cKeypadAccessible::Check(const VARIANT &Child) const
{
    if (!m_pKeypad || !m_pKeypad->Window())
        return CO_E_OBJNOTCONNECTED;
    const int bValid = Child.vt == VT_I4 && Child.lVal >= 0 && Child.lVal <= kDisplayChild;
    return bValid ? S_OK : E_INVALIDARG;
}

RECT cKeypadAccessible::RectOfChild(LONG nChild) const
{
    RECT Rect = {};
    if (nChild == CHILDID_SELF)
        GetClientRect(m_pKeypad->Window(), &Rect);
    else if (nChild == kDisplayChild)
        Rect = m_pKeypad->DisplayRect();
    else
        Rect = m_pKeypad->RectOf(CodeOf(nChild));
    MapWindowPoints(m_pKeypad->Window(), nullptr, reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

HRESULT cKeypadAccessible::get_accParent(IDispatch **ppParent)
{
    *ppParent = nullptr;
    return m_pKeypad ? ObjectOfWindow(m_pKeypad->Window(), ppParent) : CO_E_OBJNOTCONNECTED;
}

HRESULT cKeypadAccessible::get_accChildCount(long *pCount)
{
    *pCount = kDisplayChild;
    return S_OK;
}

HRESULT cKeypadAccessible::get_accChild(VARIANT Child, IDispatch **ppChild)
{
    *ppChild              = nullptr;
    const HRESULT nResult = Check(Child);
    return nResult == S_OK ? S_FALSE : nResult;  // a number, not an object of its own
}

HRESULT cKeypadAccessible::get_accName(VARIANT Child, BSTR *pName)
{
    *pName                = nullptr;
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK)
        return nResult;
    if (Child.lVal == CHILDID_SELF)
        return PutText(pName, "calculator");
    return PutText(pName, Child.lVal == kDisplayChild ? "display" : SpokenName(CodeOf(Child.lVal)));
}

HRESULT cKeypadAccessible::get_accValue(VARIANT Child, BSTR *pValue)
{
    *pValue               = nullptr;
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK)
        return nResult;
    if (Child.lVal == kDisplayChild)
        return PutText(pValue, m_szShown);
    if (!IsSwitch(Child.lVal))
        return S_FALSE;
    const cSwitchName &Name = SwitchOf(Child.lVal);
    return PutText(pValue, m_pKeypad->IsRight(CodeOf(Child.lVal)) ? Name.m_szRight : Name.m_szLeft);
}

HRESULT cKeypadAccessible::get_accDescription(VARIANT Child, BSTR *pText)
{
    *pText                = nullptr;
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK || !(IsKey(Child.lVal) || IsSwitch(Child.lVal)))
        return nResult == S_OK ? S_FALSE : nResult;
    char szText[kKeyDescription];
    DescribeKey(CodeOf(Child.lVal), szText);
    return PutText(pText, szText);
}

HRESULT cKeypadAccessible::get_accRole(VARIANT Child, VARIANT *pRole)
{
    const HRESULT nResult = Check(Child);
    pRole->vt             = VT_EMPTY;
    if (nResult == S_OK)
        PutNumber(pRole, RoleOf(Child.lVal));
    return nResult;
}

HRESULT cKeypadAccessible::get_accState(VARIANT Child, VARIANT *pState)
{
    const HRESULT nResult = Check(Child);
    pState->vt            = VT_EMPTY;
    if (nResult != S_OK)
        return nResult;
    LONG nState = Child.lVal == kDisplayChild ? STATE_SYSTEM_READONLY : STATE_SYSTEM_FOCUSABLE;
    if (IsSwitch(Child.lVal) && m_pKeypad->IsRight(CodeOf(Child.lVal)))
        nState |= STATE_SYSTEM_CHECKED;
    if (Child.lVal != CHILDID_SELF && m_pKeypad->Ring() == CodeOf(Child.lVal))
        nState |= STATE_SYSTEM_FOCUSED;
    PutNumber(pState, nState);
    return S_OK;
}

HRESULT cKeypadAccessible::get_accHelp(VARIANT, BSTR *pText)
{
    *pText = nullptr;
    return S_FALSE;
}

HRESULT cKeypadAccessible::get_accHelpTopic(BSTR *pFile, VARIANT, long *pTopic)
{
    *pFile  = nullptr;
    *pTopic = 0;
    return S_FALSE;
}

HRESULT cKeypadAccessible::get_accKeyboardShortcut(VARIANT Child, BSTR *pKey)
{
    *pKey                 = nullptr;
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK || !(IsKey(Child.lVal) || IsSwitch(Child.lVal)))
        return nResult == S_OK ? S_FALSE : nResult;
    return PutText(pKey, PcKeyOf(CodeOf(Child.lVal)));
}

HRESULT cKeypadAccessible::get_accFocus(VARIANT *pChild)
{
    pChild->vt = VT_EMPTY;
    if (!m_pKeypad || !m_pKeypad->Ring())
        return S_FALSE;
    PutNumber(pChild, static_cast<LONG>(m_pKeypad->Ring()));
    return S_OK;
}

HRESULT cKeypadAccessible::get_accSelection(VARIANT *pChildren)
{
    pChildren->vt = VT_EMPTY;
    return S_FALSE;
}

HRESULT cKeypadAccessible::get_accDefaultAction(VARIANT Child, BSTR *pAction)
{
    *pAction              = nullptr;
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK || !(IsKey(Child.lVal) || IsSwitch(Child.lVal)))
        return nResult == S_OK ? S_FALSE : nResult;
    return PutText(pAction, IsKey(Child.lVal) ? "press" : "switch");
}

HRESULT cKeypadAccessible::accSelect(long nFlags, VARIANT Child)
{
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK)
        return nResult;
    if (nFlags != SELFLAG_TAKEFOCUS || !(IsKey(Child.lVal) || IsSwitch(Child.lVal)))
        return E_INVALIDARG;
    m_pKeypad->SetRing(CodeOf(Child.lVal));
    return S_OK;
}

HRESULT cKeypadAccessible::accLocation(long *pLeft, long *pTop, long *pWidth, long *pHeight,
                                       VARIANT Child)
{
    *pLeft = *pTop = *pWidth = *pHeight = 0;
    const HRESULT nResult               = Check(Child);
    if (nResult != S_OK)
        return nResult;
    const RECT Rect = RectOfChild(Child.lVal);
    *pLeft          = Rect.left;
    *pTop           = Rect.top;
    *pWidth         = Rect.right - Rect.left;
    *pHeight        = Rect.bottom - Rect.top;
    return S_OK;
}

HRESULT cKeypadAccessible::accNavigate(long, VARIANT, VARIANT *pEnd)
{
    pEnd->vt = VT_EMPTY;
    return S_FALSE;  // the children's numbers lead to their neighbours
}

// Keys and switches come before the display, whose rectangle reaches to the switches.
HRESULT cKeypadAccessible::accHitTest(long nLeft, long nTop, VARIANT *pChild)
{
    VARIANT Self = {};
    PutNumber(&Self, CHILDID_SELF);
    pChild->vt            = VT_EMPTY;
    const HRESULT nResult = Check(Self);
    if (nResult != S_OK)
        return nResult;
    for (LONG nChild = 1; nChild <= kDisplayChild + 1; nChild++)
    {
        const LONG nTried = nChild > kDisplayChild ? CHILDID_SELF : nChild;
        const RECT Rect   = RectOfChild(nTried);
        if (PtInRect(&Rect, {nLeft, nTop}))
        {
            PutNumber(pChild, nTried);
            return S_OK;
        }
    }
    return S_FALSE;
}

HRESULT cKeypadAccessible::accDoDefaultAction(VARIANT Child)
{
    const HRESULT nResult = Check(Child);
    if (nResult != S_OK)
        return nResult;
    if (!IsKey(Child.lVal) && !IsSwitch(Child.lVal))
        return DISP_E_MEMBERNOTFOUND;
    // A key may start a run or open a box, which the asking program need not wait for.
    PostMessageA(m_pKeypad->Window(), kPressMessage, CodeOf(Child.lVal), 0);
    return S_OK;
}

// --- the keypad's side

cKeypadAccessibility::cKeypadAccessibility() : m_pAccessible(nullptr) {}

cKeypadAccessibility::~cKeypadAccessibility()
{
    if (!m_pAccessible)
        return;
    m_pAccessible->Disconnect();
    m_pAccessible->Release();
}

int cKeypadAccessibility::Create(cButtonArray *pKeypad)
{
    m_pAccessible = new (std::nothrow) cKeypadAccessible(pKeypad);
    return m_pAccessible && SetWindowSubclass(pKeypad->Window(), AskedProc, kAskedId,
                                              reinterpret_cast<DWORD_PTR>(m_pAccessible));
}

LRESULT CALLBACK cKeypadAccessibility::AskedProc(HWND hWnd, UINT nMessage, WPARAM wParam,
                                                 LPARAM lParam, UINT_PTR, DWORD_PTR dwAccessible)
{
    auto *const pAccessible = reinterpret_cast<cKeypadAccessible *>(dwAccessible);
    if (nMessage == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT)
        return AnswerGetObject(wParam, pAccessible);
    if (nMessage == WM_NCDESTROY)
        RemoveWindowSubclass(hWnd, AskedProc, kAskedId);
    return DefSubclassProc(hWnd, nMessage, wParam, lParam);
}

// The blanks that fill a field are not worth hearing.
static void AppendLine(char (&szText)[kShownText], const char *szLine)
{
    const size_t nText   = strlen(szText);
    size_t       nLength = strlen(szLine);
    while (*szLine == ' ')
        szLine++, nLength--;
    while (nLength && szLine[nLength - 1] == ' ')
        nLength--;
    if (nLength)
        snprintf(szText + nText, sizeof szText - nText, "%s%.*s", nText ? "\n" : "",
                 static_cast<int>(nLength), szLine);
}

void cKeypadAccessibility::SetDisplay(const cDisplay &Display, int bTell)
{
    if (!m_pAccessible)
        return;
    char szText[kShownText] = "";
    for (int i = 0; i < Display.m_nLines; i++)
        AppendLine(szText, Display.m_Lines[i].m_szText);
    m_pAccessible->SetShown(szText, bTell);
}

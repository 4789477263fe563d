#include "graph/win32/graph_dialog.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <new>

#include "graph/field_text.h"
#include "graph/plot_ticks.h"
#include "toolkit/retry_alloc.h"
#include "toolkit/win32/center_window.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/memory_guard.h"
#include "toolkit/win32/modal_guard.h"

void cGraphDialog::Run(int nTemplate)
{
    const HWND        hOwner = GetAncestor(m_pBox->Window(), GA_ROOT);
    const cModalGuard Others(hOwner);
    DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(nTemplate), hOwner, &DialogProc,
                    reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK cGraphDialog::DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_INITDIALOG)
    {
        auto *const pNew = reinterpret_cast<cGraphDialog *>(lParam);
        SetWindowLongPtrA(hDialog, DWLP_USER, lParam);
        pNew->m_hDialog = hDialog;
        CenterWindow(hDialog);
        pNew->LimitFields();
        pNew->OnInit();
        return TRUE;
    }
    auto *const pDialog = reinterpret_cast<cGraphDialog *>(GetWindowLongPtrA(hDialog, DWLP_USER));
    if (!pDialog)
        return FALSE;
    return EndWithoutMemory([&] { return pDialog->OnMessage(nMessage, wParam, lParam); });
}

INT_PTR cGraphDialog::OnMessage(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    switch (nMessage)
    {
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_DRAWITEM:
        DrawSample(*reinterpret_cast<const DRAWITEMSTRUCT *>(lParam));
        return TRUE;
    default:
        return FALSE;
    }
}

void cGraphDialog::OnCommand(int nId, int nNotification)
{
    if (nId == IDCANCEL || (nId == IDOK && OnOk()))
        EndDialog(m_hDialog, nId);
    else if (nId != IDOK)
        OnControl(nId, nNotification);
}

void cGraphDialog::DrawSample(const DRAWITEMSTRUCT &Item) const
{
    const cGdiBrush Brush(CreateSolidBrush(SampleColour()));
    FillRect(Item.hDC, &Item.rcItem, Brush.Get());
}

// The length of a multi-line text is limited only by memory.
void cGraphDialog::LimitFields() const
{
    for (HWND hField = FindWindowExA(m_hDialog, nullptr, "Edit", nullptr); hField;
         hField      = FindWindowExA(m_hDialog, hField, "Edit", nullptr))
    {
        const int bLong = (GetWindowLongPtrA(hField, GWL_STYLE) & ES_MULTILINE) != 0;
        SendMessageA(hField, EM_SETLIMITTEXT, bLong ? 0 : kFieldText - 1, 0);
    }
}

// --- the fields

void cGraphDialog::SetText(int nId, const char *szText) const
{
    char szShown[kFieldText];
    snprintf(szShown, sizeof szShown, "%s", szText);
    SetDlgItemTextA(m_hDialog, nId, szShown);
}

void cGraphDialog::SetUnsigned(int nId, uint32_t nValue) const
{
    SetDlgItemInt(m_hDialog, nId, nValue, FALSE);
}

void cGraphDialog::SetNumber(int nId, float fValue) const
{
    char szValue[kValueText];
    FormatValue(static_cast<double>(fValue), szValue);
    SetDlgItemTextA(m_hDialog, nId, szValue);
}

void cGraphDialog::SetChecked(int nId, int bChecked) const
{
    CheckDlgButton(m_hDialog, nId, bChecked ? BST_CHECKED : BST_UNCHECKED);
}

void cGraphDialog::GetText(int nId, char (&szText)[kFieldText]) const
{
    szText[0] = '\0';
    GetDlgItemTextA(m_hDialog, nId, szText, sizeof szText);
}

int cGraphDialog::GetUnsigned(int nId, uint32_t nLeast, uint32_t nMost, uint32_t *pValue) const
{
    char szText[kFieldText];
    GetText(nId, szText);
    return ReadUnsignedField(szText, nLeast, nMost, pValue);
}

int cGraphDialog::GetNumber(int nId, float *pValue) const
{
    char szText[kFieldText];
    GetText(nId, szText);
    return ReadNumberField(szText, pValue);
}

int cGraphDialog::IsChecked(int nId) const
{
    return IsDlgButtonChecked(m_hDialog, nId) == BST_CHECKED;
}

int cGraphDialog::GetLine(int nId, uint32_t *pnLine) const
{
    return GetUnsigned(nId, 1, m_pBox->Count(), pnLine);
}

const cVantorDataSet *cGraphDialog::FindLine(int nId, const char *szMissing) const
{
    uint32_t nLine = 0;
    if (!GetLine(nId, &nLine))
        return nullptr;
    const cVantorDataSet *const pSet = m_pBox->DataSet(nLine);
    if (!pSet)
        Say(szMissing);
    return pSet;
}

void cGraphDialog::SetSpinRange(int nSpinId, uint32_t nLeast, uint32_t nMost) const
{
    SendDlgItemMessageA(m_hDialog, nSpinId, UDM_SETRANGE32, nLeast, static_cast<LPARAM>(nMost));
}

void cGraphDialog::SetLineSpinRange(int nSpinId) const
{
    SetSpinRange(nSpinId, 1, std::clamp<uint32_t>(m_pBox->Count(), 1, INT_MAX));
}

std::unique_ptr<char[]> cGraphDialog::GetLongText(int nId) const
{
    const HWND hField = GetDlgItem(m_hDialog, nId);
    const int  nSize  = GetWindowTextLengthA(hField) + 1;
    auto       pText  = AllocateWithRetry(m_pBox->Boxes(), [nSize] {
        return std::unique_ptr<char[]>(new (std::nothrow) char[static_cast<size_t>(nSize)]);
    });
    if (!pText)
        return nullptr;
    pText[0] = '\0';
    GetWindowTextA(hField, pText.get(), nSize);
    return pText;
}

void cGraphDialog::Say(const char *szText) const
{
    m_pBox->Boxes()->Ask(szText, nullptr, bnOk, icNone);
}

int cGraphDialog::Refuse(int nId, const char *szText) const
{
    Say(szText);
    const HWND hField = GetDlgItem(m_hDialog, nId);
    SendMessageA(m_hDialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(hField), TRUE);
    SendMessageA(hField, EM_SETSEL, 0, -1);
    return 0;
}

// --- types and styles

uint32_t DrawnType(const cVantorDataSet &Set)
{
    const uint32_t nPlot = gtPlot;
    return Set.m_nGraphType <= gtStoop ? Set.m_nGraphType : nPlot;
}

const cVantorStyle *StylesOf(uint32_t nGraphType)
{
    return nGraphType == gtScatter ? kMarkerStyles : kLineStyles;
}

const char *StyleName(const cVantorDataSet &Set)
{
    const cVantorStyle *const pStyles = StylesOf(Set.m_nGraphType);
    for (int i = 0; i < kStyles; i++)
        if (pStyles[i].m_nValue == Set.m_nStyle)
            return pStyles[i].m_szName;
    return nullptr;
}

#include "toolkit/win32/win32.h"

#include "graph/field_text.h"
#include "graph/win32/graph_dialog.h"
#include "graph/win32/graph_export.h"
#include "resources/resource.h"

static const uint32_t kMostPixels = 1600;

// The depths of a bitmap file, in the order of the combo box.
static const struct
{
    uint32_t    m_nBits;
    const char *m_szText;
} kDepths[] = {{1, "1   (monochrome)"},
               {4, "4   (16 colors)"},
               {8, "8   (256 colors)"},
               {16, "16  (thousands of colors)"},
               {24, "24  (millions of colors)"}};

namespace
{

class cImageSizeDialog : public cGraphDialog
{
public:
    cImageSizeDialog(cVantorBox *pBox, eImageKind nKind, cImageChoice *pChoice)
        : cGraphDialog(pBox), m_nKind(nKind), m_pChoice(pChoice), m_bOk(0)
    {
    }

    int IsOk() const { return m_bOk; }

private:
    void OnInit() override;
    int  OnOk() override;

    int ReadWidth(int *pnWidth) const;
    int ReadHeight(int *pnHeight) const;
    int ReadDepth(uint32_t *pnBits) const;

    eImageKind    m_nKind;
    cImageChoice *m_pChoice;
    int           m_bOk;
};

}  // namespace

void cImageSizeDialog::OnInit()
{
    SetSpinRange(IDC_IMAGE_WIDTH_SPIN, 1, kMostPixels);
    SetSpinRange(IDC_IMAGE_HEIGHT_SPIN, 1, kMostPixels);
    SetUnsigned(IDC_IMAGE_WIDTH, static_cast<uint32_t>(m_pChoice->m_nWidth));
    SetDlgItemInt(m_hDialog, IDC_IMAGE_HEIGHT, static_cast<UINT>(m_pChoice->m_nHeight), TRUE);
    const uint32_t nShown = m_nKind == ikBmp ? m_pChoice->m_nBits : kGifBits;
    for (const auto &Depth : kDepths)
    {
        const LRESULT nRow = SendDlgItemMessageA(m_hDialog, IDC_IMAGE_DEPTH, CB_ADDSTRING, 0,
                                                 reinterpret_cast<LPARAM>(Depth.m_szText));
        if (Depth.m_nBits == nShown)
            SendDlgItemMessageA(m_hDialog, IDC_IMAGE_DEPTH, CB_SETCURSEL, static_cast<WPARAM>(nRow),
                                0);
    }
    EnableWindow(GetDlgItem(m_hDialog, IDC_IMAGE_DEPTH), m_nKind == ikBmp);
}

int cImageSizeDialog::ReadWidth(int *pnWidth) const
{
    uint32_t nWidth = 0;
    if (!GetUnsigned(IDC_IMAGE_WIDTH, 0, UINT32_MAX, &nWidth))
        return Refuse(IDC_IMAGE_WIDTH, "ERROR: your \"Width\" value produced an error");
    if (nWidth > kMostPixels)
        return Refuse(IDC_IMAGE_WIDTH, "ERROR: your \"Width\" value was out of range");
    *pnWidth = static_cast<int>(nWidth);
    return 1;
}

// Deliberately accepts a sign, unlike the width: a height below 0 passes here.
int cImageSizeDialog::ReadHeight(int *pnHeight) const
{
    char szText[kFieldText];
    GetText(IDC_IMAGE_HEIGHT, szText);
    if (!ReadSignedField(szText, pnHeight))
        return Refuse(IDC_IMAGE_HEIGHT, "ERROR: your \"Height\" value produced an error");
    if (*pnHeight > static_cast<int>(kMostPixels))
        return Refuse(IDC_IMAGE_HEIGHT, "ERROR: your \"Height\" value was out of range");
    return 1;
}

// The user may have typed any text; only the number at its start counts.
int cImageSizeDialog::ReadDepth(uint32_t *pnBits) const
{
    char szText[kFieldText];
    GetText(IDC_IMAGE_DEPTH, szText);
    const uint32_t nBits = ReadLeadingInteger(szText);
    for (const auto &Depth : kDepths)
        if (Depth.m_nBits == nBits)
        {
            *pnBits = nBits;
            return 1;
        }
    return Refuse(IDC_IMAGE_DEPTH, "ERROR: your \"Bits Per Pixel\" value produced an error");
}

int cImageSizeDialog::OnOk()
{
    cImageChoice Read = *m_pChoice;
    if (!ReadWidth(&Read.m_nWidth) || !ReadHeight(&Read.m_nHeight))
        return 0;
    if (m_nKind == ikBmp && !ReadDepth(&Read.m_nBits))
        return 0;
    *m_pChoice = Read;
    m_bOk      = 1;
    return 1;
}

int AskImageSize(cVantorBox *pBox, eImageKind nKind, cImageChoice *pChoice)
{
    cImageSizeDialog Dialog(pBox, nKind, pChoice);
    Dialog.Run(nKind == ikBmp ? IDD_CREATE_BMP : IDD_CREATE_GIF);
    return Dialog.IsOk();
}

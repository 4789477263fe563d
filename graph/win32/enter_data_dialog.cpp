#include "toolkit/win32/win32.h"

#include <cstdio>

#include "graph/points_text.h"
#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"

namespace
{

class cEnterDataDialog : public cGraphDialog
{
public:
    cEnterDataDialog(cVantorBox *pBox, int bWithX) : cGraphDialog(pBox), m_bWithX(bWithX) {}

private:
    int  OnOk() override;
    void Add(const cEnteredPoints &Points);

    int m_bWithX;
};

}  // namespace

// Closes the dialog, whatever was typed.
int cEnterDataDialog::OnOk()
{
    cEnteredPoints Points;
    const auto     pszText = GetLongText(IDC_NEW_POINTS);
    if (!pszText || !ReadPoints(pszText.get(), m_bWithX, m_pBox->Boxes(), &Points))
        return 1;
    if (Points.m_nPoints == 0)
        Say("ERROR: you didn't enter any data points");
    else
        Add(Points);
    return 1;
}

void cEnterDataDialog::Add(const cEnteredPoints &Points)
{
    cVantorLineFormat Format;
    Format.m_pszLabel = "manually added";
    if (!m_pBox->AddDataSet(Points.m_nPoints, Points.m_pX.get(), Points.m_pY.get(), &Format))
        return;
    char szText[100];
    snprintf(szText, sizeof szText,
             "You entered %u data points\nand these have been assigned\nto data line #%u",
             static_cast<unsigned>(Points.m_nPoints), static_cast<unsigned>(m_pBox->Count()));
    Say(szText);
}

void EnterYData(cVantorBox *pBox)
{
    cEnterDataDialog(pBox, 0).Run(IDD_ENTER_Y);
}

void EnterXyData(cVantorBox *pBox)
{
    cEnterDataDialog(pBox, 1).Run(IDD_ENTER_XY);
}

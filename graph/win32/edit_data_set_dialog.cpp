#include "toolkit/win32/win32.h"

#include <cstdio>

#include "graph/points_text.h"
#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"

static const char *const kNoSuchText  = "\r\n\r\n    THERE IS NO SUCH DATA SET \r\n";
static const char *const kTooManyText = "\r\n\r\n    Sorry, this data set has\r\n"
                                        "    too many data points to allow\r\n"
                                        "    manual editing.";

namespace
{

class cEditDataSetDialog : public cGraphDialog
{
public:
    explicit cEditDataSetDialog(cVantorBox *pBox) : cGraphDialog(pBox), m_bEditable(0), m_bWithX(0)
    {
    }

private:
    void OnInit() override;
    int  OnOk() override;
    void OnControl(int nId, int nNotification) override;

    void OnChangeLine();
    void ShowPoints(const cVantorDataSet &Set);
    void ShowNote(const char *szText);
    void Store(uint32_t nLine, const cEnteredPoints &Points);

    int m_bEditable;  // 1: the text lists points, not a note
    int m_bWithX;     // 1: the points have x values
};

}  // namespace

void cEditDataSetDialog::OnInit()
{
    SetLineSpinRange(IDC_EDITED_LINE_SPIN);
    SetUnsigned(IDC_EDITED_LINE, 1);
}

void cEditDataSetDialog::OnControl(int nId, int nNotification)
{
    if (nId == IDC_EDITED_LINE && nNotification == EN_CHANGE)
        OnChangeLine();
}

void cEditDataSetDialog::OnChangeLine()
{
    uint32_t                    nLine = 0;
    const cVantorDataSet *const pSet =
        GetLine(IDC_EDITED_LINE, &nLine) ? m_pBox->DataSet(nLine) : nullptr;
    if (!pSet)
        ShowNote(kNoSuchText);
    else if (pSet->m_nPoints > kMostEditedPoints)
        ShowNote(kTooManyText);
    else
        ShowPoints(*pSet);
    SendDlgItemMessageA(m_hDialog, IDC_POINTS, EM_SETREADONLY, !m_bEditable, 0);
}

void cEditDataSetDialog::ShowPoints(const cVantorDataSet &Set)
{
    const auto pszText = WritePoints(Set, m_pBox->Boxes());
    m_bEditable        = pszText != nullptr;
    m_bWithX           = Set.m_pX != nullptr;
    SetText(IDC_POINTS_FORMAT, m_bWithX ? "x1,y1\nx2,y2" : "y1\ny2");
    SetDlgItemTextA(m_hDialog, IDC_POINTS, pszText ? pszText.get() : "");
}

void cEditDataSetDialog::ShowNote(const char *szText)
{
    m_bEditable = 0;
    SetText(IDC_POINTS_FORMAT, "");
    SetDlgItemTextA(m_hDialog, IDC_POINTS, szText);
}

int cEditDataSetDialog::OnOk()
{
    uint32_t nLine = 0;
    if (!GetLine(IDC_EDITED_LINE, &nLine))
        return Refuse(IDC_EDITED_LINE, "ERROR: your \"Line #\" value produced an error");
    if (!m_bEditable)
        return 1;
    cEnteredPoints Points;
    const auto     pszText = GetLongText(IDC_POINTS);
    if (pszText && ReadPoints(pszText.get(), m_bWithX, m_pBox->Boxes(), &Points))
        Store(nLine, Points);
    return 1;
}

void cEditDataSetDialog::Store(uint32_t nLine, const cEnteredPoints &Points)
{
    char szText[64];
    if (Points.m_nPoints == 0)
    {
        if (!m_pBox->DeleteDataSet(nLine))
            return;
        snprintf(szText, sizeof szText, "Data set %u has been deleted",
                 static_cast<unsigned>(nLine));
    }
    else
    {
        if (!m_pBox->ReplaceDataSetPoints(nLine, Points.m_nPoints, Points.m_pX.get(),
                                          Points.m_pY.get()))
            return;
        snprintf(szText, sizeof szText, "Data set %u now has %u data points",
                 static_cast<unsigned>(nLine), static_cast<unsigned>(Points.m_nPoints));
    }
    Say(szText);
}

void EditDataSet(cVantorBox *pBox)
{
    cEditDataSetDialog(pBox).Run(IDD_EDIT_DATA_SET);
}

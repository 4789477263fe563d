#include "toolkit/win32/win32.h"

#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"

static const char *const kTypeNames[] = {"Plot", "StairStep", "Scatter", "Stoop"};

namespace
{

class cDeleteLineDialog : public cGraphDialog
{
public:
    explicit cDeleteLineDialog(cVantorBox *pBox) : cGraphDialog(pBox), m_crSample(kWhite) {}

private:
    void     OnInit() override;
    int      OnOk() override;
    void     OnControl(int nId, int nNotification) override;
    COLORREF SampleColour() const override { return m_crSample; }

    void OnChangeLine();
    void ShowFormat(const cVantorDataSet &Set, const char *szStyle);

    COLORREF m_crSample;
};

}  // namespace

void cDeleteLineDialog::OnInit()
{
    SetLineSpinRange(IDC_DELETED_LINE_SPIN);
    SetUnsigned(IDC_DELETED_LINE, 1);
}

void cDeleteLineDialog::OnControl(int nId, int nNotification)
{
    if (nId == IDC_DELETED_LINE && nNotification == EN_CHANGE)
        OnChangeLine();
}

void cDeleteLineDialog::OnChangeLine()
{
    const cVantorDataSet *const pSet = FindLine(
        IDC_DELETED_LINE, "Program Error Code #40 in\ncVantorBox::OnDeleteLineChangeLine()");
    if (!pSet)
        return;
    const char *const szStyle = StyleName(*pSet);
    if (!szStyle)
        Say("Program Error Code #41 in\ncVantorBox::OnDeleteLineChangeLine()");
    ShowFormat(*pSet, szStyle ? szStyle : "");
}

void cDeleteLineDialog::ShowFormat(const cVantorDataSet &Set, const char *szStyle)
{
    m_crSample = Set.m_crColor;
    InvalidateRect(GetDlgItem(m_hDialog, IDC_DELETED_COLOUR), nullptr, FALSE);
    SetText(IDC_DELETED_TYPE, kTypeNames[DrawnType(Set)]);
    SetUnsigned(IDC_DELETED_WIDTH, Set.m_nWidth);
    SetText(IDC_DELETED_STYLE, szStyle);
    SetText(IDC_DELETED_LABEL, Set.m_pszLabel.get());
}

int cDeleteLineDialog::OnOk()
{
    uint32_t nLine = 0;
    if (!GetLine(IDC_DELETED_LINE, &nLine))
        return Refuse(IDC_DELETED_LINE, "ERROR: your \"Line #\" value produced an error");
    m_pBox->DeleteDataSet(nLine);
    return 1;
}

void DeleteLine(cVantorBox *pBox)
{
    cDeleteLineDialog(pBox).Run(IDD_DELETE_LINE);
}

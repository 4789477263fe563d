#include "toolkit/win32/win32.h"

#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"

void ShowGraphAbout(cVantorBox *pBox)
{
    cGraphDialog(pBox).Run(IDD_GRAPH_ABOUT);
}

#include "toolkit/win32.h"

#include "graph/graph_dialog.h"
#include "graph/vantor_dialogs.h"
#include "resources/resource.h"

void ShowGraphAbout(cVantorBox *pBox)
{
    cGraphDialog(pBox).Run(IDD_GRAPH_ABOUT);
}

// vantor_dialogs.h - the dialogs of the graph's window. Each is modal above the
// plot's frame, says in a box what is wrong with a field, and changes nothing
// when it is cancelled.

#ifndef GRAPH_VANTOR_DIALOGS_H
#define GRAPH_VANTOR_DIALOGS_H

#include "toolkit/win32/win32.h"

class cVantorBox;

// Title, axes, ticks, grid, legend, font and colours. OK fixes the range.
void ReformatPlot(cVantorBox *pBox);

// Type, colour, width, style, label, multiplier and offset of a data line.
void ReformatLine(cVantorBox *pBox);

// The points of a data line as a text. Without any the line is deleted.
void EditDataSet(cVantorBox *pBox);

void DeleteLine(cVantorBox *pBox);

// A new data line that is typed in.
void EnterYData(cVantorBox *pBox);
void EnterXyData(cVantorBox *pBox);

void ShowGraphAbout(cVantorBox *pBox);

#endif

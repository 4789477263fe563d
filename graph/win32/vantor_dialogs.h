// vantor_dialogs.h - the dialogs of the graph's window. Each is modal for the
// graph's frame, shows a message box if a field is invalid, and changes nothing
// when it is cancelled.

#ifndef GRAPH_WIN32_VANTOR_DIALOGS_H
#define GRAPH_WIN32_VANTOR_DIALOGS_H

#include "toolkit/win32/win32.h"

class cVantorBox;

// Title, axes, ticks, grid, legend, font and colours. OK fixes the range.
void ReformatPlot(cVantorBox *pBox);

// Type, colour, width, style, label, multiplier and offset of a data line.
void ReformatLine(cVantorBox *pBox);

// The points of a data line as text. An empty text deletes the line.
void EditDataSet(cVantorBox *pBox);

void DeleteLine(cVantorBox *pBox);

// A new data line, typed in.
void EnterYData(cVantorBox *pBox);
void EnterXyData(cVantorBox *pBox);

void ShowGraphAbout(cVantorBox *pBox);

#endif

// graph_file_commands.h - Open, Append and Save of the graph, once the file name
// is known. Each shows its errors in a box and then returns 0.

#ifndef GRAPH_GRAPH_FILE_COMMANDS_H
#define GRAPH_GRAPH_FILE_COMMANDS_H

#include "graph/vantor_plot.h"
#include "toolkit/message_box.h"
#include "toolkit/reading_watch.h"

// Replaces data, title and axis label of the plot with those of an ASCII data
// file; a range that the user has fixed stays. Each set becomes a solid line of
// width 1, the first red, the second green. Without success the plot is as it
// was, unless memory ran out and the user gave up while the sets were added.
// pWatch may end the reading, without a box; null: nothing does.
int OpenGraphFile(cVantorPlot *pPlot, cMessageBoxes *pBoxes, const char *szFile,
                  cReadingWatch *pWatch = nullptr);

// Appends the file's sets to those of the plot, coloured by their place in the
// file as OpenGraphFile does. Title and axis label stay.
int AppendGraphFile(cVantorPlot *pPlot, cMessageBoxes *pBoxes, const char *szFile,
                    cReadingWatch *pWatch = nullptr);

// Writes the sets that can share a file with data line 1, and informs the user
// if those are not all, and if the file will not be read as it was written (a line of
// it is too long, say); both count as success. Returns 0 when there is no data, when the file cannot be written (the old one stays), and when memory
// ran out and the user gave up.
int SaveGraphFile(const cVantorPlot &Plot, cMessageBoxes *pBoxes, const char *szFile);

#endif

// read_back.h - whether a data file can be read again as it is written.
// Pure: no file, no window.

#ifndef GRAPH_READ_BACK_H
#define GRAPH_READ_BACK_H

class cAsciiDataFile;

// Null when reading the written file gives the same sets, labels, title and axis label
// again, its numbers with six decimals. Else what stands against it, as the end of a
// sentence: "the title is too long". A line of the file has at most 99 bytes, a text
// in quotes contains none, and only finite numbers are read.
const char *ReadBackProblem(const cAsciiDataFile &File);

#endif

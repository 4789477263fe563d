// listing_files.h - listing files, and the file commands of the menu with their
// questions and reports.

#ifndef ENGINE_LISTING_FILES_H
#define ENGINE_LISTING_FILES_H

#include <cstddef>

class cCalculator;

// vorstek_engine.h describes these.
int  LoadProgram(cCalculator &c, const char *szFileName);
int  LoadListing(cCalculator &c, const char *pText, size_t nLength);
int  SaveProgram(cCalculator &c, const char *szFileName);
void TakeLoadedProgram(cCalculator &c, const char *szFileName);
int  SaveUnderName(cCalculator &c, const char *szFileName);
int  ConfirmDiscard(cCalculator &c);

// The file commands of the menu.
int FileNew(cCalculator &c);
int FileOpen(cCalculator &c);
int FileSave(cCalculator &c);
int FileSaveAs(cCalculator &c);

// The status bar, "filename: UNTITLED" for a program without a name.
void ShowFileName(cCalculator &c);

#endif

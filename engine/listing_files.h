// listing_files.h - listing files, and the file commands of the menu with their
// questions and reports.

#ifndef ENGINE_LISTING_FILES_H
#define ENGINE_LISTING_FILES_H

class cCalculator;

// 1 when the file was read, rejected lines and an overflow included; 0 when it
// could not be opened (nothing has changed) or the user cancelled (the program
// is empty).
int LoadProgram(cCalculator &c, const char *szFileName);
int SaveProgram(cCalculator &c, const char *szFileName);

// What follows a successful LoadProgram: the program takes the name, unless the
// listing box had no room for the complete file.
void TakeLoadedProgram(cCalculator &c, const char *szFileName);

int New(cCalculator &c);
int Open(cCalculator &c);
int Save(cCalculator &c);
int SaveAs(cCalculator &c);
int SaveUnderName(cCalculator &c, const char *szFileName);

// 0 if the user wants to keep working on the modified program.
int ConfirmDiscard(cCalculator &c);

// The status bar, "filename: UNTITLED" for a program without a name.
void ShowFileName(cCalculator &c);

#endif

// text_warnings.h - characters and lengths that make the loader read a line
// differently from what a person sees.

#ifndef LISTING_TEXT_WARNINGS_H
#define LISTING_TEXT_WARNINGS_H

struct cSourceLine;
class cFindings;

// bStartsLine: the line does not continue one that the loader has split.
void FindTextWarnings(const cSourceLine &Line, int bStartsLine, cFindings *pFindings);

#endif

// listing_errors.h - what the loader rejects, in its own words, with the word in
// question.

#ifndef LISTING_LISTING_ERRORS_H
#define LISTING_LISTING_ERRORS_H

struct cSourceLine;
class cFindings;

// Reports the line if the loader rejects it, or if it is one too many.
void FindErrors(const cSourceLine &Line, cFindings *pFindings);

#endif

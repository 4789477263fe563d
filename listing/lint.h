// lint.h - reports what is wrong or odd in a listing, without running it.

#ifndef LISTING_LINT_H
#define LISTING_LINT_H

#include <string_view>
#include <vector>

#include "listing/findings.h"

// The findings by lines. Errors are what the loader rejects. Of labels and the ways of
// a run, then, only that is reported which is so whatever those lines were meant to be.
// Nothing is read after the line with one error too many.
std::vector<cFinding> LintListing(std::string_view Text);

// Only what the loader rejects.
std::vector<cFinding> FindListingErrors(std::string_view Text);

#endif

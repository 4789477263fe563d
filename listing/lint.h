// lint.h - reports what is wrong or odd in a listing, without running it.

#ifndef LISTING_LINT_H
#define LISTING_LINT_H

#include <string_view>
#include <vector>

#include "listing/findings.h"

// The findings by lines. Errors are what the loader rejects. Labels and the ways
// of a run are examined only if there are none: with a line missing it is another
// program. Nothing is read after the line with one error too many.
std::vector<cFinding> LintListing(std::string_view Text);

// Only what the loader rejects.
std::vector<cFinding> FindListingErrors(std::string_view Text);

#endif

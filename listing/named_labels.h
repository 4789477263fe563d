// named_labels.h - the labels that a comment names as places to start.

#ifndef LISTING_NAMED_LABELS_H
#define LISTING_NAMED_LABELS_H

#include <bitset>
#include <string_view>

#include "engine/run_lines.h"

// Digits after GSB, GTO, LBL or "label", in any case, with or without a sign
// between; also lists and ranges of them: "GSB 1", "GSB3", "label #3",
// "labels 1, 2 and 4", "LBL 5-7".
std::bitset<kLabels> NamedLabels(std::string_view Comment);

#endif

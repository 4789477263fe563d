// highlight_scroll.h - how far a box scrolls when a line is highlighted.

#ifndef TOOLKIT_HIGHLIGHT_SCROLL_H
#define TOOLKIT_HIGHLIGHT_SCROLL_H

// The number of lines to scroll down (up if negative) so that nLine is in the
// middle of a view that shows nFirst to nLast. 0 while it is well inside: below
// nFirst and more than nMargin lines above nLast. A view of the lines 10 to 20
// with a margin of 0: line 19 gives 0, line 20 gives 5, line 10 gives -5.
int HighlightScroll(int nLine, int nFirst, int nLast, int nMargin);

#endif

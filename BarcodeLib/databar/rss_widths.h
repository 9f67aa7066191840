#pragma once

// The width function of the annex to ISO/IEC 24724: the element widths of a value among all
// patterns of elements elements over modules modules, no element wider than maxWidth. Unless
// noNarrow is set, the patterns in which no element is one module wide are left out. The widths
// go into widths[0 .. elements - 1], an array of the caller's, so that calls share nothing.
void getRSSwidths(int value, int modules, int elements, int maxWidth, bool noNarrow, int* widths);

// The binomial coefficient n over r, in whole numbers.
int combins(int n, int r);

// options.h - what the options dialog's OK does.

#ifndef ENGINE_OPTIONS_H
#define ENGINE_OPTIONS_H

class cCalculator;
struct cOptions;

void ApplyOptions(cCalculator &c, const cOptions &Options);

#endif

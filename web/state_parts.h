// state_parts.h - the parts of the state as JSON; engine.d.ts describes them.

#ifndef WEB_STATE_PARTS_H
#define WEB_STATE_PARTS_H

#include <set>
#include <string>

class cLineBox;
class cMemoryLineBox;
class cVantorPlot;
struct cDisplay;
struct cVorstekState;

std::string FaceJson();
std::string DisplayJson(const cDisplay &Display);
std::string LampsJson(const cDisplay &Display);
std::string BoxJson(const cMemoryLineBox &Box, int bShown);
std::string StackJson(const cVorstekState &State);
std::string RegistersJson(const cVorstekState &State);
std::string ModesJson(const cVorstekState &State);
std::string FileJson(const cVorstekState &State, const std::string &StatusText);
std::string OptionsJson(const cVorstekState &State);
std::string DisabledJson(const std::set<unsigned> &Disabled);
std::string GraphJson(const cVantorPlot &Plot, int bShown);

#endif

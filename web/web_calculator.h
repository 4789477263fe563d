// web_calculator.h - the calculator with its boxes, and what the page asks of it.
//
// A request is a text: its number (0: no reply), its name and its words in the first line,
// then, where there is one, its body. The reply is the event "done":
//
//     0 key 20 1            {"type":"done","id":7,"ok":true}
//     7 options 1 0 0 0

#ifndef WEB_WEB_CALCULATOR_H
#define WEB_WEB_CALCULATOR_H

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "engine/memory_line_box.h"
#include "engine/vorstek_engine.h"
#include "web/web_host.h"

struct cRequest
{
    std::string              m_Id;
    std::string              m_Name;
    std::vector<std::string> m_Words;
    std::string              m_Body;

    // Words that are missing or not such numbers are 0.
    unsigned Number(size_t nWord) const;
    double   Value(size_t nWord) const;
    float    Float(size_t nWord) const;
};

class cWebCalculator
{
public:
    cWebCalculator();

    // Sends "ready", then the first state.
    void Start();

    // Performs the requests that wait. While a program runs, only as long as it does.
    void Serve();

private:
    // Returns whether it was done; *pValue is the reply's value as JSON, "" for none.
    typedef int (cWebCalculator::*cHandler)(const cRequest &Request, std::string *pValue);
    struct cRequestRow
    {
        const char *m_szName;
        int         m_bWhileRunning;
        cHandler    m_pHandler;
    };
    static const cRequestRow s_Requests[];

    int  TakeRequest(cRequest *pRequest) const;
    void Perform(const cRequest &Request);

    void Publish();
    void PublishTrace();
    void PublishKept();

    // keys and program
    int OnKey(const cRequest &Request, std::string *pValue);
    int OnChar(const cRequest &Request, std::string *pValue);
    int OnHalt(const cRequest &Request, std::string *pValue);
    int OnNew(const cRequest &Request, std::string *pValue);
    int OnOpen(const cRequest &Request, std::string *pValue);
    int OnOpenFile(const cRequest &Request, std::string *pValue);
    int OnSave(const cRequest &Request, std::string *pValue);
    int OnSaveAs(const cRequest &Request, std::string *pValue);
    int OnRepair(const cRequest &Request, std::string *pValue);
    int OnOptions(const cRequest &Request, std::string *pValue);
    int OnListing(const cRequest &Request, std::string *pValue);
    int OnPerform(const cRequest &Request, std::string *pValue);
    int OnRestore(const cRequest &Request, std::string *pValue);

    // graph
    int OnView(const cRequest &Request, std::string *pValue);
    int OnShowGraph(const cRequest &Request, std::string *pValue);
    int OnReadout(const cRequest &Request, std::string *pValue);
    int OnGraphSvg(const cRequest &Request, std::string *pValue);
    int OnOpenGraph(const cRequest &Request, std::string *pValue);
    int OnAppendGraph(const cRequest &Request, std::string *pValue);
    int OnSaveGraph(const cRequest &Request, std::string *pValue);
    int OnSetGraph(const cRequest &Request, std::string *pValue);
    int OnGraphTitle(const cRequest &Request, std::string *pValue);
    int OnGraphGrid(const cRequest &Request, std::string *pValue);
    int OnGraphLegend(const cRequest &Request, std::string *pValue);
    int OnAutoRange(const cRequest &Request, std::string *pValue);
    int OnClearGraph(const cRequest &Request, std::string *pValue);
    int OnFormatLine(const cRequest &Request, std::string *pValue);
    int OnDeleteLine(const cRequest &Request, std::string *pValue);
    int OnLinePoints(const cRequest &Request, std::string *pValue);
    int OnAddLine(const cRequest &Request, std::string *pValue);
    int OnReplacePoints(const cRequest &Request, std::string *pValue);

    std::string ListingText();
    std::string KeptText();

    cWebHost       m_Host;
    cMemoryLineBox m_Listing;
    cMemoryLineBox m_Registers;
    cVorstekEngine m_Engine;

    std::string                        m_Trace;  // written since it was sent last
    FILE                              *m_pTrace;
    std::map<std::string, std::string> m_Published;   // JSON by part of the state
    int                                m_bKeptStale;  // the state has changed since then
};

#endif

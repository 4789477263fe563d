#include "console/finding_report.h"

#include "console/json.h"

std::string FindingText(const std::string &FileName, const cFinding &Finding)
{
    std::string Text = FileName + ":";
    if (Finding.m_nLine > 0)
        Text += std::to_string(Finding.m_nLine) + ":";
    if (Finding.m_nSeverity == svWarning)
        return Text + std::to_string(Finding.m_nColumn) + ": warning: " + Finding.m_Text + " [" +
               Finding.m_szName + "]";
    Text += " " + Finding.m_Text;
    return Finding.m_Suggestion.empty() ? Text
                                        : Text + ": did you mean " + Finding.m_Suggestion + "?";
}

static void AppendFinding(const std::string &FileName, const cFinding &Finding, std::string *pJson)
{
    cJsonList Object(pJson, '{', '}');
    Object.Text("file", FileName);
    Object.Number("line", Finding.m_nLine);
    Object.Number("column", Finding.m_nColumn);
    Object.Text("severity", Finding.m_nSeverity == svWarning ? "warning" : "error");
    Object.Text("name", Finding.m_szName);
    Object.Text("text", Finding.m_Text);
    if (Finding.m_Suggestion.empty())
        Object.Key("suggestion")->append("null");
    else
        Object.Text("suggestion", Finding.m_Suggestion);
}

std::string FindingJson(const std::string &FileName, const cFinding &Finding)
{
    std::string Json;
    AppendFinding(FileName, Finding, &Json);
    return Json;
}

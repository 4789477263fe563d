// recording_boxes.h - message boxes for tests: keep what was shown, answer
// what was asked for.

#ifndef TESTS_UNIT_RECORDING_BOXES_H
#define TESTS_UNIT_RECORDING_BOXES_H

#include <string>
#include <vector>

#include "toolkit/message_box.h"

class cRecordingBoxes : public cMessageBoxes
{
public:
    struct cBox
    {
        std::string m_Text;
        std::string m_Caption;  // empty for the application's name
        eButtons    m_nButtons;
        eIcon       m_nIcon;
        int         m_bUnowned;
    };

    // Answers are given in this order; after them every box is answered anCancel.
    explicit cRecordingBoxes(const std::vector<eAnswer> &Answers = {}) : m_Answers(Answers) {}

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override
    {
        m_Boxes.push_back({szText, szCaption ? szCaption : "", nButtons, nIcon, 0});
        return m_Boxes.size() <= m_Answers.size() ? m_Answers[m_Boxes.size() - 1] : anCancel;
    }

    void ReportUnowned(const char *szText, const char *szCaption) override
    {
        Ask(szText, szCaption, bnOk, icError);
        m_Boxes.back().m_bUnowned = 1;
    }

    void PostQuit(int nExitCode) override { m_QuitCodes.push_back(nExitCode); }

    std::vector<cBox> m_Boxes;  // in the order in which they were shown
    std::vector<int>  m_QuitCodes;

private:
    std::vector<eAnswer> m_Answers;
};

#endif

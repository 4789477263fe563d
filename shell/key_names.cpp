#include "shell/key_names.h"

#include <cstdio>
#include <cstring>

#include "engine/key_codes.h"

static const char *const kTrueTest = "next line only if true";

// The manual reads these rows, so a row is one line and a text one literal or
// kTrueTest.
// clang-format off
const cKeyName kKeyNames[kFaceKeys] =
{
    { "single step",       { "SST",   "single step", "F8" },          { "FIX", "fixed notation, d places", "" },  { "BST", "back one line", "F9" } },
    { "call label",        { "GSB",   "call label d", "" },           { "SCI", "scientific notation", "" },       { "RTN", "return; go to line 00", "" } },
    { "go to label",       { "GTO",   "go to label d", "" },          { "ENG", "engineering notation", "" },      { "LBL", "label d", "" } },
    { "f, gold function",  { "f",     "gold function next", "F2" },   { "", "", "" },                             { "", "", "" } },
    { "g, blue function",  { "g",     "blue function next", "F3" },   { "", "", "" },                             { "", "", "" } },

    { "exchange x and y",  { "x<>y",  "exchange X and Y", "" },       { "x-bar", "means of x and y", "" },        { "%", "X percent of Y", "" } },
    { "roll down",         { "R↓",    "roll down", "" },              { "s", "standard deviations", "" },         { "i", "indirect, through register 0", "" } },
    { "store",             { "STO",   "store in register r", "F4" },  { "L.R.", "linear regression", "" },        { "DSZ", "register 0 − 1, skip at 0", "" } },
    { "recall",            { "RCL",   "recall register r", "F7" },    { "CL G", "clear the graph", "" },          { "ISZ", "register 0 + 1, skip at 0", "" } },
    { "sigma plus",        { "Σ+",    "add a point", "" },            { "Σ-", "remove a point", "" },             { "DEL", "delete a program line", "" } },

    { "enter",             { "ENTER", "separate two numbers", "Enter" }, { "", "", "" },                          { "", "", "" } },
    { "change sign",       { "CHS",   "change sign", "" },            { "CL PRGM", "clear the program", "" },     { "GRD", "angles in grads", "" } },
    { "exponent",          { "EEX",   "exponent of ten", "e" },       { "CL REG", "clear all registers", "" },    { "RAD", "angles in radians", "" } },
    { "clear x",           { "CLx",   "clear X", "" },                { "CL Σ", "clear the sums", "" },           { "DEG", "angles in degrees", "" } },

    { "subtract",          { "-",     "subtract", "-" },              { "x≤y", kTrueTest, "" },                   { "x<0", kTrueTest, "" } },
    { "7",                 { "7",     "digit", "7" },                 { "ln", "natural logarithm", "" },          { "e^x", "exponential", "" } },
    { "8",                 { "8",     "digit", "8" },                 { "log", "logarithm to base 10", "" },      { "10^x", "power of ten", "" } },
    { "9",                 { "9",     "digit", "9" },                 { "→R", "to rectangular coordinates", "" }, { "→P", "to polar coordinates", "" } },

    { "add",               { "+",     "add", "+" },                   { "x>y", kTrueTest, "" },                   { "x>0", kTrueTest, "" } },
    { "4",                 { "4",     "digit", "4" },                 { "sin", "sine", "" },                      { "sin^-1", "arc sine", "" } },
    { "5",                 { "5",     "digit", "5" },                 { "cos", "cosine", "" },                    { "cos^-1", "arc cosine", "" } },
    { "6",                 { "6",     "digit", "6" },                 { "tan", "tangent", "" },                   { "tan^-1", "arc tangent", "" } },

    { "multiply",          { "*",     "multiply", "*" },              { "x≠y", kTrueTest, "" },                   { "x≠0", kTrueTest, "" } },
    { "1",                 { "1",     "digit", "1" },                 { "INT", "integer part", "" },              { "FRAC", "fraction", "" } },
    { "2",                 { "2",     "digit", "2" },                 { "√x", "square root", "" },                { "x^2", "square", "" } },
    { "3",                 { "3",     "digit", "3" },                 { "y^x", "Y to the power X", "" },          { "ABS", "absolute value", "" } },

    { "divide",            { "/",     "divide", "/" },                { "x=y", kTrueTest, "" },                   { "x=0", kTrueTest, "" } },
    { "0",                 { "0",     "digit", "0" },                 { "SUM G", "add a point to the graph", "" }, { "SET G", "select data line X", "" } },
    { "point",             { ".",     "decimal point", "." },         { "LAST x", "recall the previous X", "" },  { "π", "3.14159…", "" } },
    { "run or stop",       { "R/S",   "run or stop", "F5" },          { "PAUSE", "show X for one second", "" },   { "1/x", "reciprocal", "" } },
};

const cSwitchName kSwitchNames[kFaceSwitches] =
{
    { "stack view", "X",    "STACK", "show X alone",     "show T, Z, Y and X",        "F11" },
    { "run mode",   "PRGM", "RUN",   "record a program", "execute keys and programs", "F12" },
};
// clang-format on

static int IsSwitch(unsigned nCode)
{
    return nCode > static_cast<unsigned>(kFaceKeys);
}

static const cKeyName &KeyName(unsigned nCode)
{
    return kKeyNames[nCode - 1];
}

static const cSwitchName &SwitchName(unsigned nCode)
{
    return kSwitchNames[nCode - kFaceKeys - 1];
}

const char *SpokenName(unsigned nCode)
{
    return IsSwitch(nCode) ? SwitchName(nCode).m_szSpoken : KeyName(nCode).m_szSpoken;
}

const char *PcKeyOf(unsigned nCode)
{
    return IsSwitch(nCode) ? SwitchName(nCode).m_szPcKey : KeyName(nCode).m_Plain.m_szPcKey;
}

void DescribeKey(unsigned nCode, char (&szText)[kKeyDescription])
{
    szText[0] = 0;
    if (IsSwitch(nCode))
    {
        const cSwitchName &Name = SwitchName(nCode);
        snprintf(szText, sizeof szText, "%s: %s; %s: %s", Name.m_szLeft, Name.m_szLeftMeaning,
                 Name.m_szRight, Name.m_szRightMeaning);
        return;
    }
    const cKeyName &Name = KeyName(nCode);
    if (Name.m_Gold.m_szLegend[0])
        snprintf(szText, sizeof szText, "gold %s: %s; blue %s: %s", Name.m_Gold.m_szLegend,
                 Name.m_Gold.m_szMeaning, Name.m_Blue.m_szLegend, Name.m_Blue.m_szMeaning);
}

// Appends "f FIX: fixed notation", on a new line if there is one already, with the
// PC key in brackets.
static void AddTipLine(char (&szText)[kKeyTip], const char *szShift, const cKeyFunction &Function)
{
    if (!Function.m_szLegend[0])
        return;
    const size_t nLength = strlen(szText);
    const int    bPcKey  = Function.m_szPcKey[0] != 0;
    snprintf(szText + nLength, sizeof szText - nLength, "%s%s%s: %s%s%s%s", nLength ? "\r\n" : "",
             szShift, Function.m_szLegend, Function.m_szMeaning, bPcKey ? " (" : "",
             Function.m_szPcKey, bPcKey ? ")" : "");
}

void FormatKeyTip(unsigned nCode, char (&szText)[kKeyTip])
{
    szText[0] = 0;
    if (IsSwitch(nCode))
    {
        const cSwitchName &Name = SwitchName(nCode);
        AddTipLine(szText, "", {Name.m_szLeft, Name.m_szLeftMeaning, ""});
        AddTipLine(szText, "", {Name.m_szRight, Name.m_szRightMeaning, Name.m_szPcKey});
        return;
    }
    const cKeyName &Name = KeyName(nCode);
    AddTipLine(szText, "", Name.m_Plain);
    AddTipLine(szText, "f ", Name.m_Gold);
    AddTipLine(szText, "g ", Name.m_Blue);
}

cKeySequence KeysOfFunctionKey(unsigned nNumber)
{
    char szName[16];
    snprintf(szName, sizeof szName, "F%u", nNumber);
    for (unsigned nCode = 1; nCode <= kFaceCodes; nCode++)
    {
        if (strcmp(PcKeyOf(nCode), szName) == 0)
            return {{nCode, 0}, 1};
        if (!IsSwitch(nCode) && strcmp(KeyName(nCode).m_Blue.m_szPcKey, szName) == 0)
            return {{kKeyG, nCode}, 2};
    }
    return {{0, 0}, 0};
}

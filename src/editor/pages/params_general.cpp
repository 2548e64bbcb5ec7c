// The page "General": units, form of blocks, block numbers.
#include "editor/pages/params_pages.h"

#include "editor/pages/table_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kUnitsOut = "Output units";
constexpr std::string_view kMainMode = "Output mode for main program";
constexpr std::string_view kProgram = "Main program number    (@MainProgNum)";
constexpr std::string_view kDelimiter = "Block end delimiter";
constexpr std::string_view kParentheses = "Expression parentheses";
constexpr std::string_view kComments = "Comment indicators";
constexpr std::string_view kReadability = "Readability";
constexpr std::string_view kNumbering = "Block numbering";
constexpr std::string_view kReferenceProgram = "reference of program number";
constexpr std::string_view kStandardDelimiter = "Windows newline (ASCII13 ASCII10)";

constexpr PageRow kGeneralRows[] = {
    {kRadio, "bOutUnitsInches", kUnitsOut, "&Inches"},
    {kRadio, "bOutUnitsMetric", kUnitsOut, "&Millimeters"},
    {kRadio, "bOutUnitsAuto", kUnitsOut, "&Current units"},
    {kRadio, "bOutModeAbs", kMainMode, "&Absolute"},
    {kRadio, "bOutModeInc", kMainMode, "&Incremental"},
    {kText, "sMainProgNum", kProgram, "&Program number:"},
    {kButton, kReferenceProgram, kProgram, "...", 0, kBeside},
    {kCheck, "bUseFileSeg", "", "&Use file segmenting"},
    {kInteger, "nMaxBytes", "", "&Maximum # bytes per file:"},
    {kRadio, "bBlockDelimStd", kDelimiter, kStandardDelimiter, 0, kNewColumn},
    {kRadio, "bBlockDelimCus", kDelimiter, "&Custom"},
    {kText, "sBlockDelim", kDelimiter, "", 0, kBeside},
    {kRadio, "bParenSquare", kParentheses, "&[ ... ]"},
    {kRadio, "bParenRound", kParentheses, "&( ... )", 0, kBeside},
    {kRadio, "bParenCurly", kParentheses, "&{  ... }", 0, kBeside},
    {kCheck, "bErrorsAsComments", kComments, "&Output errors as comments"},
    {kText, "sOpenComment", kComments, "&Open comment id:"},
    {kText, "sCloseComment", kComments, "&Close comment id:"},
    {kCheck, "bUseSpace", kReadability, "&Space after words and codes"},
    {kCheck, "bTrimZeros", kReadability, "&Trim trailing zeros from data"},
    {kCheck, "bTrimDPoint", kReadability, "Trim trailing decimal &point"},
    {kText, "sNWordAddr", kNumbering, "&Address:", 0, kNewColumn},
    {kInteger, "nNWordInitVal", kNumbering, "&Initial value:"},
    {kInteger, "nNWordBigInc", kNumbering, "&Normal increment:"},
    {kInteger, "nNWordSmInc", kNumbering, "&Special increment:"},
    {kCheck, "bUsePrimaryTool", "", "Define reference tool"},
    {kInteger, "nPrimaryTool", "", "Tool to use for final move:"},
    {kCheck, "bPrimaryToolUseToolOn", "", "Output tool ON/Down code"},
};

class CNCParamsGeneral : public CNCTablePage {
public:
    explicit CNCParamsGeneral(const PageContext& context)
        : CNCTablePage(context, "General", Mark::kAtActivation, kGeneralRows) {}

    void UpdateControlStates() override {
        table().Enable({"nPrimaryTool", "bPrimaryToolUseToolOn"}, table().IsChecked("bUsePrimaryTool"));
        table().Enable({"sOpenComment", "sCloseComment"}, table().IsChecked("bErrorsAsComments"));
        table().Enable({"sBlockDelim"}, table().IsChecked("bBlockDelimCus"));
        table().Enable({"nMaxBytes"}, table().IsChecked("bUseFileSeg"));
    }

protected:
    void CreateControls() override {
        CNCTablePage::CreateControls();
        table().Button(kReferenceProgram).clicked.Set([this] {
            table().Find<CKVTextEdit>("sMainProgNum").ReferenceRunTimeData();
        });
    }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeGeneralPage(const PageContext& context) {
    return std::make_unique<CNCParamsGeneral>(context);
}

}  // namespace brindle

// Template lines: the first line is the text of all templates, each further one that of an option text which directives
// read. A job runs through them.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "session/session.h"

namespace {

constexpr size_t kLongest = 2000;  // a longer text is slow, not new

constexpr std::string_view kTemplates[] = {"FileStart_", "SubInit_",      "SubTerm_", "Move_",     "Line_",
                                           "Arc_",       "Text_",         "SubCall_", "SubReset_", "T1_ToolSel_",
                                           "T1_ToolOn_", "Fly_PreCheck_", "FileEnd_"};
constexpr std::string_view kTexts[] = {"sMainProgNum",    "sInsideCode",   "sHorizCode",   "sNWordAddr",
                                       "sBlockDelim",     "sOpenComment",  "sAx1Addr",     "sLTCode",
                                       "T1_Speed_P1_sV1", "ToolRot_sAddr", "SubRot_sAddr", "sMirrorX"};
constexpr std::string_view kFlags[] = {"bErrorsAsComments", "bUseText",     "bUseMirror",
                                       "bUseRotations",     "Fly_bSupport", "T1_Fly_bUse",
                                       "T1_bTangential",    "bUseFileSeg",  "bSubsInAbs"};

std::string_view TakeLine(std::string_view& text) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kLongest) return 0;
    brindle::CSession session;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const brindle::TemplateLines lines = {{{}, std::string(TakeLine(text))}, {{}, "<@NBlockOn>N"}};
    for (const std::string_view event : kTemplates) session.tuning.SetMulti(std::string(event) + "tTmpl", lines);
    for (const std::string_view key : kTexts) {
        session.tuning.SetText(key, std::string(TakeLine(text)), brindle::TextKind::kPlain);
    }
    for (const std::string_view flag : kFlags) session.tuning.SetBool(flag, 1);
    session.tuning.SetBool("bBlockDelimStd", 0);
    session.tuning.SetInt("nNumOfTools", 1);
    session.tuning.SetInt("nMaxBytes", 5000);
    brindle::JobRecords records = session.Records();
    records.StartMain("M", {1.0, 2.0}, true, true);
    records.AddLine({1, 1, 0.5, 2, 1.0}, {0.0, 0.0}, {10.0, 0.0});
    records.AddLine({1, 1, 0.5, 2, 1.0}, {10.0, 0.0}, {10.0, 8.0});
    records.AddArc({1, 1, 0.5, 2, 1.0}, {10.0, 8.0}, {0.0, -2.0}, {0.0, 8.0}, 10.0);
    records.AddText({.tool_id = 1, .height = 3.0, .start = {}, .end = {}, .rotation = 1.0, .text = "text"});
    records.AddInclude({"S", {5.0, 5.0}, {}, 0.5, true, false});
    records.StartSub("S", {}, true, true);
    records.AddLine({1, 1, 0.5, 2, 1.0}, {0.0, 0.0}, {0.0, 7.0});
    brindle::RunJob(session);
    brindle::RunJob(session);
    return 0;
}

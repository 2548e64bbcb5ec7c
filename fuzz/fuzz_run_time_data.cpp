// Run-time data lines, as a definition file that is exchanged and as lines of a tuning. What was read is written, read
// again and must be the same; and jobs run with the values.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "brindle/brindle.h"
#include "files.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "tuning/run_time_data_def.h"

namespace {

constexpr size_t kLongest = 4000;  // a longer text is slow, not new

using brindle::CRunTimeDataDef;
using Lines = std::vector<std::string>;

// What is left of the lines when they have been read and written.
Lines ReadAgain(const Lines& lines) {
    CRunTimeDataDef definition, copy;
    for (const std::string& line : lines) definition.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
    copy.Assign(definition);
    Lines written, written_of_copy;
    definition.WriteToList(written);
    copy.WriteToList(written_of_copy);
    if (written != written_of_copy) std::abort();
    return written;
}

void RunJob(const wchar_t* dataset) {
    GBrn_SetDataSetName(dataset);
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    GBrn_AddLine(1, 1, 0.5, 0.0, 0.0, 10.0, 5.0, 0.0, 0);
    GBrn_End();
}

// As a host does it: each expression gets a value, then the definition is read again.
void Exchange(const std::wstring& path) {
    GBrn_ReadRTDDefFromFile(path.c_str());
    for (bool more = true; more;) {
        wchar_t* expression = nullptr;
        int is_text = 0;
        GBrn_GetNextRTDExpr(&expression, &is_text);
        more = SysStringLen(expression) > 0;
        if (more) GBrn_SetRTDExprValue(expression, is_text ? L"some text" : L"-1.5");
        SysFreeString(expression);
    }
    GBrn_UpdateDefaultValuesForExpressions(path.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kLongest) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string_view> lines = brindle::SplitLines(text);
    const Lines once = ReadAgain(ReadAgain({lines.begin(), lines.end()}));  // without what no line can hold
    if (ReadAgain(once) != once) std::abort();
    const CMemoryFile file(text);
    GBrn_Clear();
    GBrn_ReadTuneLine(L"INT nNumOfTools 1");
    GBrn_ReadTuneLine(
        L"MULTI Line_tTmpl NNUL <RTD(1,1)><RTD(1,2)><RTD(1)><@DataSetName> NNUL <RTD(2,1)><RTD(2)><RTD(1)");
    GBrn_ReadTuneLine(L"TEXT sAx1Addr <RTD(1)>");
    Exchange(brindle::NarrowToWide(file.path()));
    RunJob(L"");
    for (const std::string_view line : lines) GBrn_ReadTuneLine(brindle::NarrowToWide(line).c_str());
    RunJob(L"Laser");
    GBrn_ClearRunTimeData();
    GBrn_Clear();
    return 0;
}

// Tuning text: any bytes as the lines of a tuning. What was read is written, read again and must be the same; and a job
// runs through it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "brindle/brindle.h"
#include "platform/text_encoding.h"

namespace {

constexpr size_t kLongest = 20000;  // a longer text is slow, not new

std::wstring TakeText(wchar_t* text) {
    std::wstring taken(text, SysStringLen(text));
    SysFreeString(text);
    return taken;
}

std::wstring Tuning() {
    wchar_t* text = nullptr;
    GBrn_GetTuning(&text);
    return TakeText(text);
}

void ReadLines(std::wstring_view text, wchar_t end) {
    for (size_t start = 0; start < text.size();) {
        const size_t stop = std::min(text.find(end, start), text.size());
        GBrn_ReadTuneLine(std::wstring(text.substr(start, stop - start)).c_str());
        start = stop + 1;
    }
}

// What is left of a tuning's text when it has been read and written.
std::wstring ReadAgain(const std::wstring& text) {
    GBrn_Clear();
    ReadLines(text, L'\b');
    return Tuning();
}

void RunJob() {
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    for (short tool = 0; tool < 4; ++tool) {
        GBrn_AddLine(tool, tool, 0.5, 0.0, 0.0, 10.0, tool, 0.0, 0);
        GBrn_AddArc(tool, tool, 0.5, 10.0, tool, 20.0, 0.0, 15.0, 0.0, tool % 2 ? 5.0 : -5.0, 1.0, 2);
    }
    GBrn_AddText(1, 1, 5.0, 5.0, 5.0, 5.0, 1.0, 0.5, 1.0, 1.0, 3.0, L"text");
    GBrn_AddInclude(L"S", 10.0, 0.0, 0.0, 0.0, 0.5, 1, 0);
    GBrn_StartSub(L"S", 0.0, 0.0, 1, 1);
    GBrn_AddArc(1, 1, 0.5, 3.0, 0.0, 3.0, 0.0, 0.0, 0.0, 3.0, 0.0, 7);
    GBrn_AddInclude(L"S", 10.0, 0.0, 0.0, 0.0, 0.0, 0, 0);
    GBrn_End();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kLongest) return 0;
    GBrn_Clear();
    ReadLines(brindle::NarrowToWide({reinterpret_cast<const char*>(data), size}), L'\n');
    RunJob();
    // Without what no text can hold: a backspace ends a line, and templates without lines, which that may make, go.
    const std::wstring plain = ReadAgain(ReadAgain(Tuning()));
    if (ReadAgain(plain) != plain) std::abort();
    GBrn_Clear();
    return 0;
}

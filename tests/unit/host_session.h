// A host of the library for tests: plain strings into the exports, NC text out of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "brindle/brindle.h"
#include "platform/text_encoding.h"

namespace brindle {

// The UTF-8 of a system string, which is freed.
inline std::string Taken(wchar_t* text) {
    std::string narrow;
    for (unsigned int i = 0; i < SysStringLen(text); ++i) {
        const wchar_t one[] = {text[i], L'\0'};
        narrow += text[i] == L'\0' ? std::string(1, '\0') : WideToNarrow(one);
    }
    SysFreeString(text);
    return narrow;
}

// A fresh session, which ends with the test.
class CHostSession {
public:
    explicit CHostSession(const std::vector<std::string>& tuning = {}) {
        GBrn_Clear();
        for (const std::string& line : tuning) Tune(line);
    }
    ~CHostSession() { GBrn_Clear(); }
    CHostSession(const CHostSession&) = delete;
    CHostSession& operator=(const CHostSession&) = delete;

    void Tune(std::string_view line) { GBrn_ReadTuneLine(NarrowToWide(line).c_str()); }
    // A line of tool 1 in the current program, and a call of a sub-program.
    void Line(double x1, double y1, double x2, double y2) { GBrn_AddLine(1, 1, 0.5, x1, y1, x2, y2, 0.0, 0); }
    void Call(const std::wstring& program) { GBrn_AddInclude(program.c_str(), 0.0, 0.0, 0.0, 0.0, 0.0, 0, 0); }

    // Runs the tuning and takes the pieces of each buffer.
    std::vector<std::vector<std::string>> RunForPieces() {
        GBrn_End();
        short count = 0;
        GBrn_GetNumOfBuffers(&count);
        std::vector<std::vector<std::string>> buffers(static_cast<size_t>(count));
        for (short i = 0; i < count; ++i) {
            GBrn_SetCurBuffer(static_cast<short>(i + 1));
            for (int more = 0; GBrn_CurBufferHasMoreData(&more), more != 0;) {
                wchar_t* piece = nullptr;
                GBrn_GetOutputBuffer(&piece);
                buffers[static_cast<size_t>(i)].push_back(Taken(piece));
            }
        }
        return buffers;
    }
    // The same with all pieces joined.
    std::string Run() {
        std::string all;
        for (const auto& pieces : RunForPieces()) {
            for (const std::string& piece : pieces) all += piece;
        }
        return all;
    }
};

}  // namespace brindle

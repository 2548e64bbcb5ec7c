// Exports of the session and of its tuning.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

namespace {

// The character after each line of GBrn_GetTuning.
constexpr char kLineTerminator = '\b';

void ReadTuneLine(const wchar_t* text, CRunTimeDataDef::ReadMode mode) {
    const std::string line = std::exchange(CBrindleMgr::TuneLineBuffer(), {}) + In(text);
    Session().tuning.ReadLine(line, mode);
}

}  // namespace

int GBrn_Clear(void) {
    return Export([&] { CBrindleMgr::Destroy(); });
}

int GBrn_SetTuningFileName(const wchar_t* name) {
    return Export([&] { Session().Job().tuning_file = In(name); });
}

int GBrn_ClearTuning(void) {
    return Export([&] { Session().tuning.ClearItems(); });
}

int GBrn_AddToTunelineBuffer(const wchar_t* piece) {
    return Export([&] { CBrindleMgr::TuneLineBuffer() += In(piece); });
}

int GBrn_ReadTuneLine(const wchar_t* text) {
    return Export([&] { ReadTuneLine(text, CRunTimeDataDef::ReadMode::kTuning); });
}

int GBrn_ReadTuneLineIgnoreRTDDefs(const wchar_t* text) {
    return Export([&] { ReadTuneLine(text, CRunTimeDataDef::ReadMode::kIgnore); });
}

int GBrn_GetStartKey(wchar_t** key) {
    return Export([&] {
        const CKVItemMapObj& items = Session().tuning.items();
        Out(key, items.size() == 0 ? std::string_view() : items.begin()->first);
    });
}

int GBrn_GetNextTuneLine(const wchar_t* key, wchar_t** line, wchar_t** next_key) {
    return Export([&] {
        const CBrindleOpts& tuning = Session().tuning;
        auto position = tuning.items().FindPosition(In(key));
        std::string text, next;
        if (position != tuning.items().end()) {
            text = tuning.FormatItem(position->first, position->second.get());
            if (++position != tuning.items().end()) next = position->first;
        }
        Out(line, text);
        Out(next_key, next);
    });
}

int GBrn_GetTuning(wchar_t** text) {
    return Export([&] {
        std::vector<std::string> lines;
        Session().tuning.WriteToList(lines);
        std::string all;
        for (const std::string& line : lines) all.append(line).push_back(kLineTerminator);
        Out(text, all);
    });
}

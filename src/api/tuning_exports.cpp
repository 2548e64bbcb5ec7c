// Exports of the session and of its tuning.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

namespace {

// The character behind each line of GBrn_GetTuning.
constexpr char kLineTerminator = '\b';

void ReadTuneLine(const wchar_t* text, CRunTimeDataDef::ReadMode mode) {
    const std::string line = std::exchange(CBrindleMgr::TuneLineBuffer(), {}) + In(text);
    Session().tuning.ReadLine(line, mode);
}

}  // namespace

int GBrn_Clear(void) {
    CBrindleMgr::Destroy();
    return 0;
}

int GBrn_SetTuningFileName(const wchar_t* name) {
    Session().controller.job.tuning_file = In(name);
    return 0;
}

int GBrn_ClearTuning(void) {
    Session().tuning.ClearItems();
    return 0;
}

int GBrn_AddToTunelineBuffer(const wchar_t* piece) {
    CBrindleMgr::TuneLineBuffer() += In(piece);
    return 0;
}

int GBrn_ReadTuneLine(const wchar_t* text) {
    ReadTuneLine(text, CRunTimeDataDef::ReadMode::kTuning);
    return 0;
}

int GBrn_ReadTuneLineIgnoreRTDDefs(const wchar_t* text) {
    ReadTuneLine(text, CRunTimeDataDef::ReadMode::kIgnore);
    return 0;
}

int GBrn_GetStartKey(wchar_t** key) {
    const CKVItemMapObj& items = Session().tuning.items();
    Out(key, items.size() == 0 ? std::string_view() : items.begin()->first);
    return 0;
}

int GBrn_GetNextTuneLine(const wchar_t* key, wchar_t** line, wchar_t** next_key) {
    const CBrindleOpts& tuning = Session().tuning;
    auto position = tuning.items().FindPosition(In(key));
    std::string text, next;
    if (position != tuning.items().end()) {
        text = tuning.FormatItem(position->first, position->second.get());
        if (++position != tuning.items().end()) next = position->first;
    }
    Out(line, text);
    Out(next_key, next);
    return 0;
}

int GBrn_GetTuning(wchar_t** text) {
    std::vector<std::string> lines;
    Session().tuning.WriteToList(lines);
    std::string all;
    for (const std::string& line : lines) all.append(line).push_back(kLineTerminator);
    Out(text, all);
    return 0;
}

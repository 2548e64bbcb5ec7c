// The dialog that edits one value of run-time data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// A value as the dialog shows it.
struct RTDataEntry {
    std::string key;
    // What it belongs to: the row and the column, or the message alone.
    std::string first_title, first_text;
    std::string second_title, second_text;
    std::string value{};
    TextKind kind = TextKind::kPlain;
    // Not for a default value.
    std::string default_value{};
    std::string last_value{};
};

// The value at `place`, with its key and what it belongs to; nothing if the definition has no such place.
std::optional<RTDataEntry> RTDataEntryAt(const CRunTimeDataDef& definition, RunTimePlace place);

enum class EditRTDataMode : uint8_t {
    kDefaultValue,  // in a dataset: a static value or an expression
    kJobValue,      // for a job: can be set to the last used or to the default value
};

struct EditedRTData {
    std::string value;
    TextKind kind;  // plain, or a text expression: an expression for a number becomes one
};

// Opens the dialog; nothing if the user cancelled.
std::optional<EditedRTData> EditRTData(CToolkit& toolkit, const RTDataEntry& entry, EditRTDataMode mode);

}  // namespace brindle

// The dialog that edits one value of run-time data.
#pragma once

#include <cstdint>
#include <memory>
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

class CEditRTDataDlg {
public:
    enum class Mode : uint8_t {
        kDefaultValue,  // in a dataset: a static value or an expression
        kJobValue,      // for a job: can be set to the last used or to the default value
    };

    CEditRTDataDlg(CToolkit& toolkit, const RTDataEntry& entry, Mode mode);
    bool RunModal() { return window_->RunModal(); }
    std::string value() const { return field_->GetText(); }
    // Plain, or a text expression: an expression for a number becomes one.
    TextKind kind() const { return expression_->GetCheck() ? TextKind::kTextExpression : TextKind::kPlain; }

private:
    void AddLabel(const std::string& caption, const std::string& text);
    void AddKinds(TextKind kind, bool shown);
    void AddUseButton(const char* caption, const std::string& value, Spot spot, bool shown);

    std::unique_ptr<CDialogWindow> window_;
    CEditControl* field_ = nullptr;
    CButtonControl* expression_ = nullptr;
};

}  // namespace brindle

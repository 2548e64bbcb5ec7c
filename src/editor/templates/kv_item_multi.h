// The text of a template, with help to insert words.
#pragma once

#include <string>
#include <string_view>

#include "editor/controls/control_place.h"
#include "tuning/options.h"

namespace brindle {

// An edit of several lines. It commits nothing by itself.
class CKVItemMulti {
public:
    explicit CKVItemMulti(const ControlPlace& place);

    // Whose run-time data can be inserted; null for none.
    void SetTuning(const CBrindleOpts* tuning) { tuning_ = tuning; }
    // The selected text without one blank at its front and one at its end; empty if nothing is selected.
    std::string GetSelectedWord() const;
    // Puts `text` in place of the selection and the caret after it; empty text does nothing.
    void ReplaceSelection(std::string_view text);
    // Let the user choose a word, with the selected one as first choice, and insert it between angle brackets.
    void InsertDirective();
    void InsertRunTimeData();
    CMultiEditControl& control() { return control_; }

private:
    TextRange ValidSelection() const;
    void OpenMenu();

    CToolkit& toolkit_;
    CMultiEditControl& control_;
    const CBrindleOpts* tuning_ = nullptr;
};

}  // namespace brindle

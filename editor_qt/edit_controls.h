// Edits.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "qt_control.h"

namespace brindle {

class CQtEdit : public CQtControl<CEditControl, QLineEdit> {
public:
    CQtEdit(CFormBody& body, const ControlSpec& spec);
    void SetText(std::string_view text) override;
    std::string GetText() const override { return FromQt(widget().text()); }
    void Undo() override { widget().undo(); }
    void Cut() override { widget().cut(); }
    void Copy() override { widget().copy(); }
    void Paste() override { widget().paste(); }
    void SelectAll() override { widget().selectAll(); }
};

class CQtMultiEdit : public CQtControl<CMultiEditControl, QPlainTextEdit> {
public:
    CQtMultiEdit(CFormBody& body, const ControlSpec& spec);
    void SetText(std::string_view text) override;
    std::string GetText() const override;
    void Undo() override { widget().undo(); }
    void Cut() override { widget().cut(); }
    void Copy() override { widget().copy(); }
    void Paste() override { widget().paste(); }
    void SelectAll() override { widget().selectAll(); }
    TextRange GetSelection() const override;
    void SetSelection(TextRange range) override;
    void ScrollCaretIntoView() override { widget().ensureCursorVisible(); }
};

}  // namespace brindle

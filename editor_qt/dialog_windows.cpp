#include "dialog_windows.h"

#include <QFontDatabase>
#include <QScreen>

namespace brindle {

// ---- Dialog ----

CQtDialog::CQtDialog(CDesk& desk, std::string_view caption)
    : CWindowHolder(new CWindow(desk, caption)), CQtForm(desk, content(), FormFlow::kOneColumn) {
    window().on_ok = [this] {
        this->desk().MoveFocus(nullptr);
        this->desk().Report(ok_clicked);
    };
    window().on_cancel = [this] {
        this->desk().MoveFocus(nullptr);
        window().End(false);
    };
}

bool CQtDialog::RunModal() {
    desk().MoveFocus(nullptr);
    body().LayOut();
    if (!has_buttons_) window().AddButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    has_buttons_ = true;
    SelectFirstField();
    window().Grow();
    const bool with_ok = window().RunModal();
    desk().MoveFocus(nullptr);
    return with_ok;
}

// So that what is typed at once takes the place of what is there.
void CQtDialog::SelectFirstField() {
    for (const CControlCell& cell : body().cells()) {
        if (cell.widget().focusPolicy() == Qt::NoFocus) continue;
        if (auto* const field = qobject_cast<QLineEdit*>(&cell.widget())) field->selectAll();
        return;
    }
}

// ---- Modeless window ----

CQtModeless::CQtModeless(CDesk& desk, std::string_view caption, CWindow& beside)
    : CWindowHolder(new CWindow(desk, caption, &beside)),
      CQtForm(desk, content(), FormFlow::kOneColumn),
      beside_(beside) {
    window().on_cancel = [this] {
        this->desk().MoveFocus(nullptr);
        this->desk().Report(close_clicked);
    };
    window().on_ok = window().on_cancel;
}

CQtModeless::~CQtModeless() { CQtModeless::Close(); }

void CQtModeless::Open() {
    if (window().isVisible()) return;
    desk().MoveFocus(nullptr);
    if (!is_laid_out_) {
        body().LayOut();
        window().AddButtons(QDialogButtonBox::Close);
        // It shows what the machine reads.
        const QFont code_font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        for (QListView* const list : content().findChildren<QListView*>()) list->setFont(code_font);
        const QFontMetrics metrics = window().fontMetrics();
        window().resize(metrics.averageCharWidth() * 140, metrics.lineSpacing() * 40);
        window().Grow();
    }
    is_laid_out_ = true;
    desk().AddModeless(window());
    window().move(PlaceBeside());
    window().show();
}

void CQtModeless::Close() {
    if (!window().isVisible()) return;
    desk().MoveFocus(nullptr);
    desk().RemoveModeless(window());
    window().End(false);
}

// At the right edge of the sheet, or so far to the left of it that enough of the window is on the screen to take it.
QPoint CQtModeless::PlaceBeside() const {
    const QRect sheet = beside_.frameGeometry();
    const int last = beside_.screen()->availableGeometry().right() - window().width() / 2;
    return {std::min(sheet.right() + 1, std::max(last, sheet.left())), sheet.top()};
}

}  // namespace brindle

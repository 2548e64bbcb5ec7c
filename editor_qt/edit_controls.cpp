#include "edit_controls.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QValidator>
#include <algorithm>

namespace brindle {
namespace {

// How many characters a one-line edit shows: at least, and as many as it can have.
struct FieldWidth {
    int least;
    int most;
};

FieldWidth WidthOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::kReal: return {11, 11};
        case ControlKind::kInteger: return {8, 8};
        default: return {11, 28};
    }
}

// Puts blanks in place of control characters, which a paste can bring.
class COneLine : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& /*caret*/) const override {
        std::ranges::replace_if(
            text, [](QChar c) { return c < QChar(' ') || c == QChar(0x7F); }, QChar(' '));
        return Acceptable;
    }
};

class CField : public QLineEdit {
public:
    CField(FieldWidth width, QWidget* parent) : QLineEdit(parent), width_(width) {
        setSizePolicy(width.least == width.most ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
        setMaximumWidth(WidthFor(width.most));
        setValidator(new COneLine(this));
    }
    QSize sizeHint() const override { return {WidthFor(width_.least), QLineEdit::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    int WidthFor(int characters) const {
        const QMargins margins = textMargins() + contentsMargins();
        const int text = fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters;
        QStyleOptionFrame option;
        initStyleOption(&option);
        const QSize contents(text + margins.left() + margins.right() + 4, fontMetrics().height());
        return style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width();
    }

    FieldWidth width_;
};

class CTextBox : public QPlainTextEdit {
public:
    explicit CTextBox(QWidget* parent) : QPlainTextEdit(parent) {
        setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        setLineWrapMode(NoWrap);
        setTabChangesFocus(true);
    }
    QSize sizeHint() const override {
        constexpr int kColumns = 72;
        constexpr int kLines = 14;
        return {fontMetrics().averageCharWidth() * kColumns, fontMetrics().lineSpacing() * kLines};
    }
};

// Reports the wish for a context menu. Where nobody cares, the widget's own menu opens.
class CMenuFilter : public QObject {
public:
    // `clicked` is the edit, or the part of it that the mouse gets.
    CMenuFilter(QWidget& clicked, QWidget& edit, CDesk& desk, const CEvent& menu_wanted)
        : QObject(&edit), edit_(edit), desk_(desk), menu_wanted_(menu_wanted) {
        clicked.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* /*clicked*/, QEvent* event) override {
        if (event->type() != QEvent::ContextMenu || !menu_wanted_.IsHeard()) return false;
        const auto* const wish = static_cast<QContextMenuEvent*>(event);
        desk_.MoveFocus(&edit_);
        desk_.SetMenuPlace(wish->globalPos());
        desk_.Report(menu_wanted_);
        return true;
    }

private:
    QWidget& edit_;
    CDesk& desk_;
    const CEvent& menu_wanted_;
};

constexpr QChar kParagraph(QChar::ParagraphSeparator);

// The text of a multi-line edit with CR LF between its lines.
QByteArray JoinedLines(QString raw) { return raw.replace(kParagraph, QLatin1String("\r\n")).toUtf8(); }

}  // namespace

// ---- One line ----

CQtEdit::CQtEdit(CFormBody& body, const ControlSpec& spec)
    : CQtControl(body, spec, new CField(WidthOf(spec.kind), &body.root())) {
    desk().Watch(widget(), &focus_lost);
    new CMenuFilter(widget(), widget(), desk(), menu_wanted);
    QObject::connect(&widget(), &QLineEdit::textEdited, &widget(), [this] {
        desk().MoveFocus(&widget());
        desk().Report(changed);
    });
}

void CQtEdit::SetText(std::string_view text) {
    const QString shown = ToQt(text);
    if (shown != widget().text()) widget().setText(shown);
    widget().setCursorPosition(0);
}

// ---- Several lines ----

CQtMultiEdit::CQtMultiEdit(CFormBody& body, const ControlSpec& spec)
    : CQtControl(body, spec, new CTextBox(&body.root())) {
    desk().Watch(widget(), &focus_lost);
    new CMenuFilter(*widget().viewport(), widget(), desk(), menu_wanted);
    new CMenuFilter(widget(), widget(), desk(), menu_wanted);
    QObject::connect(&widget(), &QPlainTextEdit::textChanged, &widget(), [this] {
        desk().MoveFocus(&widget());
        desk().Report(changed);
    });
}

void CQtMultiEdit::SetText(std::string_view text) {
    const QSignalBlocker quiet(widget());
    widget().setPlainText(ToQt(text));
}

// As plain text, Qt would turn unbreakable blanks into others.
std::string CQtMultiEdit::GetText() const { return JoinedLines(widget().document()->toRawText()).toStdString(); }

TextRange CQtMultiEdit::GetSelection() const {
    const QString raw = widget().document()->toRawText();
    const QTextCursor cursor = widget().textCursor();
    const auto bytes_before = [&raw](int place) { return static_cast<size_t>(JoinedLines(raw.left(place)).size()); };
    return {bytes_before(cursor.selectionStart()), bytes_before(cursor.selectionEnd())};
}

void CQtMultiEdit::SetSelection(TextRange range) {
    const std::string text = GetText();
    const auto place_of = [&text](size_t bytes) {
        QString before = ToQt(std::string_view(text).substr(0, bytes));
        return static_cast<int>(before.replace(QLatin1String("\r\n"), QLatin1String("\n")).size());
    };
    QTextCursor cursor = widget().textCursor();
    cursor.setPosition(place_of(range.begin));
    cursor.setPosition(place_of(range.end), QTextCursor::KeepAnchor);
    widget().setTextCursor(cursor);
}

}  // namespace brindle

#include "testing/play_qt/qt_user.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QTest>
#include <QWindow>

namespace brindle::toolkit_test {
namespace {

QWindow* WindowOf(const QWidget& widget) { return widget.window()->windowHandle(); }

QPoint InWindow(const QWidget& widget, QPoint at) { return widget.mapTo(widget.window(), at); }

bool IsUnderPointer(const QWidget& widget, QPoint at) {
    if (WindowOf(widget) == nullptr || !widget.rect().contains(at)) return false;
    const QWidget* const there = widget.window()->childAt(InWindow(widget, at));
    return there == nullptr ? &widget == widget.window() : there == &widget || widget.isAncestorOf(there);
}

// A tab goes to the next control where it is typed: one in a text comes from the clipboard.
void PasteTab(const QWidget& widget) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const QString before = clipboard.text();
    clipboard.setText(QStringLiteral("\t"));
    Key(widget, Qt::Key_V, Qt::ControlModifier);
    clipboard.setText(before);
}

}  // namespace

bool Press(QWidget& widget, QPoint at, Qt::MouseButton button) {
    if (!IsUnderPointer(widget, at)) return false;
    QTest::mousePress(WindowOf(widget), button, {}, InWindow(widget, at));
    return true;
}

void Release(QWidget& widget, QPoint at, Qt::MouseButton button) {
    QTest::mouseRelease(WindowOf(widget), button, {}, InWindow(widget, at));
}

bool DoubleClick(QWidget& widget, QPoint at) {
    if (!IsUnderPointer(widget, at)) return false;
    QTest::mouseDClick(WindowOf(widget), Qt::LeftButton, {}, InWindow(widget, at));
    return true;
}

void Key(const QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers, int times) {
    for (int i = 0; i < times; ++i) QTest::keyClick(WindowOf(widget), key, modifiers);
}

// After the key, the platform itself asks for the menu.
void PressMenuKey() {
    QWidget& focus = *QApplication::focusWidget();
    Key(focus, Qt::Key_Menu);
    const QPoint at = focus.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, at, focus.mapToGlobal(at));
    QApplication::sendEvent(&focus, &event);
}

void TypeText(const QWidget& widget, const QString& text) {
    for (const uint code : text.toUcs4()) {
        const auto character = static_cast<char32_t>(code);
        if (character == U'\n') {
            Key(widget, Qt::Key_Return);
        } else if (character == U'\t') {
            PasteTab(widget);
        } else {
            QTest::sendKeyEvent(QTest::Click, WindowOf(widget), static_cast<Qt::Key>(QChar::toUpper(code)),
                                QString::fromUcs4(&character, 1), Qt::NoModifier);
        }
    }
}

void Activate(QWidget& window) {
    if (window.isActiveWindow()) return;
    window.raise();
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
}

}  // namespace brindle::toolkit_test

// The mouse and the keyboard of a user who sits before windows of Qt. What is sent takes the way of a real event: it
// goes to the window, which gives it to what lies under the pointer or has the focus.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace brindle::toolkit_test {

// `at` is in the coordinates of the widget. False if something else lies there, or nothing: then nothing was sent.
bool Press(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
void Release(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
bool DoubleClick(QWidget& widget, QPoint at);

// Keys go to the window of `widget`.
void Key(const QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1);
// The key that asks for a context menu, at what has the focus.
void PressMenuKey();
// Each character as a key, a line break as Enter; a tab is pasted.
void TypeText(const QWidget& widget, const QString& text);

// Makes its window the active one, as a click on its frame does.
void Activate(QWidget& window);

}  // namespace brindle::toolkit_test

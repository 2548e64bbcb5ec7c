#include "window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include "qt_text.h"

namespace brindle {

CWindow::CWindow(CDesk& desk, std::string_view caption, QWidget* parent)
    : QDialog(parent == nullptr ? desk.TopModal() : parent), desk_(desk), body_(*new QVBoxLayout(this)) {
    setWindowTitle(ToQt(caption));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setAttribute(Qt::WA_QuitOnClose, false);  // a host that waits for its own windows to close goes on
}

QDialogButtonBox& CWindow::AddButtons(QDialogButtonBox::StandardButtons buttons) {
    auto* const box = new QDialogButtonBox(buttons, this);
    body_.addWidget(box);
    connect(box, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(box, &QDialogButtonBox::rejected, this, [this] { reject(); });
    for (QAbstractButton* const button : box->buttons()) desk_.Watch(*button);
    if (QPushButton* const ok = box->button(QDialogButtonBox::Ok)) ok->setDefault(true);
    return *box;
}

void CWindow::Grow() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);  // sizes of changed layouts are old until then
    const QSize room = screen()->availableGeometry().size() * 9 / 10;
    const QSize wanted = sizeHint().boundedTo(room);
    resize(testAttribute(Qt::WA_Resized) ? size().expandedTo(wanted) : wanted);
}

bool CWindow::RunModal() {
    if (parentWidget() == nullptr) StandAboveHost();
    setModal(true);
    desk_.ThrowFault();
    desk_.PushModal(*this);
    const bool with_ok = desk_.Exec(*this) == Accepted;
    desk_.PopModal(*this);
    desk_.ThrowFault();
    return with_ok;
}

// The host may destroy its window while ours is open, so ours is no child of it.
void CWindow::StandAboveHost() {
    QWindow* const host = QGuiApplication::focusWindow();
    if (host == nullptr) return;
    winId();
    windowHandle()->setTransientParent(host);
}

CWindowHolder::CWindowHolder(CWindow* window) : window_(window), content_(*new QWidget(window)) {
    window->body().addWidget(&content_, 1);
}

}  // namespace brindle

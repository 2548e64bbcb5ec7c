#include "testing/play_qt/offscreen.h"

#include <QApplication>
#include <iostream>

// Asked by the leak sanitizer, where there is one: the library of fonts keeps what it has read until the process ends.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace brindle::toolkit_test {
namespace {

// What Qt complains of is a fault, but for what a platform without a screen can't do.
void Complain(QtMsgType /*type*/, const QMessageLogContext& /*place*/, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support"))) std::cerr << text.toStdString() << '\n';
}

}  // namespace

void PrepareOffscreen() {
    qInstallMessageHandler(Complain);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace brindle::toolkit_test

#include "display.h"

#include <QApplication>
#include <QDir>
#include <QLibrary>
#include <QThread>

namespace brindle {
namespace {

// Whether a platform plugin is installed, such as `xcb`.
bool HasPlatform(const QString& name) {
    QStringList folders = QCoreApplication::libraryPaths();
    for (QString& folder : folders) folder += QLatin1String("/platforms");
    folders << qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH");
    return std::any_of(folders.begin(), folders.end(), [&name](const QString& folder) {
        return !folder.isEmpty() && !QDir(folder).entryList({QStringLiteral("libq%1*.so").arg(name)}).isEmpty();
    });
}

bool CanReachX() {
    QLibrary xcb(QStringLiteral("xcb"), 1);
    using Connect = void* (*)(const char*, int*);
    const auto connect = reinterpret_cast<Connect>(xcb.resolve("xcb_connect"));
    const auto has_error = reinterpret_cast<int (*)(void*)>(xcb.resolve("xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(xcb.resolve("xcb_disconnect"));
    if (connect == nullptr || has_error == nullptr || disconnect == nullptr) return false;
    void* const connection = connect(nullptr, nullptr);
    const bool is_reached = has_error(connection) == 0;
    disconnect(connection);
    return is_reached;
}

bool CanReachWayland() {
    QLibrary wayland(QStringLiteral("wayland-client"), 0);
    using Connect = void* (*)(const char*);
    const auto connect = reinterpret_cast<Connect>(wayland.resolve("wl_display_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(wayland.resolve("wl_display_disconnect"));
    if (connect == nullptr || disconnect == nullptr) return false;
    const bool is_named_whole = qEnvironmentVariable("WAYLAND_DISPLAY").startsWith('/');
    if (!is_named_whole && qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) return false;  // it would complain aloud
    void* const display = connect(nullptr);
    if (display == nullptr) return false;
    disconnect(display);
    return true;
}

bool CanUse(const QString& platform) {
    if (!HasPlatform(platform)) return false;
    if (platform == QLatin1String("xcb")) return CanReachX();
    return !platform.startsWith(QLatin1String("wayland")) || CanReachWayland();
}

// The platforms that Qt is to try, in their order: those that the user names, else those of the session.
QStringList WantedPlatforms() {
    const QString named = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!named.isEmpty()) return named.split(';', Qt::SkipEmptyParts);
    QStringList platforms;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) platforms << QStringLiteral("wayland");
    if (qEnvironmentVariableIsSet("DISPLAY")) platforms << QStringLiteral("xcb");
    return platforms;
}

// Lives until the process ends, as a host may have windows of ours open at any time.
bool MakeApplication() {
    static int argument_count = 3;
    static char program[] = "brindle";
    static char option[] = "-platform";
    static QByteArray platform;
    for (const QString& wanted : WantedPlatforms()) {
        if (!CanUse(wanted.section(':', 0, 0))) continue;
        platform = wanted.toLocal8Bit();
        static char* arguments[] = {program, option, platform.data(), nullptr};
        static QApplication* const application = new QApplication(argument_count, arguments);
        application->setQuitOnLastWindowClosed(false);
        return true;
    }
    return false;
}

}  // namespace

bool HasApplication() {
    const QCoreApplication* const application = QCoreApplication::instance();
    if (application == nullptr) return MakeApplication();
    return qobject_cast<const QApplication*>(application) != nullptr &&
           application->thread() == QThread::currentThread();
}

}  // namespace brindle

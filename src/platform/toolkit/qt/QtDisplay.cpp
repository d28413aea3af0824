// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDisplay.h"

#include <QApplication>
#include <QDir>
#include <QLibrary>
#include <QLoggingCategory>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace Toolkits
{

namespace
{

bool IsSet(const char* variable)
{
    return !qEnvironmentVariableIsEmpty(variable);
}

std::string Told(const char* variable)
{
    return std::string(variable) + "='" + qgetenv(variable).toStdString() + "'";
}

constexpr QRect UsualScreen(0, 0, 1920, 1080);

using THasError = int (*)(void*);

THasError HasError(QLibrary& library)
{
    return reinterpret_cast<THasError>(library.resolve("xcb_connection_has_error"));
}

/// What tells of the end of the X server. It is asked when much of Qt has ended already.
struct TWatched
{
    const QCoreApplication* application = nullptr;
    void* connection = nullptr;
    THasError hasError = nullptr;
};

TWatched watched;

std::atomic<bool> hasLostCompositor = false;

/// Who hears of messages as well, and whether warnings were unwanted before this part wanted them.
QtMessageHandler formerHandler = nullptr;
bool hidesWarnings = false;

/// Ends the program as the loss of an X server does.
void EndWithoutCompositor()
{
    if (!hasLostCompositor.exchange(true)) {
        std::exit(EXIT_FAILURE);
    }
}

/// Has the main thread end the program, and holds this one, which would do so at once if it went on. Where
/// the main thread doesn't come to it within a minute, nothing can be saved.
void HaveMainThreadEnd()
{
    constexpr int waits = 600;
    QMetaObject::invokeMethod(QCoreApplication::instance(), &EndWithoutCompositor, Qt::QueuedConnection);
    for (int i = 0; hasLostCompositor || i < waits; ++i) {
        QThread::msleep(100);
    }
}

/// With the compositor Qt ends the program at once, without `exit`, from whichever thread finds it out first.
/// All that comes before that is a warning.
void HearMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool isLoss = message.startsWith(QStringLiteral("The Wayland connection"));
    const bool isHidden = hidesWarnings && type == QtWarningMsg && qstrcmp(context.category, "default") == 0;
    if (formerHandler != nullptr && (isLoss || !isHidden)) {
        formerHandler(type, context, message);
    }
    const QCoreApplication* const application = QCoreApplication::instance();
    if (!isLoss || application == nullptr) {
        return;
    }
    if (application->thread() == QThread::currentThread()) {
        EndWithoutCompositor();
    } else {
        HaveMainThreadEnd();
    }
}

void HearMessages()
{
    static const bool isFirst = [] {
        formerHandler = qInstallMessageHandler(&HearMessage);
        QLoggingCategory& warnings = *QLoggingCategory::defaultCategory();
        hidesWarnings = !warnings.isWarningEnabled();
        warnings.setEnabled(QtWarningMsg, true);
        return true;
    }();
    static_cast<void>(isFirst);
}

/// Whether the X server that the variables tell of lets the program in. The connection is kept: a server that
/// has no other program would begin anew, and refuse Qt meanwhile.
bool ReachesX()
{
    QLibrary library(QStringLiteral("xcb"), 1);
    const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(library.resolve("xcb_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(library.resolve("xcb_disconnect"));
    const THasError hasError = HasError(library);
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr) {
        return false;
    }
    void* const connection = connect(nullptr, nullptr);
    const bool isOpen = hasError(connection) == 0;
    if (!isOpen) {
        disconnect(connection);
    }
    return isOpen;
}

/// Whether there is a compositor.
bool ReachesWayland()
{
    // A connection that was handed to the program is there once, for Qt.
    if (IsSet("WAYLAND_SOCKET")) {
        return true;
    }
    // Where no folder has the socket, the library of Wayland tells the user so.
    if (!IsSet("XDG_RUNTIME_DIR") && !qgetenv("WAYLAND_DISPLAY").startsWith('/')) {
        return false;
    }
    QLibrary library(QStringLiteral("wayland-client"), 0);
    const auto connect = reinterpret_cast<void* (*)(const char*)>(library.resolve("wl_display_connect"));
    const auto disconnect = reinterpret_cast<void (*)(void*)>(library.resolve("wl_display_disconnect"));
    void* const display = connect == nullptr || disconnect == nullptr ? nullptr : connect(nullptr);
    if (display != nullptr) {
        disconnect(display);
    }
    return display != nullptr;
}

/// The part of Qt that shows windows on a platform of this name.
bool HasPart(const QString& platform)
{
    QStringList folders;
    for (const QString& folder : QCoreApplication::libraryPaths()) {
        folders << folder + QStringLiteral("/platforms");
    }
    folders << qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH");
    return std::ranges::any_of(folders, [&platform](const QString& folder) {
        const QStringList pattern(QStringLiteral("libq%1*.so").arg(platform));
        return !folder.isEmpty() && !QDir(folder).entryList(pattern, QDir::Files).isEmpty();
    });
}

bool CanShowOn(const QString& platform)
{
    if (platform.isEmpty() || !HasPart(platform)) {
        return false;
    }
    if (platform == QStringLiteral("xcb")) {
        return ReachesX();
    }
    return !platform.startsWith(QStringLiteral("wayland")) || ReachesWayland();
}

/// What Qt tries, one after the other.
QStringList Platforms()
{
    if (IsSet("QT_QPA_PLATFORM")) {
        return qEnvironmentVariable("QT_QPA_PLATFORM").split(u';');
    }
    QStringList platforms(QStringLiteral("xcb"));
    if (IsSet("WAYLAND_DISPLAY")) {
        platforms.prepend(QStringLiteral("wayland"));
    }
    return platforms;
}

} // namespace

void RequireDisplay()
{
    if (const QCoreApplication* const own = QCoreApplication::instance()) {
        if (qobject_cast<const QApplication*>(own) == nullptr) {
            throw std::runtime_error(std::string("the program's own ") + own->metaObject()->className() +
                                     " shows no widgets, which takes a QApplication");
        }
        return;
    }
    const QStringList platforms = Platforms();
    if (std::ranges::any_of(platforms,
                            [](const QString& name) { return CanShowOn(name.section(u':', 0, 0)); })) {
        return;
    }
    throw std::runtime_error("Qt reaches no display of '" + platforms.join(u';').toStdString() + "' with " +
                             Told("DISPLAY") + ", " + Told("WAYLAND_DISPLAY"));
}

void WatchDisplay()
{
    watched = {.application = QCoreApplication::instance()};
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))) {
        HearMessages();
    }
    const auto* const x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x == nullptr) {
        return;
    }
    QLibrary library(QStringLiteral("xcb"), 1);
    watched.connection = x->connection();
    watched.hasError = HasError(library);
}

bool HasLostDisplay()
{
    // With its application object the connection has ended as well. The platform without a screen has none.
    if (watched.application == nullptr || watched.application != QCoreApplication::instance()) {
        return false;
    }
    return hasLostCompositor || (watched.connection != nullptr && watched.hasError != nullptr &&
                                 watched.hasError(watched.connection) != 0);
}

QRect DesktopGeometry()
{
    const QScreen* const first = QGuiApplication::primaryScreen();
    return first == nullptr ? UsualScreen : first->virtualGeometry();
}

QRect FirstScreenGeometry()
{
    const QScreen* const first = QGuiApplication::primaryScreen();
    return first == nullptr ? UsualScreen : first->geometry();
}

} // namespace Toolkits

// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDisplay.h"

#include <QApplication>
#include <QDir>
#include <QLibrary>
#include <QScreen>

#include <algorithm>
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

/// As `ReachesX`, but the compositor.
bool ReachesWayland()
{
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
    watched = {};
    const auto* const x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x == nullptr) {
        return;
    }
    QLibrary library(QStringLiteral("xcb"), 1);
    watched = {QCoreApplication::instance(), x->connection(), HasError(library)};
}

bool HasLostDisplay()
{
    // With its application object the connection has ended as well. The platform without a screen has none.
    return watched.application != nullptr && watched.application == QCoreApplication::instance() &&
           watched.connection != nullptr && watched.hasError != nullptr &&
           watched.hasError(watched.connection) != 0;
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

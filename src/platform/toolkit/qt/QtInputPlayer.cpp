// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtInputPlayer.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtKeys.h"
#include "platform/toolkit/qt/QtWindow.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace Toolkits
{

namespace
{

QEvent::Type TypeOf(EMouseAction action)
{
    switch (action) {
    case EMouseAction::Down:
        return QEvent::MouseButtonPress;
    case EMouseAction::Up:
        return QEvent::MouseButtonRelease;
    case EMouseAction::DoubleClick:
        return QEvent::MouseButtonDblClick;
    default:
        return QEvent::MouseMove;
    }
}

/// The key that types the character; 0 for none.
int KeyThatTypes(System::WideChar character)
{
    const QChar key = QChar(character).toUpper();
    return key.unicode() < 128 ? key.unicode() : 0;
}

} // namespace

CQtInputPlayer::~CQtInputPlayer() = default;

void CQtInputPlayer::Settle()
{
    // Something that moves all the time never settles.
    constexpr int mostRounds = 100;
    for (int i = 0;
         i < mostRounds && QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents); ++i) {
    }
}

void CQtInputPlayer::PressKey(Window& window, System::Word key, System::WideChar character,
                              const Classes::TShiftState& shift)
{
    QWidget* const focused = QApplication::focusWidget();
    const QPointer<QWidget> target =
        focused != nullptr ? focused : &dynamic_cast<CQtWindow&>(window).Widget();
    const int qtKey = key == 0 ? KeyThatTypes(character) : ToQtKey(key);
    const QString text = character == 0 ? QString() : QString(QChar(character));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, qtKey, ToQtModifiers(shift), text);
        if (target != nullptr) {
            QCoreApplication::sendEvent(target, &event);
        }
    }
}

void CQtInputPlayer::InsertText(Window& window, const System::UnicodeString& text)
{
    QInputMethodEvent event;
    event.setCommitString(ToQString(text));
    QCoreApplication::sendEvent(&dynamic_cast<CQtWindow&>(window).Widget(), &event);
}

void CQtInputPlayer::UseMouse(Window& window, const TMouseInput& mouse)
{
    const auto& played = dynamic_cast<CQtWindow&>(window);
    QWidget& surface = played.Surface();
    const QPointF place(mouse.place.X, mouse.place.Y);
    const QPointF onScreen = surface.mapToGlobal(place);
    const Qt::KeyboardModifiers modifiers = ToQtModifiers(mouse.shift);
    const Qt::MouseButtons buttons = ToQtButtons(mouse.shift);
    if (mouse.action == EMouseAction::Leave) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&surface, &event);
        return;
    }
    if (mouse.action == EMouseAction::Wheel) {
        QWheelEvent event(place, onScreen, {}, {0, mouse.wheelDelta}, buttons, modifiers, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&surface, &event);
        return;
    }
    if (mouse.action == EMouseAction::Down && (played.Widget().focusPolicy() & Qt::ClickFocus) != 0) {
        played.Widget().setFocus(Qt::MouseFocusReason);
    }
    const bool isMove = mouse.action == EMouseAction::Move;
    QMouseEvent event(TypeOf(mouse.action), place, onScreen, isMove ? Qt::NoButton : ToQtButton(mouse.button),
                      buttons, modifiers);
    QCoreApplication::sendEvent(&surface, &event);
}

} // namespace Toolkits

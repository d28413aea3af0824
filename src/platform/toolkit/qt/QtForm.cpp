// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtForm.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtDisplay.h"

#include <QWindow>

#include <algorithm>
#include <utility>

namespace Toolkits
{

namespace
{

/// A form's own widget. Where the Tab key leads to, and who has the focus after one that is hidden, is up to
/// the controls.
class CFormWidget final : public QWidget
{
protected:
    bool focusNextPrevChild(bool) override { return false; }
};

Qt::WindowFlags FlagsOf(EFrame frame, bool hasCloseButton)
{
    Qt::WindowFlags title = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (hasCloseButton) {
        title |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    switch (frame) {
    case EFrame::None:
        return Qt::Window | Qt::FramelessWindowHint;
    case EFrame::Dialog:
        return Qt::Dialog | title;
    case EFrame::ToolWindow:
    case EFrame::SizeableToolWindow:
        return Qt::Tool | title;
    default:
        return hasCloseButton ? Qt::Window : Qt::Window | title | Qt::WindowMinMaxButtonsHint;
    }
}

Qt::WindowStates FlagOf(EWindowState state)
{
    switch (state) {
    case EWindowState::Minimized:
        return Qt::WindowMinimized;
    case EWindowState::Maximized:
        return Qt::WindowMaximized;
    default:
        return Qt::WindowNoState;
    }
}

bool IsSizeable(EFrame frame)
{
    return frame == EFrame::Sizeable || frame == EFrame::SizeableToolWindow;
}

/// As large as all screens together at most: a window takes memory for all of it.
QSize HeldSize(long long width, long long height)
{
    const QSize most = DesktopGeometry().size();
    const auto hold = [](long long extent, int limit) {
        return static_cast<int>(std::clamp<long long>(extent, 1, std::max(limit, 1)));
    };
    return {hold(width, most.width()), hold(height, most.height())};
}

/// Far enough to be out of sight; further away a place isn't the same on every kind of screen.
int HeldPlace(int place)
{
    return std::clamp(place, -(1 << 14), 1 << 14);
}

/// Whether the session lets a program place its windows. One that doesn't tells no place that means anything.
bool CanPlace()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

CQtForm::CQtForm(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new CFormWidget),
      mMargins(UsualFrameMargins(settings.frame)),
      mFrame(settings.frame),
      mIsHosted(settings.host != nullptr),
      mIsEnabled(settings.isEnabled)
{
    if (mIsHosted) {
        Widget().setParent(static_cast<QWidget*>(settings.host), Qt::Widget);
    } else {
        Widget().setWindowFlags(FlagsOf(mFrame, settings.hasCloseButton));
    }
    Widget().setAttribute(Qt::WA_ShowWithoutActivating);
    Widget().setAttribute(Qt::WA_InputMethodEnabled);
    Widget().setAcceptDrops(true);
    SetText(settings.text);
    Place();
}

CQtForm::~CQtForm() = default;

bool CQtForm::CanBeActive() const
{
    return mIsEnabled && Widget().isVisible();
}

void CQtForm::SetText(const System::UnicodeString& text)
{
    // Qt takes these three characters once for the mark of a changed document, twice for themselves.
    Widget().setWindowTitle(ToQString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void CQtForm::SetBounds(const Types::TRect& bounds)
{
    if (bounds != Bounds()) {
        KeepBounds(bounds);
        Place();
    }
}

void CQtForm::Place()
{
    const Types::TRect& bounds = Bounds();
    if (mIsHosted) {
        Widget().setGeometry(QRect(QPoint(), ToQRect(bounds).size()));
        return;
    }
    const QSize size = HeldSize(0LL + bounds.Right - bounds.Left - mMargins.left - mMargins.right,
                                0LL + bounds.Bottom - bounds.Top - mMargins.top - mMargins.bottom);
    const bool isFixed = !IsSizeable(mFrame) && mFrame != EFrame::None;
    Widget().setMinimumSize(isFixed ? size : QSize(1, 1));
    Widget().setMaximumSize(isFixed ? size : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    // By the place of the client area, whatever the frame takes in truth: what is in the form is where the
    // controls say.
    Widget().setGeometry(
        QRect(QPoint(HeldPlace(bounds.Left) + mMargins.left, HeldPlace(bounds.Top) + mMargins.top), size));
}

void CQtForm::SetVisible(bool isVisible)
{
    const CQtWindow* const former = Desktop().Active();
    if (isVisible && !mIsHosted && former != nullptr && former != this && !former->CanBeActive() &&
        former->Widget().isVisible()) {
        // The user is about to be kept from that one, so this one stays in front of it.
        Widget().winId();
        Widget().windowHandle()->setTransientParent(former->Widget().windowHandle());
    }
    CQtWindow::SetVisible(isVisible);
}

Types::TRect CQtForm::SeenBounds() const
{
    const QRect now = Widget().geometry();
    const bool isPlaced = CanPlace();
    const int left = isPlaced ? now.x() - mMargins.left : Bounds().Left;
    const int top = isPlaced ? now.y() - mMargins.top : Bounds().Top;
    return {.Left = left,
            .Top = top,
            .Right = left + mMargins.left + now.width() + mMargins.right,
            .Bottom = top + mMargins.top + now.height() + mMargins.bottom};
}

void CQtForm::TellBounds()
{
    const Types::TRect bounds = SeenBounds();
    // Who asks again and again for what the screen doesn't grant would never end.
    if (bounds == Bounds() || bounds == mInsisted) {
        return;
    }
    KeepBounds(bounds);
    if (Tell([&](WindowEvents& events) { events.BoundsChanged(bounds); })) {
        mInsisted = Bounds() == bounds ? std::nullopt : std::optional(bounds);
    }
}

void CQtForm::Focus()
{
    if (!mIsHosted || Widget().isActiveWindow()) {
        CQtWindow::Focus();
    }
}

void CQtForm::BringToFront()
{
    CQtWindow::BringToFront();
    Desktop().MoveForm(this, true);
}

void CQtForm::SendToBack()
{
    CQtWindow::SendToBack();
    Desktop().MoveForm(this, false);
}

void CQtForm::SetState(EWindowState state)
{
    if (state == mState || mIsHosted) {
        return;
    }
    mState = state;
    if (state == EWindowState::Maximized) {
        // The limits hold a normal window of its kind.
        Widget().setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    const Qt::WindowStates others = Widget().windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    Widget().setWindowState(others | FlagOf(state));
}

void CQtForm::TellState()
{
    const Qt::WindowStates states = Widget().windowState();
    const EWindowState state = states.testFlag(Qt::WindowMinimized)   ? EWindowState::Minimized
                               : states.testFlag(Qt::WindowMaximized) ? EWindowState::Maximized
                                                                      : EWindowState::Normal;
    if (state != mState) {
        mState = state;
        Tell([state](WindowEvents& events) { events.StateChanged(state); });
    }
}

bool CQtForm::HandleEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Close:
        // Whether it closes is up to the form.
        event.ignore();
        if (CanBeActive()) {
            Tell([](WindowEvents& events) { events.CloseAsked(); });
        }
        return true;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        Desktop().ActivationTold(this, event.type() == QEvent::WindowActivate);
        return false;
    case QEvent::PaletteChange:
        Desktop().LookAtColors();
        return false;
    case QEvent::WindowStateChange:
        TellState();
        return false;
    case QEvent::Move:
    case QEvent::Resize:
        if (event.spontaneous()) {
            TellBounds();
        }
        return false;
    default:
        return CQtWindow::HandleEvent(event);
    }
}

} // namespace Toolkits

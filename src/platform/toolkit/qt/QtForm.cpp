// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtForm.h"

#include "platform/toolkit/qt/QtAccessible.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtDisplay.h"
#include "platform/toolkit/qt/QtMenuBar.h"
#include "platform/toolkit/qt/painting/QtPictures.h"

#include <QGuiApplication>
#include <QPixmap>
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

} // namespace

/// What is around a menu bar and the client area below it, in place of the client area.
class CFormFrame final : public QWidget
{
public:
    CFormFrame(CQtForm& form, QWidget& client)
        : QWidget(client.parentWidget(), client.windowFlags()), mForm(&form), mClient(client)
    {
        setAttribute(Qt::WA_ShowWithoutActivating, client.testAttribute(Qt::WA_ShowWithoutActivating));
        bar = new CQtMenuBar(form, this);
        const bool wasHidden = client.isHidden();
        client.setParent(this);
        client.setVisible(!wasHidden);
        setAccessibleName(client.accessibleName());
    }

    /// This one's own.
    CQtMenuBar* bar;

    void Leave() noexcept
    {
        mForm = nullptr;
        bar->Leave();
    }
    int BarHeight() const { return bar->actions().isEmpty() ? 0 : bar->sizeHint().height(); }
    void PlaceParts()
    {
        const int height = BarHeight();
        bar->setGeometry(0, 0, width(), height);
        mClient.setGeometry(0, height, width(), std::max(this->height() - height, 0));
    }

protected:
    bool focusNextPrevChild(bool) override { return false; }
    void resizeEvent(QResizeEvent*) override
    {
        if (mForm != nullptr) {
            PlaceParts();
        }
    }
    bool event(QEvent* event) override
    {
        return (mForm != nullptr && mForm->HandleFrameEvent(*event)) || QWidget::event(event);
    }

private:
    CQtForm* mForm;
    QWidget& mClient;
};

namespace
{

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

bool IsFrameEvent(QEvent::Type type)
{
    constexpr QEvent::Type types[] = {QEvent::Close,
                                      QEvent::WindowActivate,
                                      QEvent::WindowDeactivate,
                                      QEvent::WindowStateChange,
                                      QEvent::PaletteChange,
                                      QEvent::Move,
                                      QEvent::Resize};
    return std::ranges::find(types, type) != std::end(types);
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
      mIsEnabled(settings.isEnabled)
{
    ShowToReaders(Widget(), this);
    if (IsHosted()) {
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

CQtForm::~CQtForm()
{
    ShowToReaders(Widget(), nullptr);
    if (mWhole == nullptr) {
        return;
    }
    mWhole->Leave();
    mWhole->hide();
    if (Desktop().getTellLevel() == 0) {
        // The client area ends by itself.
        Widget().setParent(nullptr);
        delete mWhole;
    } else {
        Desktop().Bury(mWhole, 1);
    }
}

QWidget& CQtForm::Whole() const noexcept
{
    return mWhole == nullptr ? Widget() : *mWhole;
}

int CQtForm::BarHeight() const
{
    return mWhole == nullptr ? 0 : mWhole->BarHeight();
}

void CQtForm::ShowMenuBar(bool isThere)
{
    if (mWhole == nullptr && !isThere) {
        return;
    }
    if (mWhole == nullptr) {
        const bool wasHidden = Widget().isHidden();
        const QString title = Widget().windowTitle();
        mWhole = new CFormFrame(*this, Widget());
        mWhole->setWindowTitle(title);
        mWhole->setVisible(!wasHidden);
    }
    mWhole->bar->Show(isThere);
    FollowBar();
}

void CQtForm::FollowBar()
{
    if (BarHeight() != mBarHeight) {
        Place();
        if (IsHosted()) {
            // Whoever shows the form makes room.
            Whole().updateGeometry();
        }
    }
}

bool CQtForm::OpenMenu(int id)
{
    if (BarHeight() == 0) {
        return false;
    }
    mWhole->bar->Open(id);
    return true;
}

bool CQtForm::CanBeActive() const
{
    return mIsEnabled && Widget().isVisible();
}

void CQtForm::SetText(const System::UnicodeString& text)
{
    // Qt takes these three characters once for the mark of a changed document, twice for themselves.
    Whole().setWindowTitle(ToQString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
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
    const int bar = BarHeight();
    mBarHeight = bar;
    if (IsHosted()) {
        Whole().setGeometry(QRect(QPoint(), ToQRect(bounds).size() + QSize(0, bar)));
        if (mWhole != nullptr) {
            mWhole->PlaceParts();
        }
        return;
    }
    const QSize size = HeldSize(0LL + bounds.Right - bounds.Left - mMargins.left - mMargins.right,
                                0LL + bounds.Bottom - bounds.Top - mMargins.top - mMargins.bottom + bar);
    const bool isFixed = !IsSizeable(mFrame) && mFrame != EFrame::None;
    Whole().setMinimumSize(isFixed ? size : QSize(1, 1));
    Whole().setMaximumSize(isFixed ? size : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    // By the place of the client area, whatever the frame takes in truth: what is in the form is where the
    // controls say.
    Whole().setGeometry(QRect(
        QPoint(HeldPlace(bounds.Left) + mMargins.left, HeldPlace(bounds.Top) + mMargins.top - bar), size));
    if (mWhole != nullptr) {
        mWhole->PlaceParts();
    }
}

void CQtForm::SetVisible(bool isVisible)
{
    const CQtWindow* const former = Desktop().Active();
    if (isVisible && !IsHosted() && former != nullptr && former != this && !former->CanBeActive() &&
        former->Widget().isVisible()) {
        // The user is about to be kept from that one, so this one stays in front of it.
        Whole().winId();
        Whole().windowHandle()->setTransientParent(former->Widget().window()->windowHandle());
    }
    if (mWhole != nullptr) {
        mWhole->setVisible(isVisible);
    }
    CQtWindow::SetVisible(isVisible);
}

Types::TRect CQtForm::SeenBounds() const
{
    const QRect now = Whole().geometry().adjusted(0, BarHeight(), 0, 0);
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
    if (!IsHosted() || Widget().isActiveWindow()) {
        CQtWindow::Focus();
    }
}

void CQtForm::BringToFront()
{
    Whole().raise();
    Desktop().MoveForm(this, true);
}

void CQtForm::SendToBack()
{
    Whole().lower();
    Desktop().MoveForm(this, false);
}

void CQtForm::SetState(EWindowState state)
{
    if (state == mState || IsHosted()) {
        return;
    }
    mState = state;
    if (state == EWindowState::Maximized) {
        // The limits hold a normal window of its kind.
        Whole().setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    const Qt::WindowStates others = Whole().windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    Whole().setWindowState(others | FlagOf(state));
}

bool CQtForm::Grab(Pixels& pixels)
{
    pixels = PixelsOf(Whole().grab().toImage());
    return true;
}

void CQtForm::TellState()
{
    const Qt::WindowStates states = Whole().windowState();
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
    // The window around a bar hears of its own.
    return IsFrameEvent(event.type()) ? mWhole == nullptr && HandleFrameEvent(event)
                                      : CQtWindow::HandleEvent(event);
}

bool CQtForm::HandleFrameEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Close:
        // Whether it closes is up to the form. Who closes all windows goes on if it did.
        event.setAccepted(CanBeActive() &&
                          (!Tell([](WindowEvents& events) { events.CloseAsked(); }) || Widget().isHidden()));
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
    case QEvent::LayoutRequest:
        // The bar may have its first items, or lost its last.
        FollowBar();
        return false;
    case QEvent::Move:
    case QEvent::Resize:
        if (event.spontaneous()) {
            TellBounds();
        }
        return false;
    default:
        return false;
    }
}

} // namespace Toolkits

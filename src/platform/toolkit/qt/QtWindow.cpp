// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtWindow.h"

#include "platform/host/Host_Path.h"
#include "platform/toolkit/qt/QtAccessible.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtKeys.h"
#include "platform/toolkit/qt/painting/QtFonts.h"
#include "platform/toolkit/qt/painting/QtPainterDevice.h"
#include "platform/toolkit/qt/painting/QtPictures.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QPixmap>
#include <QTextDocument>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <utility>

namespace Toolkits
{

/// Sees what a widget, or a part of it, hears, before that acts on it.
class CQtWindow::CFilter final : public QObject
{
public:
    explicit CFilter(CQtWindow& window) : mWindow(window) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        CQtDesktop& desktop = *mWindow.mDesktop;
        try {
            return mWindow.HandleEvent(*event);
        } catch (...) {
            desktop.Raise(std::current_exception());
            return true;
        }
    }

private:
    CQtWindow& mWindow;
};

namespace
{

/// The most that Qt lets a widget have.
constexpr int MaximumExtent = QWIDGETSIZE_MAX;

QRect HeldRect(const Types::TRect& bounds)
{
    const auto place = [](int value) { return std::clamp(value, -MaximumExtent, MaximumExtent); };
    const auto extent = [](long long begin, long long end) {
        return static_cast<int>(std::clamp<long long>(end - begin, 0, MaximumExtent));
    };
    return {place(bounds.Left), place(bounds.Top), extent(bounds.Left, bounds.Right),
            extent(bounds.Top, bounds.Bottom)};
}

/// What of a region is painted one by one: its rectangles, if they are much less than the one around them.
std::vector<QRect> PartsOf(const QRegion& region)
{
    constexpr int most = 16;
    const auto areaOf = [](const QRect& rect) { return 1LL * rect.width() * rect.height(); };
    const QRect all = region.boundingRect();
    const long long area =
        std::accumulate(region.begin(), region.end(), 0LL,
                        [&](long long sum, const QRect& rect) { return sum + areaOf(rect); });
    if (region.rectCount() > most || 2 * area > areaOf(all)) {
        return {all};
    }
    return {region.begin(), region.end()};
}

bool HaveSameColors(const TWindowLook& a, const TWindowLook& b)
{
    return a.textColor == b.textColor && a.ground == b.ground;
}

bool IsSame(const TWindowLook& a, const TWindowLook& b)
{
    return a.font == b.font && HaveSameColors(a, b) && a.isMirrored == b.isMirrored;
}

} // namespace

bool IsLent(const QFocusEvent& event)
{
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason;
}

CQtWindow::CQtWindow(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings, QWidget* widget)
    : mDesktop(std::move(desktop)),
      mState(std::make_shared<TState>()),
      mEvents(settings.events),
      mContents(settings.contents),
      mParent(dynamic_cast<CQtWindow*>(settings.parent)),
      mWidget(widget),
      mFilter(std::make_unique<CFilter>(*this)),
      mBounds(settings.bounds),
      mIsForm(settings.kind == EWindowKind::Form),
      mIsHosted(settings.host != nullptr)
{
    mWidget->setObjectName(ToQString(settings.name));
    // Who doesn't act on the mouse keeps it from its parent all the same.
    mWidget->setAttribute(Qt::WA_NoMousePropagation);
    mWidget->setMouseTracking(true);
    mWidget->installEventFilter(mFilter.get());
    if (mParent != nullptr) {
        mParent->mInner.insert(this);
        mIsColored = !mIsForm && mParent->mIsColored;
    }
    if (mParent != nullptr && !mIsForm) {
        mWidget->setParent(&mParent->Surface());
    }
    if (!mIsForm) {
        mWidget->setGeometry(HeldRect(mBounds));
        mWidget->setEnabled(settings.isEnabled);
    }
    mDesktop->Add(this);
}

CQtWindow::~CQtWindow()
{
    mState->isAlive = false;
    mFilter.reset();
    for (CQtWindow* const inner : mInner) {
        inner->mParent = nullptr;
    }
    if (mParent != nullptr) {
        mParent->mInner.erase(this);
    }
    mDesktop->Forget(this);
    const int level = mDesktop->getTellLevel();
    if (level == 0) {
        delete mWidget;
        return;
    }
    // Qt may be at work on it, further down on the stack.
    mWidget->hide();
    mDesktop->Bury(mWidget, mState->tellCount > 0 ? 1 : level);
}

CQtWindow* CQtWindow::Form() noexcept
{
    CQtWindow* outer = this;
    while (outer != nullptr && !outer->mIsForm) {
        outer = outer->mParent;
    }
    return outer;
}

bool CQtWindow::IsWithin(const CQtWindow* outer) const noexcept
{
    const CQtWindow* window = this;
    while (window != nullptr && window != outer) {
        window = window->mParent;
    }
    return outer == nullptr || window != nullptr;
}

QObject* CQtWindow::Context() const noexcept
{
    return mFilter.get();
}

void CQtWindow::WatchPart(QWidget* part)
{
    part->installEventFilter(mFilter.get());
    part->setAttribute(Qt::WA_NoMousePropagation);
    part->setMouseTracking(true);
}

void CQtWindow::SetLabel(const System::UnicodeString& label)
{
    mWidget->setAccessibleName(ToQString(label));
}

void CQtWindow::SetBounds(const Types::TRect& bounds)
{
    mBounds = bounds;
    mWidget->setGeometry(HeldRect(bounds));
}

void CQtWindow::SetVisible(bool isVisible)
{
    const std::shared_ptr<TState> state = mState;
    mWidget->setVisible(isVisible);
    if (!isVisible && state->isAlive) {
        mDesktop->Leave(this);
    }
}

void CQtWindow::SetEnabled(bool isEnabled)
{
    mWidget->setEnabled(isEnabled);
}

void CQtWindow::SetLook(const TWindowLook& look)
{
    if (mHasLook && IsSame(look, mLook)) {
        return;
    }
    // What those in it share with it stays theirs.
    if (mIsColored ? !HaveSameColors(look, mLook) : !IsDesktopsOwn(look)) {
        KeepInnerColors();
    }
    for (CQtWindow* const inner : mInner) {
        inner->ShowFont(true);
    }
    mLook = look;
    mHasLook = true;
    ShowColors();
    ShowFont(false);
    Surface().update();
}

bool CQtWindow::IsDesktopsOwn(const TWindowLook& look) const
{
    const QPalette desktop = QGuiApplication::palette();
    const bool isField = Surface().backgroundRole() == QPalette::Base;
    return desktop.color(QPalette::Text).rgba() == look.textColor &&
           desktop.color(isField ? QPalette::Base : QPalette::Window).rgba() == look.ground;
}

void CQtWindow::ShowFont(bool isOwn)
{
    if (!mHasLook) {
        return;
    }
    // Qt hands it down to those in the widget, and lays a widget out anew for each that is set.
    const bool isShared = !isOwn && IsWithinLook();
    const QFont font = ToQFont(mLook.font);
    if (!isShared || mWidget->font() != font) {
        mWidget->setFont(font);
    }
    const Qt::LayoutDirection direction = mLook.isMirrored ? Qt::RightToLeft : Qt::LeftToRight;
    if (isOwn || mWidget->layoutDirection() != direction) {
        mWidget->setLayoutDirection(direction);
    }
}

void CQtWindow::FollowDesktop()
{
    if (mHasLook && !mIsColored && !IsDesktopsOwn(mLook)) {
        KeepInnerColors();
        ShowColors();
    }
}

void CQtWindow::ShowColors()
{
    if (!mHasLook) {
        return;
    }
    // Those in a widget of another palette each get one of their own, and styles paint anew for each palette
    // what they keep for all that share one.
    const bool isInColors = mIsHosted || (!mIsForm && mParent != nullptr && mParent->mIsColored);
    if (!isInColors && IsDesktopsOwn(mLook)) {
        if (std::exchange(mHasColors, false)) {
            mWidget->setPalette(QPalette());
        }
        mIsColored = false;
        return;
    }
    const bool isShared = IsWithinLook() && isInColors && HaveSameColors(mLook, mParent->mLook);
    if (mHasColors || !isShared) {
        SetColors();
    }
    mIsColored = true;
}

void CQtWindow::KeepInnerColors()
{
    std::vector<CQtWindow*> takers;
    const auto collect = [&takers](const CQtWindow& window) {
        std::ranges::copy_if(window.mInner, std::back_inserter(takers),
                             [](const CQtWindow* inner) { return !inner->mHasColors; });
    };
    collect(*this);
    std::size_t next = 0;
    while (next < takers.size()) {
        collect(*takers[next++]);
    }
    // The innermost first: then those around hand nothing down.
    std::for_each(takers.rbegin(), takers.rend(), [](CQtWindow* taker) {
        if (taker->mHasLook) {
            taker->SetColors();
            taker->mIsColored = true;
        }
    });
}

void CQtWindow::SetColors()
{
    mHasColors = true;
    QPalette palette;
    const QColor text = QColor::fromRgba(mLook.textColor);
    const QColor ground = QColor::fromRgba(mLook.ground);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, text);
        palette.setColor(QPalette::Inactive, role, text);
    }
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        palette.setColor(role, ground);
    }
    mWidget->setPalette(palette);
}

void CQtWindow::Invalidate(const Types::TRect* part)
{
    if (part == nullptr) {
        Surface().update();
    } else {
        Surface().update(HeldRect(*part));
    }
}

void CQtWindow::Scroll(const Types::TRect& part, const Types::TSize& by)
{
    const QRect area = HeldRect(part);
    // Between broken pixels nothing can be moved.
    const double scale = mWidget->devicePixelRatioF();
    if (std::floor(scale) != scale || std::abs(by.cx) >= area.width() || std::abs(by.cy) >= area.height()) {
        Surface().update(area);
    } else {
        Surface().scroll(by.cx, by.cy, area);
    }
}

bool CQtWindow::Grab(Pixels& pixels)
{
    pixels = PixelsOf(mWidget->grab().toImage());
    return true;
}

void CQtWindow::Update()
{
    // All that is marked in a form is painted in one.
    QCoreApplication::sendPostedEvents(mWidget->window(), QEvent::UpdateRequest);
}

bool CQtWindow::IsBlocked()
{
    CQtWindow* const form = Form();
    return (form != nullptr && !form->CanBeActive()) || !IsWithin(mDesktop->Only());
}

bool CQtWindow::HandleEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        // Keys are the control's; Qt has no shortcuts of its own to find among them. A menu bar looks out for
        // Alt by this.
        event.setAccepted(static_cast<const QKeyEvent&>(event).key() != Qt::Key_Alt);
        return event.isAccepted();
    case QEvent::KeyPress:
        return HandleKey(static_cast<const QKeyEvent&>(event));
    case QEvent::KeyRelease:
        return HandleRelease(static_cast<const QKeyEvent&>(event));
    case QEvent::InputMethod:
        return HandleInputMethod(static_cast<const QInputMethodEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return HandleMouse(static_cast<const QMouseEvent&>(event));
    case QEvent::Wheel:
        return HandleWheel(static_cast<const QWheelEvent&>(event));
    case QEvent::Leave:
        Tell([](WindowEvents& events) { events.MouseUsed({.action = EMouseAction::Leave}); });
        return false;
    case QEvent::ContextMenu:
        // The control shows its own when the button is let go.
        return static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
    case QEvent::ToolTip:
        return ShowHint(static_cast<const QHelpEvent&>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        return HandleFocus(event);
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return HandleDrop(event);
    case QEvent::Paint:
        return !ActsByItself() && Paint(static_cast<const QPaintEvent&>(event));
    default:
        return false;
    }
}

bool CQtWindow::HandleKey(const QKeyEvent& event)
{
    if (IsBlocked()) {
        return true;
    }
    if (!UserActs()) {
        return true;
    }
    System::Word key = KeyOf(event);
    const Classes::TShiftState shift = ShiftOf(event.modifiers());
    bool isTaken = false;
    if (key != 0) {
        const bool isHere = Tell([&](WindowEvents& events) { isTaken = events.KeyPressed(key, shift); });
        if (!isHere || isTaken) {
            return true;
        }
    }
    // Keys with Alt are commands, and the key that deletes types nothing.
    QString typed;
    const bool isText = !shift.Contains(Classes::ssAlt) && event.key() != Qt::Key_Delete;
    for (const QChar unit : isText ? event.text() : QString()) {
        System::WideChar character = unit.unicode();
        const bool isHere = Tell([&](WindowEvents& events) { isTaken = events.CharacterTyped(character); });
        if (!isHere) {
            return true;
        }
        if (!isTaken) {
            typed += QChar(character);
        }
    }
    const bool isRefused = isText && typed.isEmpty() && !event.text().isEmpty();
    return isRefused || !ActsOnKeys() || PassKey(event, key, isText ? typed : event.text());
}

bool CQtWindow::PassKey(const QKeyEvent& event, System::Word key, const QString& text)
{
    const bool isOther = key != KeyOf(event) && ToQtKey(key) != 0;
    QKeyEvent passed(event.type(), isOther ? ToQtKey(key) : event.key(), event.modifiers(), text,
                     event.isAutoRepeat(), static_cast<quint16>(event.count()));
    Pass(passed);
    return true;
}

bool CQtWindow::Pass(QEvent& event)
{
    const std::shared_ptr<TState> state = mState;
    mIsPassing = true;
    // Sent, it would go on to those around the widget if that has no use for it.
    static_cast<QObject*>(mWidget)->event(&event);
    if (state->isAlive) {
        mIsPassing = false;
    }
    return state->isAlive;
}

bool CQtWindow::HandleRelease(const QKeyEvent& event)
{
    const System::Word key = KeyOf(event);
    // A key that is held is pressed again and again, but let go once.
    if (event.isAutoRepeat() || IsBlocked()) {
        return true;
    }
    bool isTaken = false;
    const bool isHere = Tell([&](WindowEvents& events) {
        isTaken = key != 0 && events.KeyReleased(key, ShiftOf(event.modifiers()));
    });
    if (isHere && !isTaken && ActsByItself()) {
        const std::unique_ptr<QEvent> passed(event.clone());
        Pass(*passed);
    }
    return true;
}

bool CQtWindow::HandleInputMethod(const QInputMethodEvent& event)
{
    if (ActsByItself() || IsBlocked()) {
        return IsBlocked();
    }
    for (const QChar unit : event.commitString()) {
        System::WideChar character = unit.unicode();
        if (!Tell([&](WindowEvents& events) { events.CharacterTyped(character); })) {
            break;
        }
    }
    return true;
}

bool CQtWindow::UserActs()
{
    const std::shared_ptr<CQtDesktop> desktop = mDesktop;
    const std::shared_ptr<TState> state = mState;
    desktop->UserActed(Form());
    return state->isAlive;
}

bool CQtWindow::TakeKeyboard()
{
    const std::shared_ptr<CQtDesktop> desktop = mDesktop;
    const std::shared_ptr<TState> state = mState;
    // Qt tells of it only once the window is the active one, when the button may be up again.
    if ((mWidget->focusPolicy() & Qt::ClickFocus) != 0) {
        desktop->FocusTold(this, true);
    }
    return state->isAlive;
}

bool CQtWindow::HandleMouse(const QMouseEvent& event)
{
    if (IsBlocked()) {
        return true;
    }
    if (!mWidget->isEnabled()) {
        return false;
    }
    TMouseInput mouse;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        mouse.action = EMouseAction::Down;
        if (!UserActs() || !TakeKeyboard()) {
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        mouse.action = EMouseAction::Up;
        break;
    case QEvent::MouseButtonDblClick:
        mouse.action = EMouseAction::DoubleClick;
        break;
    default:
        break;
    }
    mouse.button = ButtonOf(event.button());
    mouse.shift = ShiftOf(event.modifiers(), event.buttons());
    mouse.place = FromQPoint(event.position().toPoint());
    bool isTaken = false;
    const bool isHere = Tell([&](WindowEvents& events) { isTaken = events.MouseUsed(mouse); });
    if (!isHere || isTaken || !ActsByItself()) {
        return true;
    }
    if (mouse.action == EMouseAction::Up && mouse.button == Controls::mbRight) {
        ShowOwnMenu(event);
    }
    return false;
}

void CQtWindow::ShowOwnMenu(const QMouseEvent& event)
{
    QContextMenuEvent menu(QContextMenuEvent::Other, event.position().toPoint(),
                           event.globalPosition().toPoint(), event.modifiers());
    QCoreApplication::sendEvent(&Surface(), &menu);
}

bool CQtWindow::HandleWheel(const QWheelEvent& event)
{
    if (IsBlocked()) {
        return true;
    }
    TMouseInput mouse;
    mouse.action = EMouseAction::Wheel;
    mouse.shift = ShiftOf(event.modifiers(), event.buttons());
    mouse.place = FromQPoint(event.position().toPoint());
    mouse.wheelDelta = event.angleDelta().y();
    bool isTaken = false;
    const bool isHere = Tell([&](WindowEvents& events) { isTaken = events.MouseUsed(mouse); });
    return !isHere || isTaken || !ActsByItself();
}

bool CQtWindow::ShowHint(const QHelpEvent& event)
{
    System::UnicodeString hint;
    const auto ask = [&](WindowEvents& events) { hint = events.HintAt(FromQPoint(event.pos())); };
    if (!IsBlocked() && Tell(ask)) {
        // It goes by itself after a while, and when the mouse leaves. Nothing in it is a mark of text.
        const QString text = hint.IsEmpty() ? QString() : Qt::convertFromPlainText(ToQString(hint));
        QToolTip::showText(event.globalPos(), text, mWidget);
    }
    return true;
}

bool CQtWindow::HandleFocus(const QEvent& event)
{
    if (mIsForm || IsLent(static_cast<const QFocusEvent&>(event))) {
        return false;
    }
    const std::shared_ptr<TState> state = mState;
    mDesktop->FocusTold(this, event.type() == QEvent::FocusIn);
    return !state->isAlive;
}

bool CQtWindow::HandleDrop(QEvent& event)
{
    auto& drop = static_cast<QDropEvent&>(event);
    const QList<QUrl> urls = drop.mimeData()->urls();
    if (urls.isEmpty()) {
        // A text goes to whoever edits one.
        return !ActsByItself();
    }
    drop.acceptProposedAction();
    if (event.type() == QEvent::Drop) {
        std::vector<System::UnicodeString> files;
        for (const QUrl& url : urls) {
            if (url.isLocalFile()) {
                files.push_back(Sysutils::FromHostPath(url.toLocalFile().toStdString()));
            }
        }
        const Types::TPoint place = FromQPoint(drop.position().toPoint());
        Tell([&](WindowEvents& events) { events.FilesDropped(files, place); });
    }
    return true;
}

bool CQtWindow::Paint(const QPaintEvent& event)
{
    const QRect part = event.rect();
    if (part.isEmpty()) {
        return true;
    }
    if (!IsWithin(mDesktop->Only())) {
        mDesktop->PaintLater(this);
        return true;
    }
    // A form is seen between all that is in it, in more parts than are worth it.
    for (const QRect& each : mIsForm ? std::vector<QRect>{part} : PartsOf(event.region())) {
        CQtPainterDevice device(*mWidget, FromQRect(each), mLook.ground);
        if (!Tell([&](WindowEvents& events) { events.PaintAsked(device, FromQRect(each)); })) {
            break;
        }
        device.Show(*mWidget);
    }
    return true;
}

CQtCanvas::CQtCanvas(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new QWidget)
{
    ShowToReaders(Widget(), this);
    Widget().setAttribute(Qt::WA_InputMethodEnabled);
    Widget().setAcceptDrops(true);
    // It covers all of its part, so that what lies below need not be drawn first.
    Widget().setAttribute(Qt::WA_OpaquePaintEvent);
}

CQtCanvas::~CQtCanvas()
{
    ShowToReaders(Widget(), nullptr);
}

void CQtCanvas::AnnounceCell()
{
    TellReadersOfCell(Widget(), ECellNews::IfOther);
}

bool CQtCanvas::HandleEvent(QEvent& event)
{
    if (CQtWindow::HandleEvent(event)) {
        return true;
    }
    if (event.type() == QEvent::FocusIn) {
        // Behind what Qt tells of the whole widget.
        QMetaObject::invokeMethod(
            Context(), [this] { TellReadersOfCell(Widget(), ECellNews::Always); }, Qt::QueuedConnection);
    }
    return false;
}

} // namespace Toolkits

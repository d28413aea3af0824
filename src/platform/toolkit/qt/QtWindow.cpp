// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtWindow.h"

#include "platform/host/Host_Path.h"
#include "platform/toolkit/qt/QtAccessible.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtFonts.h"
#include "platform/toolkit/qt/QtKeys.h"
#include "platform/toolkit/qt/QtPainterDevice.h"
#include "platform/toolkit/qt/QtPictures.h"

#include <QCoreApplication>
#include <QDropEvent>
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
            return mWindow.HandleFiltered(*event);
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

CQtWindow::CQtWindow(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings, QWidget* widget)
    : mDesktop(std::move(desktop)),
      mState(std::make_shared<TState>()),
      mEvents(settings.events),
      mContents(settings.contents),
      mParent(dynamic_cast<CQtWindow*>(settings.parent)),
      mWidget(widget),
      mFilter(std::make_unique<CFilter>(*this)),
      mBounds(settings.bounds),
      mIsForm(settings.kind == EWindowKind::Form)
{
    mWidget->setObjectName(ToQString(settings.name));
    ShowToReaders(*mWidget, this);
    // Who doesn't act on the mouse keeps it from its parent all the same.
    mWidget->setAttribute(Qt::WA_NoMousePropagation);
    mWidget->setMouseTracking(true);
    mWidget->installEventFilter(mFilter.get());
    if (mParent != nullptr && !mIsForm) {
        mWidget->setParent(&mParent->Surface());
        mParent->mHasInner = true;
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
    ShowToReaders(*mWidget, nullptr);
    mFilter.reset();
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
    if (mHasInner) {
        // What they share with this one stays theirs.
        mDesktop->EachIn(*this, [](CQtWindow& inner) { inner.ShowLook(true); });
    }
    mLook = look;
    mHasLook = true;
    ShowLook(false);
    Surface().update();
}

void CQtWindow::ShowLook(bool isOwn)
{
    if (!mHasLook) {
        return;
    }
    // Qt hands the look of a widget down to those in it, and lays a widget out anew for each that is set.
    const bool isShared = !isOwn && !mIsForm && mParent != nullptr && mParent->mHasLook;
    const bool hasColors = isShared && !mHasColors && HaveSameColors(mLook, mParent->mLook);
    if (!hasColors) {
        ShowColors();
    }
    const QFont font = ToQFont(mLook.font);
    if (!isShared || mWidget->font() != font) {
        mWidget->setFont(font);
    }
    const Qt::LayoutDirection direction = mLook.isMirrored ? Qt::RightToLeft : Qt::LeftToRight;
    if (isOwn || mWidget->layoutDirection() != direction) {
        mWidget->setLayoutDirection(direction);
    }
}

void CQtWindow::ShowColors()
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

bool CQtWindow::HandleFiltered(QEvent& event)
{
    const bool isInput = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
                         event.type() == QEvent::MouseButtonRelease;
    return !(mIsPassing && isInput) && HandleEvent(event);
}

bool CQtWindow::HandleEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        // Keys are the control's; Qt has no shortcuts of its own to find among them.
        event.accept();
        return true;
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
    mDesktop->UserActed(Form());
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
    return isRefused || !ActsByItself() || PassKey(event, key, isText ? typed : event.text());
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
    QCoreApplication::sendEvent(mWidget, &event);
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
    return !isHere || isTaken || !ActsByItself();
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
        mDesktop->UserActed(Form());
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
    return !isHere || isTaken || !ActsByItself();
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
    // A menu, or the list of a combo box, takes the keyboard for a while and gives it back.
    if (static_cast<const QFocusEvent&>(event).reason() == Qt::PopupFocusReason || mIsForm) {
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
    Widget().setAttribute(Qt::WA_InputMethodEnabled);
    Widget().setAcceptDrops(true);
    // It covers all of its part, so that what lies below need not be drawn first.
    Widget().setAttribute(Qt::WA_OpaquePaintEvent);
}

CQtCanvas::~CQtCanvas() = default;

} // namespace Toolkits

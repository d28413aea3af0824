// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtMenuBar.h"

#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtMenus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace Toolkits
{

CQtMenuBar::CQtMenuBar(CQtWindow& window, QWidget* parent) : QMenuBar(parent), mWindow(&window)
{
    // Always in the form itself, where its client area begins below.
    setNativeMenuBar(false);
    setFocusPolicy(Qt::NoFocus);
}

CQtMenuBar::~CQtMenuBar() = default;

void CQtMenuBar::Leave() noexcept
{
    mWindow = nullptr;
    mIsThere = false;
}

void CQtMenuBar::Show(bool isThere)
{
    if (isThere != mIsThere) {
        mIsThere = isThere;
        Update();
    } else if (isThere && !std::exchange(mIsUpdateDue, true)) {
        // A program that changes many items, one by one, is asked once.
        QMetaObject::invokeMethod(
            this, [this] { Update(); }, Qt::QueuedConnection);
    }
}

bool CQtMenuBar::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        // The user may be kept from the form.
        return mWindow == nullptr || !mWindow->CanBeActive() || QMenuBar::event(event);
    default:
        return QMenuBar::event(event);
    }
}

bool CQtMenuBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // By Alt the user enters the bar, if there is something in it and he isn't kept from the form.
        const bool canEnter = mWindow != nullptr && mWindow->CanBeActive() && !actions().isEmpty();
        return canEnter && QMenuBar::eventFilter(watched, event);
    }
    const bool isEscape =
        event->type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape;
    if (!isEscape || std::ranges::find(mTops, watched, &TTop::menu) == mTops.end()) {
        return QMenuBar::eventFilter(watched, event);
    }
    // By itself the bar would keep the keyboard until another Escape.
    const QPointer<CQtMenuBar> self = this;
    watched->event(event);
    if (self != nullptr) {
        LeaveKeys();
    }
    return true;
}

void CQtMenuBar::LeaveKeys()
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    keyPressEvent(&escape);
}

void CQtMenuBar::focusOutEvent(QFocusEvent* event)
{
    // By itself the bar would take the keyboard back from whoever was given it meanwhile.
    const QPointer<QWidget> next = QApplication::focusWidget();
    QMenuBar::focusOutEvent(event);
    if (next != nullptr && next != QApplication::focusWidget()) {
        next->setFocus(event->reason());
    }
}

void CQtMenuBar::Update()
{
    mIsUpdateDue = false;
    std::vector<TMenuEntry> entries;
    if (mIsThere) {
        mWindow->Tell([&](WindowEvents& events) { entries = events.MenuAsked(); });
    }
    const auto isAlike = [](const TTop& top, const TMenuEntry& entry) {
        return (top.menu == nullptr) == entry.entries.empty();
    };
    // One that is open stays open.
    if (!std::ranges::equal(mTops, entries, isAlike)) {
        Rebuild(entries);
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Fill(mTops[i], entries[i]);
    }
}

void CQtMenuBar::Rebuild(const std::vector<TMenuEntry>& entries)
{
    clear();
    for (const TTop& top : std::exchange(mTops, {})) {
        top.menu != nullptr ? top.menu->deleteLater() : top.action->deleteLater();
    }
    for (const TMenuEntry& entry : entries) {
        if (entry.entries.empty()) {
            QAction* const action = addAction(QString());
            mTops.push_back({entry.id, action, nullptr});
            connect(action, &QAction::triggered, this, [this, action] {
                const auto found = std::ranges::find(mTops, action, &TTop::action);
                ChooseSoon(found == mTops.end() ? 0 : found->id);
            });
        } else {
            QMenu* const menu = addMenu(QString());
            menu->installEventFilter(this);
            mTops.push_back({entry.id, menu->menuAction(), menu});
            connect(menu, &QMenu::aboutToShow, this, [this, menu] { MenuOpens(menu); });
        }
    }
}

void CQtMenuBar::Fill(TTop& top, const TMenuEntry& entry)
{
    top.id = entry.id;
    top.action->setText(ToQString(entry.caption));
    top.action->setEnabled(entry.isEnabled);
    if (top.menu != nullptr) {
        top.menu->clear();
        for (QMenu* const inner : top.menu->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
            inner->deleteLater();
        }
        FillMenu(*top.menu, entry.entries, [this](int id) { ChooseSoon(id); });
    }
}

void CQtMenuBar::MenuOpens(const QMenu* menu)
{
    const auto found = std::ranges::find(mTops, menu, &TTop::menu);
    if (found == mTops.end() || mWindow == nullptr) {
        return;
    }
    const QPointer<CQtMenuBar> self = this;
    const bool isHere = mWindow->Tell([id = found->id](WindowEvents& events) { events.MenuOpening(id); });
    if (isHere && self != nullptr && mIsThere) {
        Update();
    }
}

void CQtMenuBar::ChooseSoon(int id)
{
    if (mWindow == nullptr || !mWindow->CanBeActive()) {
        // A reader of screens doesn't ask whether the user may.
        return;
    }
    // The menu is closed, and nothing of Qt's at work on it, when the item acts.
    QMetaObject::invokeMethod(
        this,
        [this, id] {
            if (mWindow != nullptr && id != 0) {
                mWindow->Tell([id](WindowEvents& events) { events.MenuChosen(id); });
            }
        },
        Qt::QueuedConnection);
}

void CQtMenuBar::Open(int id)
{
    const auto found = std::ranges::find(mTops, id, &TTop::id);
    if (found == mTops.end() || !found->action->isEnabled()) {
        return;
    }
    if (found->menu == nullptr) {
        ChooseSoon(id);
    } else {
        setActiveAction(found->action);
    }
}

} // namespace Toolkits

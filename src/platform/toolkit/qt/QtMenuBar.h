// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

#include <QMenuBar>

#include <vector>

namespace Toolkits
{

struct TMenuEntry;

/// The menu bar of a form. What is in it is read from the form when something of it changed, and when the
/// user opens a menu.
class CQtMenuBar final : public QMenuBar
{
public:
    /// `parent` owns the bar, and may outlive the window.
    CQtMenuBar(CQtWindow& window, QWidget* parent);
    ~CQtMenuBar() override;

    /// The window, and so may be the menu, is at its end.
    void Leave() noexcept;
    /// Whether there is a menu; it is another one now, or has changed.
    void Show(bool isThere);
    /// Opens the menu of an entry, or chooses one without a menu.
    void Open(int id);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct TTop
    {
        int id;
        QAction* action;
        /// Null for an entry that is chosen itself.
        QMenu* menu;
    };

    void Update();
    void Rebuild(const std::vector<TMenuEntry>& entries);
    void Fill(TTop& top, const TMenuEntry& entry);
    void MenuOpens(const QMenu* menu);
    /// Gives the keyboard back to whoever had it.
    void LeaveKeys();
    void ChooseSoon(int id);

    CQtWindow* mWindow;
    bool mIsThere = false;
    std::vector<TTop> mTops;
    bool mIsUpdateDue = false;
};

} // namespace Toolkits

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

#include <optional>

namespace Toolkits
{

class CFormFrame;

/// A window on the screen itself, or in one of the program's own. One with a menu bar is within another one,
/// that has the bar above it: the client area is as large, and on the screen where it is, with and without.
class CQtForm final : public CQtWindow
{
public:
    CQtForm(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtForm() override;

    void SetBounds(const Types::TRect& bounds) override;
    void SetVisible(bool isVisible) override;
    /// A form that is disabled looks as it did, but the user can't do anything in it.
    void SetEnabled(bool isEnabled) override { mIsEnabled = isEnabled; }
    void SetText(const System::UnicodeString& text) override;
    void BringToFront() override;
    void SendToBack() override;
    void SetState(EWindowState state) override;
    /// With the menu bar.
    bool Grab(Pixels& pixels) override;
    /// In the window of others it comes to the front with that alone.
    void Focus() override;
    void ShowMenuBar(bool isThere) override;
    bool OpenMenu(int id) override;
    bool CanBeActive() const override;

    /// Of the window around the bar and the client area.
    bool HandleFrameEvent(QEvent& event);

protected:
    bool HandleEvent(QEvent& event) override;

private:
    /// The widget that is all of the form, a window on the screen.
    QWidget& Whole() const noexcept;
    int BarHeight() const;
    void Place();
    /// The bounds by what the screen shows. Where it doesn't let windows be placed, they are at the place
    /// that they were given.
    Types::TRect SeenBounds() const;
    /// Makes room for the bar as high as it is now.
    void FollowBar();
    void TellBounds();
    /// Tells of a state that nobody here set.
    void TellState();

    TFrameMargins mMargins;
    /// Null without a menu bar.
    CFormFrame* mWhole = nullptr;
    /// The height that the bar was given.
    int mBarHeight = 0;
    EFrame mFrame;
    EWindowState mState = EWindowState::Normal;
    /// What the screen made of the bounds, although the control asked for others.
    std::optional<Types::TRect> mInsisted;
    bool mIsEnabled;
};

} // namespace Toolkits

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

#include <optional>

namespace Toolkits
{

/// A window on the screen itself.
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
    /// In the window of others it comes to the front with that alone.
    void Focus() override;
    bool CanBeActive() const override;

protected:
    bool HandleEvent(QEvent& event) override;

private:
    void Place();
    /// The bounds by what the screen shows. Where it doesn't let windows be placed, they are at the place
    /// that they were given.
    Types::TRect SeenBounds() const;
    void TellBounds();
    /// Tells of a state that nobody here set.
    void TellState();

    TFrameMargins mMargins;
    EFrame mFrame;
    EWindowState mState = EWindowState::Normal;
    /// What the screen made of the bounds, although the control asked for others.
    std::optional<Types::TRect> mInsisted;
    /// Whether it lies in a widget of the program's own.
    bool mIsHosted;
    bool mIsEnabled;
};

} // namespace Toolkits

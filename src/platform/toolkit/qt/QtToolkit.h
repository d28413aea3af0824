// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/qt/QtInputPlayer.h"
#include "platform/toolkit/qt/QtMessages.h"

#include <QCoreApplication>
#include <QPointer>

#include <memory>

namespace Toolkits
{

class CQtDesktop;

/// Windows, boxes and pictures by Qt. The application object of Qt is made at the first use by the main
/// thread, unless the program has one, and stays to the end of the process.
class CQtToolkit final : public Toolkit
{
public:
    CQtToolkit();
    ~CQtToolkit() override;

    int ShowBox(const TBox& box) override;
    bool AskInput(const TInput& input, System::UnicodeString& value) override;
    TFileAnswer AskFiles(const TFileQuestion& question) override;
    bool SetClipboardText(const System::UnicodeString& text) override;
    System::UnicodeString GetClipboardText() override;
    bool SetClipboardPixels(const Pixels& pixels) override;
    Pixels GetClipboardPixels() override;
    Types::TRect DesktopRect() const override;
    Types::TRect FirstScreenRect() const override;
    std::unique_ptr<Window> MakeWindow(const TWindowSettings& settings) override;
    int ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint place) override;
    void EnterModal(ModalWindow&) override {}
    /// The usual ones: what a frame really takes is known only when it is seen, and is the window manager's.
    TFrameMargins FrameMargins(EFrame frame) const override;
    TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick) override;
    void StopTimer(TTimerId timer) override;
    TTextMetrics FontMetrics(const TFontData& font) const override;
    Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const override;
    TPixel SystemColor(int index) const override;
    std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) override;
    void SetCursor(int cursor) override;
    void Post(std::function<void()> action) override;
    void Watch(int descriptor, std::function<void()> action) override;
    void Unwatch(int descriptor) override;
    void SetActivationToken(const System::UnicodeString& token) override;
    bool ProcessMessage() override;
    bool ProcessInput(Window& window) override;
    void PostInput(Window& window, std::function<void()> input) override;
    void WaitMessage() override;
    InputPlayer* GetInputPlayer() override { return &mPlayer; }

private:
    /// Sees to it that there is an application object; all that needs one calls this first.
    void NeedApplication() const;
    bool ProcessQtEvents(bool canWait);
    /// Runs what waits where a loop of the program's own is about to sleep, which knows nothing of it.
    void ServeForeignLoop();

    mutable CQtMessages mMessages;
    CQtInputPlayer mPlayer;
    std::shared_ptr<CQtDesktop> mDesktop;
    /// The one that the messages go by; a program may end its own and make another.
    mutable QPointer<QCoreApplication> mApplication;
    /// What Qt's loop is connected by.
    mutable QObject mContext;
    /// How many loops of Qt's own run below the innermost of ours; -1 if none of ours runs.
    int mLoopsBelow = -1;
    /// The actions that ran since Qt had its turn.
    int mTurns = 0;
};

} // namespace Toolkits

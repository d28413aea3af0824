// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/internal/MessageLoop.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace Toolkits
{

/// Stands in for the toolkit of a plug-in until a screen is needed: a program that shows and measures nothing
/// never loads it. By then the loop is the built-in one; what waits there moves over, and from then on all is
/// passed on. The headless toolkit takes the place of one that isn't available.
class CLateToolkit final : public Toolkit
{
public:
    /// For the plug-in of that name.
    explicit CLateToolkit(std::string name) : mName(std::move(name)) {}
    ~CLateToolkit() override;

    int ShowBox(const TBox& box) override { return Screen().ShowBox(box); }
    bool AskInput(const TInput& input, System::UnicodeString& value) override
    {
        return Screen().AskInput(input, value);
    }
    TFileAnswer AskFiles(const TFileQuestion& question) override { return Screen().AskFiles(question); }
    bool SetClipboardText(const System::UnicodeString& text) override
    {
        return Screen().SetClipboardText(text);
    }
    System::UnicodeString GetClipboardText() override { return Screen().GetClipboardText(); }
    bool SetClipboardPixels(const Pixels& pixels) override { return Screen().SetClipboardPixels(pixels); }
    Pixels GetClipboardPixels() override;
    Types::TRect DesktopRect() const override { return Screen().DesktopRect(); }
    Types::TRect FirstScreenRect() const override { return Screen().FirstScreenRect(); }
    std::unique_ptr<Window> MakeWindow(const TWindowSettings& settings) override
    {
        return Screen().MakeWindow(settings);
    }
    int ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint place) override
    {
        return Screen().ShowMenu(entries, place);
    }
    void EnterModal(ModalWindow& window) override { Screen().EnterModal(window); }
    /// The usual ones as long as there is no screen.
    TFrameMargins FrameMargins(EFrame frame) const override;
    TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick) override;
    void StopTimer(TTimerId timer) override;
    TTextMetrics FontMetrics(const TFontData& font) const override { return Screen().FontMetrics(font); }
    Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const override
    {
        return Screen().TextExtent(font, text);
    }
    TPixel SystemColor(int index) const override { return Screen().SystemColor(index); }
    std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) override;
    /// A program without a window shows no cursor; the first window finds it.
    void SetCursor(int cursor) override;
    void Post(std::function<void()> action) override;
    void Watch(int descriptor, std::function<void()> action) override;
    void Unwatch(int descriptor) override;
    /// Kept for the first window.
    void SetActivationToken(const System::UnicodeString& token) override;
    bool ProcessMessage() override;
    bool ProcessInput(Window& window) override { return Screen().ProcessInput(window); }
    void PostInput(Window& window, std::function<void()> input) override;
    void WaitMessage() override;
    InputPlayer* GetInputPlayer() override { return Screen().GetInputPlayer(); }

private:
    /// The toolkit with the screen, which is loaded by the first call.
    Toolkit& Screen() const;
    /// Null until then.
    Toolkit* Loaded() const noexcept { return mLoaded.load(std::memory_order_acquire); }
    std::unique_ptr<Toolkit> Load() const;
    /// Hands all that waits over to `screen`, which is the one in use from here on.
    void MoveTo(Toolkit& screen) const;
    void MoveTimer(Toolkit& screen, const CTimerQueue::TTimer& timer) const;

    const std::string mName;
    mutable CMessageLoop mLoop;
    mutable std::unique_ptr<Toolkit> mScreen;
    /// `mScreen`, once all has moved there; changed under the lock, since other threads post meanwhile.
    mutable std::atomic<Toolkit*> mLoaded = nullptr;
    mutable std::mutex mPostMutex;
    /// The timers that moved, by the ids that they were started under.
    mutable std::map<TTimerId, TTimerId> mMovedTimers;
    int mCursor = 0;
    System::UnicodeString mActivationToken;
};

} // namespace Toolkits

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Support
{

/// A toolkit with windows of which boxes, menus and modal forms are answered by the script of another one,
/// whose clock it has if that is asked for.
class ScriptedScreen final : public Toolkits::Toolkit
{
public:
    /// Whether the tests run on a toolkit with windows.
    static bool IsWanted()
    {
        const char* const wish = std::getenv("TRS8_BTL_TOOLKIT");
        return wish != nullptr && std::string_view(wish) != "headless";
    }

    /// Takes the toolkit that the variable names, of which nobody knows yet.
    explicit ScriptedScreen(std::unique_ptr<Toolkits::HeadlessToolkit> script) : mScript(std::move(script))
    {
        Toolkits::CurrentToolkit();
        mScreen = Toolkits::ExchangeToolkit(nullptr);
        if (mScreen->GetInputPlayer() == nullptr) {
            throw std::runtime_error("There is no toolkit with windows.");
        }
    }

    /// Timers that start from here on go by the clock of the script.
    void UseVirtualClock()
    {
        mScript->UseVirtualClock();
        mIsClockVirtual = true;
    }

    int ShowBox(const Toolkits::TBox& box) override { return mScript->ShowBox(box); }
    bool AskInput(const Toolkits::TInput& input, System::UnicodeString& value) override
    {
        return mScript->AskInput(input, value);
    }
    Toolkits::TFileAnswer AskFiles(const Toolkits::TFileQuestion& question) override
    {
        return mScript->AskFiles(question);
    }
    int ShowMenu(const std::vector<Toolkits::TMenuEntry>& entries, Types::TPoint place) override
    {
        return mScript->ShowMenu(entries, place);
    }
    void EnterModal(Toolkits::ModalWindow& window) override { mScript->EnterModal(window); }

    bool SetClipboardText(const System::UnicodeString& text) override
    {
        return mScreen->SetClipboardText(text);
    }
    System::UnicodeString GetClipboardText() override { return mScreen->GetClipboardText(); }
    bool SetClipboardPixels(const Toolkits::Pixels& pixels) override
    {
        return mScreen->SetClipboardPixels(pixels);
    }
    Toolkits::Pixels GetClipboardPixels() override { return mScreen->GetClipboardPixels(); }
    Types::TRect DesktopRect() const override { return mScreen->DesktopRect(); }
    Types::TRect FirstScreenRect() const override { return mScreen->FirstScreenRect(); }
    std::unique_ptr<Toolkits::Window> MakeWindow(const Toolkits::TWindowSettings& settings) override
    {
        return mScreen->MakeWindow(settings);
    }
    Toolkits::TFrameMargins FrameMargins(Toolkits::EFrame frame) const override
    {
        return mScreen->FrameMargins(frame);
    }
    Toolkits::TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick) override
    {
        Toolkits::Toolkit& clock = mIsClockVirtual ? static_cast<Toolkits::Toolkit&>(*mScript) : *mScreen;
        return clock.StartTimer(milliseconds, std::move(tick));
    }
    void StopTimer(Toolkits::TTimerId timer) override
    {
        // One of the two doesn't know it.
        mScript->StopTimer(timer);
        mScreen->StopTimer(timer);
    }
    Toolkits::TTextMetrics FontMetrics(const Toolkits::TFontData& font) const override
    {
        return mScreen->FontMetrics(font);
    }
    Types::TSize TextExtent(const Toolkits::TFontData& font, const System::UnicodeString& text) const override
    {
        return mScreen->TextExtent(font, text);
    }
    Toolkits::TPixel SystemColor(int index) const override { return mScreen->SystemColor(index); }
    std::unique_ptr<Toolkits::PaintDevice> NewPixelDevice(Toolkits::Pixels& pixels) override
    {
        return mScreen->NewPixelDevice(pixels);
    }
    void SetCursor(int cursor) override
    {
        mScript->SetCursor(cursor);
        mScreen->SetCursor(cursor);
    }
    void Post(std::function<void()> action) override { mScreen->Post(std::move(action)); }
    void Watch(int descriptor, std::function<void()> action) override
    {
        mScreen->Watch(descriptor, std::move(action));
    }
    void Unwatch(int descriptor) override { mScreen->Unwatch(descriptor); }
    void SetActivationToken(const System::UnicodeString& token) override
    {
        mScreen->SetActivationToken(token);
    }
    /// The script speaks when the screen has nothing more to say, as a user does.
    bool ProcessMessage() override { return mScreen->ProcessMessage() || mScript->ProcessMessage(); }
    bool ProcessInput(Toolkits::Window& window) override { return mScreen->ProcessInput(window); }
    void PostInput(Toolkits::Window& window, std::function<void()> input) override
    {
        mScreen->PostInput(window, std::move(input));
    }
    void WaitMessage() override
    {
        if (!mIsClockVirtual) {
            mScreen->WaitMessage();
            return;
        }
        // What the clock has to come may be all that is waited for.
        constexpr unsigned step = 10;
        const Toolkits::TTimerId waker = mScreen->StartTimer(step, [] {});
        mScreen->WaitMessage();
        mScreen->StopTimer(waker);
        mScript->AdvanceClock(step);
    }
    Toolkits::InputPlayer* GetInputPlayer() override { return mScreen->GetInputPlayer(); }

private:
    std::unique_ptr<Toolkits::HeadlessToolkit> mScript;
    std::unique_ptr<Toolkits::Toolkit> mScreen;
    bool mIsClockVirtual = false;
};

} // namespace Support

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Toolkits
{

class CHeadlessDesktop;
class CMessageLoop;

/// A toolkit without a screen: the default of a machine that has none, and of the tests. A box takes the next
/// answer of the script. Where the script is at its end nobody attends: the box is written to the standard
/// error stream and gets the answer that loses nothing.
///
///     auto toolkit = std::make_unique<Toolkits::HeadlessToolkit>();
///     toolkit->Answer(IDYES);                                     // for the next box
///     const auto former = Toolkits::ExchangeToolkit(std::move(toolkit));
class TRS8_BTL_API HeadlessToolkit final : public Toolkit
{
public:
    /// A box that was shown, and its answer.
    struct TShown
    {
        TBox box;
        int answer = 0;
    };

    /// A line that was asked for, and what was given: nothing if it was cancelled.
    struct TAsked
    {
        TInput input;
        std::optional<System::UnicodeString> answer;
    };

    /// Files that were asked for, and what was given.
    struct TAskedFiles
    {
        TFileQuestion question;
        TFileAnswer answer;
    };

    HeadlessToolkit();
    ~HeadlessToolkit() override;

    /// Adds an answer to the script; the next box without one takes it. `std::logic_error` from `ShowBox` if
    /// that box has no such button.
    void Answer(int button);

    /// Adds a line to the script of what is asked for; nothing cancels. Where it is at its end, each input is
    /// written to the standard error stream and cancelled.
    void AnswerInput(std::optional<System::UnicodeString> line);

    /// Adds to the script of questions for files: what the next one is answered; no files cancel. Where it is
    /// at its end, each question is written to the standard error stream and cancelled.
    void AnswerFiles(TFileAnswer answer);

    /// Adds to the script of modal forms: the next one is handed to `drive`, from its message loop, which may
    /// press its buttons or end it. Where the script is at its end, a form is told on the standard error
    /// stream and closed.
    void AnswerForm(std::function<void(ModalWindow&)> drive);

    /// Adds to the script of menus that are opened: what is chosen, by its caption without marks of keys,
    /// those of its parents in front of it with a `|` between. `std::logic_error` from `ShowMenu` for what
    /// isn't there or can't be used. What waits by then is handled first, as on a screen on which a menu
    /// stands open. Where the script is at its end, the menu is left.
    void AnswerMenu(const System::UnicodeString& path);

    /// From now on time stands still for timers, but for `AdvanceClock` and for a loop that waits for nothing
    /// else: that comes to the next tick at once.
    void UseVirtualClock();
    /// Lets so many milliseconds pass and runs the ticks that fall into them, each at its time.
    void AdvanceClock(unsigned milliseconds);

    /// The boxes shown since the last call, in their order.
    std::vector<TShown> TakeShown();

    /// The inputs asked for since the last call, in their order.
    std::vector<TAsked> TakeAsked();

    /// The questions for files since the last call, in their order.
    std::vector<TAskedFiles> TakeAskedFiles();

    /// The cursor that was set last, 0 at first.
    int getCursor() const noexcept { return mCursor; }

    int ShowBox(const TBox& box) override;
    bool AskInput(const TInput& input, System::UnicodeString& value) override;
    TFileAnswer AskFiles(const TFileQuestion& question) override;
    /// Keeps the text and gives false.
    bool SetClipboardText(const System::UnicodeString& text) override;
    System::UnicodeString GetClipboardText() override;
    /// Always 1920 by 1080 at the origin.
    Types::TRect DesktopRect() const override;
    std::unique_ptr<Window> MakeWindow(const TWindowSettings& settings) override;
    int ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint place) override;
    void EnterModal(ModalWindow& window) override;
    /// Always the usual ones.
    TFrameMargins FrameMargins(EFrame frame) const override;
    TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick) override;
    void StopTimer(TTimerId timer) override;
    /// From the height, the pitch and the styles alone: on each machine the same.
    TTextMetrics FontMetrics(const TFontData& font) const override;
    Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const override;
    TPixel SystemColor(int index) const override;
    /// Draws shapes and images as they are, and characters as blocks.
    std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) override;
    void SetCursor(int cursor) override { mCursor = cursor; }
    void Post(std::function<void()> action) override;
    void Watch(int descriptor, std::function<void()> action) override;
    void Unwatch(int descriptor) override;
    void SetActivationToken(const System::UnicodeString& token) override;
    bool ProcessMessage() override;
    bool ProcessInput(Window& window) override;
    void PostInput(Window& window, std::function<void()> input) override;
    void WaitMessage() override;

    /// The token that came last; empty at first.
    const System::UnicodeString& getActivationToken() const noexcept { return mActivationToken; }

    /// The answer of a box that nobody attends: an internal error (Yes and No without an icon) is raised by
    /// Yes, a question is answered No, a notice OK, and any other choice is cancelled.
    static int UnattendedAnswer(unsigned flags);

private:
    std::deque<int> mScript;
    std::deque<std::function<void(ModalWindow&)>> mForms;
    std::deque<System::UnicodeString> mChoices;
    std::vector<TShown> mShown;
    std::deque<std::optional<System::UnicodeString>> mLines;
    std::vector<TAsked> mAsked;
    std::deque<TFileAnswer> mFileAnswers;
    std::vector<TAskedFiles> mAskedFiles;
    System::UnicodeString mClipboard;
    int mCursor = 0;
    System::UnicodeString mActivationToken;
    std::unique_ptr<CMessageLoop> mLoop;
    std::shared_ptr<CHeadlessDesktop> mDesktop;
};

} // namespace Toolkits

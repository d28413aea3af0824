// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace Toolkits
{

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

    ~HeadlessToolkit() override;

    /// Adds an answer to the script; the next box without one takes it. `std::logic_error` from `ShowBox` if
    /// that box has no such button.
    void Answer(int button);

    /// Adds a line to the script of what is asked for; nothing cancels. Where it is at its end, each input is
    /// written to the standard error stream and cancelled.
    void AnswerInput(std::optional<System::UnicodeString> line);

    /// The boxes shown since the last call, in their order.
    std::vector<TShown> TakeShown();

    /// The inputs asked for since the last call, in their order.
    std::vector<TAsked> TakeAsked();

    int ShowBox(const TBox& box) override;
    bool AskInput(const TInput& input, System::UnicodeString& value) override;
    /// Always 1920 by 1080 at the origin.
    Types::TRect DesktopRect() const override;
    /// From the height, the pitch and the styles alone: on each machine the same.
    TTextMetrics FontMetrics(const TFontData& font) const override;
    Types::TSize TextExtent(const TFontData& font, const System::UnicodeString& text) const override;
    TPixel SystemColor(int index) const override;
    /// Draws shapes and images as they are, and characters as blocks.
    std::unique_ptr<PaintDevice> NewPixelDevice(Pixels& pixels) override;
    /// Always raise `Graphics::EInvalidGraphic`: codecs come with a toolkit that has windows.
    Pixels DecodePicture(EPictureType type, std::span<const System::Byte> bytes) override;
    std::vector<System::Byte> EncodePicture(EPictureType type, const Pixels& pixels, int quality) override;
    void DecodeMetafile(EPictureType type, std::span<const System::Byte> bytes,
                        PaintRecording& recording) override;
    std::vector<System::Byte> EncodeMetafile(EPictureType type, const PaintRecording& recording,
                                             const Types::TSize& size) override;
    void Post(std::function<void()> action) override;
    bool ProcessMessage() override;
    void WaitMessage() override;

    /// The answer of a box that nobody attends: an internal error (Yes and No without an icon) is raised by
    /// Yes, a question is answered No, a notice OK, and any other choice is cancelled.
    static int UnattendedAnswer(unsigned flags);

private:
    std::deque<int> mScript;
    std::vector<TShown> mShown;
    std::deque<std::optional<System::UnicodeString>> mLines;
    std::vector<TAsked> mAsked;
    std::mutex mMessagesMutex;
    std::condition_variable mMessagePosted;
    std::deque<std::function<void()>> mMessages;
};

} // namespace Toolkits

// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include "platform/toolkit/headless/internal/HeadlessDesktop.h"
#include "platform/toolkit/internal/BoxButtons.h"
#include "platform/toolkit/internal/MessageLoop.h"

#include <array>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace Toolkits
{

namespace
{

const char* NameOf(int answer)
{
    static constexpr std::array names = {"OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
    return names.at(static_cast<std::size_t>(answer - IDOK));
}

void WriteBox(const TBox& box, int answer)
{
    std::cerr << box.caption << ": " << box.text << "\n[" << NameOf(answer) << "]\n" << std::flush;
}

void WriteCancelled(const TInput& input)
{
    std::cerr << input.caption << ": " << input.prompt << " [" << input.value << "]\n[" << NameOf(IDCANCEL)
              << "]\n"
              << std::flush;
}

void WriteCancelled(const TFileQuestion& question)
{
    std::cerr << question.caption << ": " << question.folder << " [" << question.fileName << "]\n["
              << NameOf(IDCANCEL) << "]\n"
              << std::flush;
}

} // namespace

HeadlessToolkit::HeadlessToolkit()
    : mLoop(std::make_unique<CMessageLoop>()), mDesktop(std::make_shared<CHeadlessDesktop>())
{
}

HeadlessToolkit::~HeadlessToolkit() = default;

void HeadlessToolkit::Answer(int button)
{
    mScript.push_back(button);
}

std::vector<HeadlessToolkit::TShown> HeadlessToolkit::TakeShown()
{
    return std::exchange(mShown, {});
}

void HeadlessToolkit::AnswerInput(std::optional<System::UnicodeString> line)
{
    mLines.push_back(std::move(line));
}

std::vector<HeadlessToolkit::TAsked> HeadlessToolkit::TakeAsked()
{
    return std::exchange(mAsked, {});
}

void HeadlessToolkit::AnswerFiles(TFileAnswer answer)
{
    mFileAnswers.push_back(std::move(answer));
}

std::vector<HeadlessToolkit::TAskedFiles> HeadlessToolkit::TakeAskedFiles()
{
    return std::exchange(mAskedFiles, {});
}

int HeadlessToolkit::UnattendedAnswer(unsigned flags)
{
    const unsigned icon = flags & MB_ICONMASK;
    if (icon == 0 && (flags & MB_TYPEMASK) == MB_YESNO) {
        return IDYES;
    }
    for (const int safe : {IDNO, IDCANCEL, IDABORT}) {
        if (HasButton(flags, safe)) {
            return safe;
        }
    }
    return IDOK;
}

int HeadlessToolkit::ShowBox(const TBox& box)
{
    int answer = 0;
    if (mScript.empty()) {
        answer = UnattendedAnswer(box.flags);
        WriteBox(box, answer);
    } else {
        answer = mScript.front();
        mScript.pop_front();
        if (!HasButton(box.flags, answer)) {
            throw std::logic_error("The box '" + System::ToUtf8(box.caption) + "' has no button " +
                                   std::to_string(answer) + ".");
        }
    }
    mShown.push_back({box, answer});
    return answer;
}

bool HeadlessToolkit::AskInput(const TInput& input, System::UnicodeString& value)
{
    std::optional<System::UnicodeString> answer;
    if (mLines.empty()) {
        WriteCancelled(input);
    } else {
        answer = std::move(mLines.front());
        mLines.pop_front();
    }
    mAsked.push_back({input, answer});
    if (answer) {
        value = *answer;
    }
    return answer.has_value();
}

TFileAnswer HeadlessToolkit::AskFiles(const TFileQuestion& question)
{
    TFileAnswer answer{.files = {}, .filterIndex = question.filterIndex};
    if (mFileAnswers.empty()) {
        WriteCancelled(question);
    } else {
        answer = std::move(mFileAnswers.front());
        mFileAnswers.pop_front();
    }
    mAskedFiles.push_back({question, answer});
    return answer;
}

bool HeadlessToolkit::SetClipboardText(const System::UnicodeString& text)
{
    if (text.Length() <= MaxClipboardText) {
        mClipboard = text;
    }
    return false;
}

System::UnicodeString HeadlessToolkit::GetClipboardText()
{
    return mClipboard;
}

Types::TRect HeadlessToolkit::DesktopRect() const
{
    return HeadlessScreen;
}

void HeadlessToolkit::Post(std::function<void()> action)
{
    mLoop->Post(std::move(action));
}

void HeadlessToolkit::Watch(int descriptor, std::function<void()> action)
{
    mLoop->Watch(descriptor, std::move(action));
}

void HeadlessToolkit::Unwatch(int descriptor)
{
    mLoop->Unwatch(descriptor);
}

void HeadlessToolkit::SetActivationToken(const System::UnicodeString& token)
{
    mActivationToken = token;
}

bool HeadlessToolkit::ProcessMessage()
{
    return mLoop->RunPostedOrWatched() || mDesktop->Inputs().RunOne(nullptr) || mLoop->RunTimer() ||
           mDesktop->PaintOne(nullptr);
}

bool HeadlessToolkit::ProcessInput(Window& window)
{
    auto* const within = &dynamic_cast<CHeadlessWindow&>(window);
    return mDesktop->Inputs().RunOne(within) || mDesktop->PaintOne(within);
}

void HeadlessToolkit::PostInput(Window& window, std::function<void()> input)
{
    mDesktop->Inputs().Post(dynamic_cast<CHeadlessWindow&>(window), std::move(input));
}

void HeadlessToolkit::WaitMessage()
{
    mLoop->Wait();
}

} // namespace Toolkits

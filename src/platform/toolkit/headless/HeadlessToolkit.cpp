// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include "platform/host/internal/Host_Wakeup.h"
#include "platform/toolkit/headless/internal/HeadlessDesktop.h"
#include "platform/toolkit/headless/internal/TimerQueue.h"
#include "platform/toolkit/internal/BoxButtons.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <utility>

#include <poll.h>
#include <unistd.h>

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

/// Wakes the main thread where it waits, and costs nothing where it doesn't.
class HeadlessToolkit::CWaker
{
public:
    /// The wait of the main thread. What is posted from its begin on ends it.
    class CWait
    {
    public:
        explicit CWait(CWaker& waker) : mWaker(waker)
        {
            mWaker.Own();
            mWaker.mIsWaiting = true;
        }
        CWait(const CWait&) = delete;
        CWait& operator=(const CWait&) = delete;
        ~CWait()
        {
            mWaker.mIsWaiting = false;
            static_cast<void>(mWaker.mWakeup.Take());
        }

    private:
        CWaker& mWaker;
    };

    int Get() const noexcept { return mWakeup.Get(); }

    void Wake() const
    {
        if (mIsWaiting) {
            mWakeup.Wake();
        }
    }

private:
    /// A process that was forked off would take what wakes this one.
    void Own()
    {
        if (mProcess != getpid()) {
            mWakeup = Host::Wakeup();
            mProcess = getpid();
        }
    }

    pid_t mProcess = getpid();
    Host::Wakeup mWakeup;
    std::atomic<bool> mIsWaiting = false;
};

HeadlessToolkit::HeadlessToolkit()
    : mWaker(std::make_unique<CWaker>()),
      mTimers(std::make_unique<CTimerQueue>()),
      mDesktop(std::make_shared<CHeadlessDesktop>())
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
    mClipboard = text;
    return false;
}

System::UnicodeString HeadlessToolkit::GetClipboardText()
{
    return mClipboard;
}

Types::TRect HeadlessToolkit::DesktopRect() const
{
    return {.Left = 0, .Top = 0, .Right = 1920, .Bottom = 1080};
}

void HeadlessToolkit::Post(std::function<void()> action)
{
    {
        const std::lock_guard lock(mMessagesMutex);
        mMessages.push_back(std::move(action));
    }
    mWaker->Wake();
}

void HeadlessToolkit::Watch(int descriptor, std::function<void()> action)
{
    mWatches.insert_or_assign(descriptor, std::move(action));
}

void HeadlessToolkit::Unwatch(int descriptor)
{
    mWatches.erase(descriptor);
}

void HeadlessToolkit::SetActivationToken(const System::UnicodeString& token)
{
    mActivationToken = token;
}

bool HeadlessToolkit::ProcessMessage()
{
    mIsWatchedNext = !mIsWatchedNext;
    const bool isDone =
        mIsWatchedNext ? ProcessPosted() || ProcessWatched() : ProcessWatched() || ProcessPosted();
    return isDone || mDesktop->Inputs().RunOne(nullptr) || mTimers->RunDue(Now()) ||
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

bool HeadlessToolkit::HasPosted()
{
    const std::lock_guard lock(mMessagesMutex);
    return !mMessages.empty();
}

bool HeadlessToolkit::ProcessPosted()
{
    std::function<void()> action;
    {
        const std::lock_guard lock(mMessagesMutex);
        if (mMessages.empty()) {
            return false;
        }
        action = std::move(mMessages.front());
        mMessages.pop_front();
    }
    action();
    return true;
}

bool HeadlessToolkit::ProcessWatched()
{
    const auto isReady = [](const auto& watch) {
        pollfd state{watch.first, POLLIN, 0};
        return poll(&state, 1, 0) > 0;
    };
    // From the one behind the last on.
    const auto next = mWatches.upper_bound(mLastWatched);
    auto found = std::find_if(next, mWatches.end(), isReady);
    if (found == mWatches.end()) {
        found = std::find_if(mWatches.begin(), next, isReady);
        if (found == next) {
            return false;
        }
    }
    mLastWatched = found->first;
    // The action may end its own watch.
    const std::function<void()> action = found->second;
    action();
    return true;
}

void HeadlessToolkit::WaitMessage()
{
    const CWaker::CWait wait(*mWaker);
    std::vector<pollfd> sources = {{mWaker->Get(), POLLIN, 0}};
    std::ranges::transform(mWatches, std::back_inserter(sources), [](const auto& watch) {
        return pollfd{watch.first, POLLIN, 0};
    });
    const std::optional<System::Int64> due = mTimers->NextDue();
    if (due && mVirtualNow) {
        mVirtualNow = std::max(*mVirtualNow, *due);
        return;
    }
    const auto timeout = [&] {
        return due ? static_cast<int>(std::clamp<System::Int64>(*due - Now(), 0, INT_MAX)) : -1;
    };
    while (!HasPosted() && poll(sources.data(), sources.size(), timeout()) < 0 && errno == EINTR) {
    }
}

} // namespace Toolkits

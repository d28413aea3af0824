// SPDX-License-Identifier: MIT
#include "platform/toolkit/ModalWindow.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/internal/HeadlessDesktop.h"
#include "platform/toolkit/internal/MessageLoop.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

// Windows, modal forms and timers of a program without a screen.

namespace Toolkits
{

namespace
{

System::UnicodeString WithoutMarks(const System::UnicodeString& caption)
{
    std::u16string text(caption.AsView());
    std::erase(text, u'&');
    return System::UnicodeString(text);
}

/// The entry at the path that can be used; null if there is none.
const TMenuEntry* FindEntry(const std::vector<TMenuEntry>& entries, std::u16string_view path)
{
    const std::size_t bar = path.find(u'|');
    const System::UnicodeString caption(path.substr(0, bar));
    const auto found = std::ranges::find_if(entries, [&](const TMenuEntry& entry) {
        return entry.isEnabled && WithoutMarks(entry.caption) == caption;
    });
    if (found == entries.end()) {
        return nullptr;
    }
    return bar == path.npos ? &*found : FindEntry(found->entries, path.substr(bar + 1));
}

} // namespace

std::unique_ptr<Window> HeadlessToolkit::MakeWindow(const TWindowSettings& settings)
{
    return mDesktop->MakeWindow(settings);
}

void HeadlessToolkit::AnswerForm(std::function<void(ModalWindow&)> drive)
{
    mForms.push_back(std::move(drive));
}

void HeadlessToolkit::EnterModal(ModalWindow& window)
{
    if (mForms.empty()) {
        window.CloseUnattended();
        return;
    }
    auto drive = std::move(mForms.front());
    mForms.pop_front();
    Post([&window, drive = std::move(drive)] { drive(window); });
}

void HeadlessToolkit::AnswerMenu(const System::UnicodeString& path)
{
    mChoices.push_back(path);
}

int HeadlessToolkit::ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint)
{
    if (mChoices.empty()) {
        return 0;
    }
    const System::UnicodeString choice = std::move(mChoices.front());
    mChoices.pop_front();
    const auto isOver = std::make_shared<bool>(false);
    Post([isOver] { *isOver = true; });
    while (!*isOver && ProcessMessage()) {
    }
    const TMenuEntry* const entry = FindEntry(entries, choice.AsView());
    if (entry == nullptr) {
        throw std::logic_error("The menu has nothing to choose at '" + System::ToUtf8(choice) + "'.");
    }
    return entry->id;
}

TFrameMargins HeadlessToolkit::FrameMargins(EFrame frame) const
{
    return UsualFrameMargins(frame);
}

TTimerId HeadlessToolkit::StartTimer(unsigned milliseconds, std::function<void()> tick)
{
    return mLoop->StartTimer(milliseconds, std::move(tick));
}

void HeadlessToolkit::StopTimer(TTimerId timer)
{
    mLoop->StopTimer(timer);
}

void HeadlessToolkit::UseVirtualClock()
{
    mLoop->UseVirtualClock();
}

void HeadlessToolkit::AdvanceClock(unsigned milliseconds)
{
    mLoop->AdvanceClock(milliseconds);
}

} // namespace Toolkits

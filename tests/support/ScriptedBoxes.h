// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "support/ScriptedScreen.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Support
{

/// Answers the boxes of a test from a script, for the life of the object. Windows, keys and mouse are those
/// of the toolkit that `TRS8_BTL_TOOLKIT` names.
class ScriptedBoxes
{
public:
    explicit ScriptedBoxes(std::initializer_list<int> answers = {})
    {
        auto toolkit = std::make_unique<Toolkits::HeadlessToolkit>();
        mToolkit = toolkit.get();
        for (const int answer : answers) {
            mToolkit->Answer(answer);
        }
        if (ScriptedScreen::IsWanted()) {
            // The former one goes aside first, so that the screen is chosen by the variable.
            mFormer = Toolkits::ExchangeToolkit(nullptr);
            auto screen = std::make_unique<ScriptedScreen>(std::move(toolkit));
            mScreen = screen.get();
            Toolkits::ExchangeToolkit(std::move(screen));
        } else {
            mFormer = Toolkits::ExchangeToolkit(std::move(toolkit));
        }
    }
    ScriptedBoxes(const ScriptedBoxes&) = delete;
    ScriptedBoxes& operator=(const ScriptedBoxes&) = delete;
    ~ScriptedBoxes() { Toolkits::ExchangeToolkit(std::move(mFormer)); }

    /// The script of inputs; nothing cancels.
    void AnswerInput(std::optional<System::UnicodeString> line) { mToolkit->AnswerInput(std::move(line)); }
    std::vector<Toolkits::HeadlessToolkit::TAsked> TakeAsked() { return mToolkit->TakeAsked(); }

    /// Answers the next question for files or a folder; no files cancel it.
    void AnswerFiles(Toolkits::TFileAnswer answer) { mToolkit->AnswerFiles(std::move(answer)); }
    std::vector<Toolkits::HeadlessToolkit::TAskedFiles> TakeAskedFiles()
    {
        return mToolkit->TakeAskedFiles();
    }

    /// Drives the next modal form.
    void AnswerForm(std::function<void(Toolkits::ModalWindow&)> drive)
    {
        mToolkit->AnswerForm(std::move(drive));
    }
    /// Chooses in the next menu that is opened.
    void AnswerMenu(const System::UnicodeString& path) { mToolkit->AnswerMenu(path); }
    /// Timers that start from here on go by a clock that stands still, but for `AdvanceClock` and where
    /// nothing else is waited for.
    void UseVirtualClock()
    {
        if (mScreen != nullptr) {
            mScreen->UseVirtualClock();
        } else {
            mToolkit->UseVirtualClock();
        }
    }
    void AdvanceClock(unsigned milliseconds) { mToolkit->AdvanceClock(milliseconds); }
    /// The cursor over all windows.
    int getCursor() const { return mToolkit->getCursor(); }

    /// The boxes shown since the last call.
    std::vector<Toolkits::HeadlessToolkit::TShown> TakeShown() { return mToolkit->TakeShown(); }

private:
    Toolkits::HeadlessToolkit* mToolkit;
    /// Null without windows.
    ScriptedScreen* mScreen = nullptr;
    std::unique_ptr<Toolkits::Toolkit> mFormer;
};

} // namespace Support

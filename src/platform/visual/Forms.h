// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/visual/Controls_Cursors.h"

#include <atomic>

namespace Forms
{

/// The running program as an object: its title, its message loop, its boxes. It belongs to the main thread,
/// but for `Terminate`.
///
///     Forms::Application->setTitle(u"Station");
///     Forms::Application->MessageBox(u"Done.", nullptr, MB_OK);
///     while (!Forms::Application->getTerminated()) {
///         Forms::Application->HandleMessage();
///     }
class TRS8_BTL_API TApplication
{
public:
    TApplication();
    TApplication(const TApplication&) = delete;
    TApplication& operator=(const TApplication&) = delete;
    virtual ~TApplication();

    /// Path of the running program, with `\` as separator.
    System::UnicodeString getExeName() const;

    /// Caption of the program's boxes; at first the program's file name without extension.
    const System::UnicodeString& getTitle() const noexcept { return mTitle; }
    void setTitle(const System::UnicodeString& title) { mTitle = title; }

    /// The program's help file; empty at first.
    const System::UnicodeString& getHelpFile() const noexcept { return mHelpFile; }
    void setHelpFile(const System::UnicodeString& file) { mHelpFile = file; }

    /// Whether the main form itself stands for the program on the task bar; off at first.
    bool getMainFormOnTaskBar() const noexcept { return mMainFormOnTaskBar; }
    void setMainFormOnTaskBar(bool isOn) noexcept { mMainFormOnTaskBar = isOn; }

    /// True from the moment that the program is asked to end.
    bool getTerminated() const noexcept { return mTerminated; }

    /// Asks the message loop to end. From any thread.
    void Terminate();

    /// Shows a box over the program's windows; flags and result as in `::MessageBoxW`. A null `caption`
    /// stands for the title.
    int MessageBox(const System::WideChar* text, const System::WideChar* caption, int flags) const;

    /// Handles all messages that wait, and returns.
    void ProcessMessages();

    /// Handles one message, and waits for it if there is none.
    void HandleMessage();

    /// The message loop, until `Terminate`.
    void Run();

private:
    System::UnicodeString mTitle;
    System::UnicodeString mHelpFile;
    bool mMainFormOnTaskBar = false;
    std::atomic<bool> mTerminated = false;
};

/// The screens of the machine, as one rectangle in pixels, and the mouse cursor on them. Of the main thread.
class TRS8_BTL_API TScreen
{
public:
    Types::TRect getDesktopRect() const;
    int getDesktopLeft() const { return getDesktopRect().Left; }
    int getDesktopTop() const { return getDesktopRect().Top; }
    int getDesktopWidth() const { return getDesktopRect().Width(); }
    int getDesktopHeight() const { return getDesktopRect().Height(); }

    /// The cursor over all windows of the program, `crDefault` at first: each control then has its own.
    Controls::TCursor getCursor() const noexcept { return mCursor; }
    void setCursor(Controls::TCursor cursor);

private:
    Controls::TCursor mCursor = Controls::crDefault;
};

/// The program's application object. It stands before any other unit of the library starts, and stays until
/// the process is gone.
TRS8_BTL_API extern TApplication* Application;
TRS8_BTL_API extern TScreen* Screen;

} // namespace Forms

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_String.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Component.h"

#include <atomic>
#include <exception>

namespace Graphics
{
class TIcon;
} // namespace Graphics

namespace Forms
{

class TCustomForm;

/// An exception that an event's handler let out. It is valid during the call.
using TExceptionEvent = System::TClosure<void(System::TObject* sender, const std::exception& fault)>;
/// The message loop has nothing to do. `done` false has it come again at once, true at the next message.
using TIdleEvent = System::TClosure<void(System::TObject* sender, bool& done)>;
/// Help is asked for: a command and what belongs to it. `callHelp` false says that it was given. True if it
/// was done.
using THelpEvent = System::TClosure<bool(System::Word command, System::NativeInt data, bool& callHelp)>;

/// The running program as an object: its title, its forms, its message loop, its boxes. It belongs to the
/// main thread, but for `Terminate`.
///
///     Forms::Application->setTitle(u"Station");
///     Forms::Application->CreateForm(mainForm);                   // TMainForm* mainForm
///     Forms::Application->Run();                                  // until the main form is closed
class TRS8_BTL_API TApplication : public Classes::TComponent
{
    TRS8_BTL_CLASS(TApplication, Classes::TComponent)

public:
    TApplication();
    ~TApplication() override;

    /// Path of the running program, with `\` as separator.
    System::UnicodeString getExeName() const;

    /// Caption of the program's boxes; at first the program's file name without extension.
    const System::UnicodeString& getTitle() const noexcept { return mTitle; }
    void setTitle(const System::UnicodeString& title) { mTitle = title; }

    /// The program's help file; empty at first.
    const System::UnicodeString& getHelpFile() const noexcept { return mHelpFile; }
    void setHelpFile(const System::UnicodeString& file) { mHelpFile = file; }

    /// The program's icon; empty at first.
    Graphics::TIcon* getIcon();
    /// Takes over another icon; null makes it empty.
    void setIcon(Graphics::TIcon* icon);

    /// Whether the main form itself stands for the program on the task bar; off at first.
    bool getMainFormOnTaskBar() const noexcept { return mMainFormOnTaskBar; }
    void setMainFormOnTaskBar(bool isOn) noexcept { mMainFormOnTaskBar = isOn; }

    /// Makes a form or data module that the application owns; `reference` points to it from its `OnCreate`
    /// on, and is null again if it is destroyed there. The first form made so is the main form. What its
    /// constructor raises passes through, and leaves `reference` as it was.
    template <class T>
    void CreateForm(T*& reference)
    {
        reference = new T(this);
        FormCreated(reference, [&reference] { reference = nullptr; });
    }

    /// The form whose end is the program's; null if there is none.
    TCustomForm* getMainForm() const noexcept { return mMainForm; }
    /// Whether `Run` shows the main form; on at first.
    bool getShowMainForm() const noexcept { return mShowMainForm; }
    void setShowMainForm(bool isOn) noexcept { mShowMainForm = isOn; }

    /// True from the moment that the program is asked to end.
    bool getTerminated() const noexcept { return mTerminated; }

    /// Asks the message loop to end. From any thread.
    void Terminate();

    /// Shows a box over the program's windows; flags and result as in `::MessageBoxW`. A null `caption`
    /// stands for the title.
    int MessageBox(const System::WideChar* text, const System::WideChar* caption, int flags) const;

    /// Handles all messages that wait, and returns. An exception of a handler is shown.
    void ProcessMessages();

    /// Handles one message; if there is none, tells `OnIdle` and waits for one.
    void HandleMessage();

    /// Shows the main form, if there is one, and handles messages until `Terminate`.
    void Run();

    /// To be called in a handler of any exception: gives it to `OnException`, or shows it, as it does with
    /// what that handler raises itself. One of the kind `Sysutils::EAbort` is passed over.
    void HandleException(System::TObject* sender);
    /// Calls `action` for those who can't let an exception pass, as destructors: what it raises goes to
    /// `HandleException`.
    template <class Action>
    void RunHandled(Action action)
    {
        try {
            action();
        } catch (...) {
            HandleException(this);
        }
    }
    /// Shows an exception in a box.
    void ShowException(const std::exception& fault);

    /// Has the program save its data, since the screen is lost: calls `OnScreenLost`, and `OnClose` of each
    /// form that is shown. What they raise goes to `HandleException`.
    void ScreenLost();

    /// Shows a topic of the help file, by `OnHelp` if that is set. True if it was done; without it, nobody
    /// can.
    bool HelpContext(int context);
    bool HelpCommand(int command, System::NativeInt data);

    /// The hint of what the mouse is over; empty for none.
    const System::UnicodeString& getHint() const noexcept { return mHint; }
    void setHint(const System::UnicodeString& hint);

    TExceptionEvent OnException;
    /// The screen is lost, as by the end of the display's server, and the program ends behind this call with
    /// the exit code
    /// 1. Data are to be saved here; boxes go to the standard error stream. After it each form that is shown
    /// is told `OnClose`, without being asked. Destructors of what stands on the stack don't run.
    Classes::TNotifyEvent OnScreenLost;
    TIdleEvent OnIdle;
    THelpEvent OnHelp;
    /// `getHint` changed.
    Classes::TNotifyEvent OnHint;
    Classes::TNotifyEvent OnActivate;
    Classes::TNotifyEvent OnDeactivate;

private:
    friend class TCustomForm;

    /// Gives the exception that is being handled to `OnException`, or shows it.
    void TellException(System::TObject* sender);
    void ShowCurrentException();
    /// Ends the making; `onGone` is called if the component goes meanwhile.
    void FormCreated(Classes::TComponent* component, const System::TClosure<void()>& onGone);
    void FormDestroyed(const TCustomForm* form) noexcept;

    System::UnicodeString mTitle;
    System::UnicodeString mHelpFile;
    System::UnicodeString mHint;
    /// Made when it is needed.
    System::GOwner<Graphics::TIcon> mIcon;
    TCustomForm* mMainForm = nullptr;
    bool mMainFormOnTaskBar = false;
    bool mShowMainForm = true;
    std::atomic<bool> mTerminated = false;
};

/// The program's application object. It stands before any other unit of the library starts, and stays until
/// the process is gone.
TRS8_BTL_API extern TApplication* Application;

} // namespace Forms

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"

#include <functional>
#include <memory>

/// What stands between the controls' logic and a screen.
namespace Toolkits
{

/// A modal box with a text and buttons.
struct TBox
{
    /// The window the box belongs to; null for none.
    void* owner = nullptr;
    System::UnicodeString text;
    System::UnicodeString caption;
    /// Buttons and icon, the `MB_...` values.
    unsigned flags = 0;
};

/// A modal box that asks for one line of text.
struct TInput
{
    System::UnicodeString caption;
    System::UnicodeString prompt;
    /// What stands in the line at first.
    System::UnicodeString value;
};

/// The seam to a graphical toolkit. All operations but `Post` belong to the main thread.
///
///     Toolkits::CurrentToolkit().Post([text] { Show(text); });    // from any thread, to run in the main one
///     Forms::Application->ProcessMessages();                      // in the main thread: runs it
class TRS8_BTL_API Toolkit
{
public:
    Toolkit() = default;
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;
    virtual ~Toolkit();

    /// Shows the box until it is answered; the result is one of the `ID...` values.
    virtual int ShowBox(const TBox& box) = 0;

    /// Asks until the user agrees or cancels. True with the line in `value`; false leaves `value` alone.
    virtual bool AskInput(const TInput& input, System::UnicodeString& value) = 0;

    /// Puts a text on the clipboard. False if this toolkit shares none with other programs; then the text is
    /// kept for this program alone.
    virtual bool SetClipboardText(const System::UnicodeString& text) = 0;
    /// Empty if there is no text on the clipboard.
    virtual System::UnicodeString GetClipboardText() = 0;

    /// All screens together, in pixels.
    virtual Types::TRect DesktopRect() const = 0;

    /// Shows the mouse cursor of this number over all windows; 0 gives each control its own back.
    virtual void SetCursor(int cursor) = 0;

    /// Runs `action` from the message loop of the main thread, in the order of posting. From any thread.
    virtual void Post(std::function<void()> action) = 0;

    /// Runs `action` from the message loop while there is something to read from the descriptor of the host,
    /// up to `Unwatch`. A second watch of a descriptor replaces the first. `Toolkits::Watch` calls this.
    virtual void Watch(int descriptor, std::function<void()> action) = 0;
    /// Also from within the action; nothing for a descriptor without a watch.
    virtual void Unwatch(int descriptor) = 0;

    /// Takes the token by which the desktop lets the next window that asks for it come to the front; it came
    /// from the program in which the user did something last.
    virtual void SetActivationToken(const System::UnicodeString& token) = 0;

    /// Handles one waiting message; false if none waits. What is to be read from a watched descriptor counts
    /// as one.
    virtual bool ProcessMessage() = 0;

    /// Sleeps until a message waits.
    virtual void WaitMessage() = 0;
};

/// The toolkit in use. At the first call it is chosen by the variable `TRS8_BTL_TOOLKIT`; a name that this
/// build doesn't have is told on the standard error stream, and the headless one serves.
TRS8_BTL_API Toolkit& CurrentToolkit();

/// Puts `toolkit` in place of the current one and gives that back; null means the choice is made anew at the
/// next use. Nobody may hold a reference to the former toolkit across the call.
TRS8_BTL_API std::unique_ptr<Toolkit> ExchangeToolkit(std::unique_ptr<Toolkit> toolkit);

} // namespace Toolkits

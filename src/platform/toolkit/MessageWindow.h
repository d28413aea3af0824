// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/messages/Host_Messages.h"

#include <functional>
#include <memory>

namespace Toolkits
{

/// A window that is never shown: other processes of the user's session find it by its title (`FindWindowW`)
/// and send it messages, which its handler answers from the message loop. It needs no screen. Of the main
/// thread.
///
///     const Toolkits::MessageWindow window(u"Station", [](const Toolkits::MessageWindow::TMessage& message)
///     {
///         return Open(message.text);
///     });
///     Forms::Application->Run();
///
/// A window of a title takes the place of one that has it, in whatever process.
class TRS8_BTL_API MessageWindow
{
public:
    /// What the handler gets.
    struct TMessage
    {
        /// Up to the first zero; the units as they came, valid or not.
        System::UnicodeString text;
        std::uintptr_t wParam = 0;
        std::uintptr_t dwData = 0;
        /// The current folder of the sender, without a final separator; empty if it is in none.
        System::UnicodeString folder;
        /// The desktop's token, with which the toolkit may bring a window to the front; empty if the sender
        /// had none.
        System::UnicodeString token;
    };

    /// The result goes to the sender. An exception gives it 0, and comes out of the message loop.
    using THandler = std::function<std::intptr_t(const TMessage&)>;

    /// Makes the window, unless that fails, see `IsOpen`.
    MessageWindow(const System::UnicodeString& title, THandler handler);
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;
    /// Also from within the handler. Senders that wait get 0.
    ~MessageWindow();

    /// Whether others can find the window; false, with the last error set by the constructor, if the user's
    /// session has no folder for it.
    bool IsOpen() const noexcept;

private:
    class CImpl;
    std::unique_ptr<CImpl> mImpl;
};

} // namespace Toolkits

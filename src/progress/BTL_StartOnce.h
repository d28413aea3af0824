// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/messages/Host_Messages.h"
#include "platform/host/objects/Host_Handle.h"
#include "platform/runtime/typinfo/System_Closure.h"

#include <cstdint>

namespace BTL
{

/// What the first process does with a text that a later one sends; the result is that one's answer.
using TStartOnceHandler = System::TClosure<int(const System::UnicodeString&)>;

/// Lets the first process of a program stay the only one of the user's session: a later start finds out that
/// it is one, and hands its command line over. Made once, by the thread that starts the program, which is the
/// main one.
///
///     BTL::CStartOnce once(u"Station");
///     if (!once.IsMainProcess()) {
///         return once.SendMessageToMainProcess(commandLine);      // the handler's answer
///     }
///     once.OnMessage = [](const System::UnicodeString& text) { return Open(text); };
///     once.CreateMessageWindow();
///     Forms::Application->Run();
///
/// A process that is killed stands in nobody's way: the next start is the first again. A process that was a
/// later one stays that. Nothing here raises. Any text is a name, and it belongs to the user's session: that
/// of another user is another one. Null counts as empty.
class TRS8_BTL_API CStartOnce
{
public:
    /// With the names of the house: "*TARMIS-StartOnce*" and "*TARMIS-MessageWindow*".
    CStartOnce();
    /// With one name for both, the mutex that tells who is first and the window that receives. A program that
    /// wants to stay apart from others has its own.
    explicit CStartOnce(const char* name);
    explicit CStartOnce(const System::WideChar* name);
    CStartOnce(const char* mutexName, const char* windowTitle);
    CStartOnce(const System::WideChar* mutexName, const System::WideChar* windowTitle);
    CStartOnce(const CStartOnce&) = delete;
    CStartOnce& operator=(const CStartOnce&) = delete;
    /// The name stays taken up to the end of the process.
    ~CStartOnce();

    /// Decides who is first; the constructors call it.
    void Init();

    /// Whether there is a first process now, this one or another.
    [[nodiscard]] bool ExistsMainProcess() const;
    /// Whether this process is the first one by this object.
    [[nodiscard]] bool IsMainProcess() const noexcept { return mMutex != nullptr; }
    /// In a later process: tells the user that the program runs already, and gives true.
    bool ShowMessageIfNotSingular() const;

    /// In the first process: makes the form that receives, a `TBTL_MessageReceiverDLG` of the application's
    /// that is never shown and never the main form. It calls the handler that stands in `OnMessage` now, and
    /// lasts as long as the process; one with the same title that was made before ends. Elsewhere, and if the
    /// session has no place for it, nothing.
    void CreateMessageWindow();

    /// Sends the text to the first process, waits for its handler, and gives the answer. A window that isn't
    /// there yet is waited for, five minutes at most, but for the text "-IsReady" alone, which asks whether
    /// the first process can answer now. While the first process is busy, this waits without limit. 0 for an
    /// empty text, without a window, and at once if the first process ends.
    int SendMessageToMainProcess(const char* text) const;
    int SendMessageToMainProcess(const System::WideChar* text) const;
    /// As `SendMessageToMainProcess`, but all of it takes at most `milliseconds`, 0xFFFFFFFF for no limit:
    /// then 0 with the last error 1460. A text that wasn't handled by then isn't handled any more.
    int SendMessageToMainProcess(const char* text, unsigned long milliseconds) const;
    int SendMessageToMainProcess(const System::WideChar* text, unsigned long milliseconds) const;
    /// Sends the text to a window, waits for it, and gives its answer; 0 for a null window, for an empty text
    /// and if the window's process ends.
    int SendMessageTo(HWND window, const System::WideChar* text) const;
    /// As `SendMessageTo` without a limit, but for at most `milliseconds`: then 0 with the last error 1460.
    int SendMessageTo(HWND window, const System::WideChar* text, unsigned long milliseconds) const;

    // Of the message that came last to a window of this process, so mostly that which is handled.

    /// The folder in which the sender was started, without a final separator, so that relative names of its
    /// command line can be found; empty if it was in none, and without a message.
    [[nodiscard]] static System::UnicodeString GetSenderFolder();
    /// The token with which the sender was started by the desktop; empty without one. The toolkit has it by
    /// then, for the window that the handler brings to the front.
    [[nodiscard]] static System::UnicodeString GetSenderToken();

private:
    HANDLE mMutex = nullptr;
    [[maybe_unused]] std::uint32_t mReserved = 0;

public:
    /// Called with each text that arrives, in the main thread's message loop; null at the start.
    TStartOnceHandler OnMessage;

private:
    System::UnicodeString mMutexName;
    System::UnicodeString mWindowTitle;
};

/// The word of a command line that steers the start: 2 for "-Initialize", else 1 for "-1", else 3 for
/// "-IsReady", and 0 without one. What stands between parentheses doesn't count. 0 for null.
[[nodiscard]] TRS8_BTL_API int GetStartOnceCommand(const char* commandLine);
[[nodiscard]] TRS8_BTL_API int GetStartOnceCommand(const System::WideChar* commandLine);

/// Whether the command line has the word "-1", outside of parentheses. False for null.
[[nodiscard]] TRS8_BTL_API bool ContainsStartOnceCommand(const char* commandLine);

} // namespace BTL

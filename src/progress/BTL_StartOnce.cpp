// SPDX-License-Identifier: MIT
#include "progress/BTL_StartOnce.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/objects/Host_Mutex.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/forms/Forms_Application.h"
#include "progress/BTL_MessageReceiverDLG.h"
#include "progress/BTL_THRD_Timer.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/grammar/BTL_STR_Command.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace BTL
{

namespace
{

using System::UnicodeString;

constexpr System::WideChar IsReadyCommand[] = u"-IsReady";
constexpr unsigned long NoLimit = INFINITE;

/// The program's receiver of that title, other than `except`; null if there is none.
TBTL_MessageReceiverDLG* FindReceiver(const UnicodeString& title, const TBTL_MessageReceiverDLG* except)
{
    for (int i = 0; i < Forms::Application->GetComponentCount(); ++i) {
        auto* const form = dynamic_cast<TBTL_MessageReceiverDLG*>(Forms::Application->GetComponent(i));
        if (form != nullptr && form != except && form->getCaption() == title) {
            return form;
        }
    }
    return nullptr;
}

/// How much of a limit is left.
class CLimit
{
public:
    explicit CLimit(unsigned long milliseconds) : mLimit(milliseconds), mStart(GetTickCount()) {}

    unsigned long Left() const
    {
        const std::uint32_t elapsed = GetTickCount() - mStart;
        return mLimit == NoLimit ? NoLimit : mLimit - std::min<unsigned long>(elapsed, mLimit);
    }

private:
    unsigned long mLimit;
    std::uint32_t mStart;
};

/// Finds the window, which may be about to come.
HWND AwaitWindow(const UnicodeString& title, const CLimit& limit)
{
    constexpr int patience = 300'000;
    constexpr unsigned long step = 500;
    HWND window = nullptr;
    CTimer timer(patience);
    while (window == nullptr && timer && limit.Left() > 0) {
        Sleep(std::min(step, limit.Left()));
        window = FindWindowW(nullptr, title.c_str());
    }
    return window;
}

/// The length of the text. Several units in a turn, which takes half of the time that the standard's one
/// does.
std::size_t LengthOf(const System::WideChar* text)
{
    const System::WideChar* at = text;
    for (;; at += 4) {
        for (int i = 0; i < 4; ++i) {
            if (at[i] == 0) {
                return static_cast<std::size_t>(at + i - text);
            }
        }
    }
}

UnicodeString WithoutParentheses(const UnicodeString& commandLine)
{
    return DeleteSubStrings(commandLine, u'(', u')');
}

} // namespace

CStartOnce::CStartOnce() : CStartOnce(u"*TARMIS-StartOnce*", u"*TARMIS-MessageWindow*") {}

CStartOnce::CStartOnce(const char* name) : CStartOnce(UnicodeString(name).c_str()) {}

CStartOnce::CStartOnce(const System::WideChar* name) : CStartOnce(name, name) {}

CStartOnce::CStartOnce(const char* mutexName, const char* windowTitle)
    : CStartOnce(UnicodeString(mutexName).c_str(), UnicodeString(windowTitle).c_str())
{
}

CStartOnce::CStartOnce(const System::WideChar* mutexName, const System::WideChar* windowTitle)
    : mMutexName(mutexName), mWindowTitle(windowTitle)
{
    Init();
}

CStartOnce::~CStartOnce()
{
    if (mMutex != nullptr) {
        ReleaseMutex(mMutex);
    }
}

void CStartOnce::Init()
{
    HANDLE mutex = Host::OpenSessionMutex(mMutexName);
    bool isNew = false;
    if (mutex == nullptr) {
        mutex = Host::CreateSessionMutex(mMutexName);
        // Of two starts at once, each of which found nobody, one finds the name taken now.
        isNew = mutex != nullptr && GetLastError() != ERROR_ALREADY_EXISTS;
    }
    if (isNew) {
        mMutex = mutex;
    } else if (mutex != nullptr) {
        CloseHandle(mutex);
    }
}

bool CStartOnce::ExistsMainProcess() const
{
    const HANDLE mutex = Host::OpenSessionMutex(mMutexName);
    return mutex != nullptr && CloseHandle(mutex);
}

bool CStartOnce::ShowMessageIfNotSingular() const
{
    if (IsMainProcess()) {
        return false;
    }
    Gi18n::MessageBox1(EIDS::AlreadyRunning, MB_ICONSTOP);
    return true;
}

void CStartOnce::CreateMessageWindow()
{
    if (mMutex == nullptr) {
        return;
    }
    auto receiver = std::make_unique<TBTL_MessageReceiverDLG>(Forms::Application);
    receiver->AfterConstruction();
    receiver->setCaption(mWindowTitle);
    receiver->OnMessage = OnMessage;
    if (!receiver->Listen()) {
        return;
    }
    delete FindReceiver(mWindowTitle, receiver.get());
    _BTL_MessageReceiverDLG = receiver.release();
}

int CStartOnce::SendMessageToMainProcess(const char* text) const
{
    return SendMessageToMainProcess(text, NoLimit);
}

int CStartOnce::SendMessageToMainProcess(const System::WideChar* text) const
{
    return SendMessageToMainProcess(text, NoLimit);
}

int CStartOnce::SendMessageToMainProcess(const char* text, unsigned long milliseconds) const
{
    return SendMessageToMainProcess(UnicodeString(text).c_str(), milliseconds);
}

int CStartOnce::SendMessageToMainProcess(const System::WideChar* text, unsigned long milliseconds) const
{
    if (text == nullptr || *text == u'\0') {
        return 0;
    }
    const CLimit limit(milliseconds);
    HWND window = FindWindowW(nullptr, mWindowTitle.c_str());
    if (window == nullptr && UnicodeString(text) != IsReadyCommand) {
        window = AwaitWindow(mWindowTitle, limit);
        if (window == nullptr) {
            SetLastError(ERROR_TIMEOUT);
        }
    }
    return SendMessageTo(window, text, limit.Left());
}

int CStartOnce::SendMessageTo(HWND window, const System::WideChar* text) const
{
    return SendMessageTo(window, text, NoLimit);
}

int CStartOnce::SendMessageTo(HWND window, const System::WideChar* text, unsigned long milliseconds) const
{
    if (window == nullptr || text == nullptr || *text == u'\0') {
        return 0;
    }
    const std::size_t units = LengthOf(text) + 1;
    const COPYDATASTRUCT data{0xFFFFFFFF, units * sizeof(System::WideChar), text};
    std::uintptr_t result = 0;
    SendMessageTimeoutA(window, WM_COPYDATA, 0, reinterpret_cast<std::intptr_t>(&data), 0, milliseconds,
                        &result);
    return static_cast<int>(result);
}

UnicodeString CStartOnce::GetSenderFolder()
{
    return TBTL_MessageReceiverDLG::GetSenderFolder();
}

UnicodeString CStartOnce::GetSenderToken()
{
    return TBTL_MessageReceiverDLG::GetSenderToken();
}

int GetStartOnceCommand(const char* commandLine)
{
    return GetStartOnceCommand(UnicodeString(commandLine).c_str());
}

int GetStartOnceCommand(const System::WideChar* commandLine)
{
    constexpr std::pair<const System::WideChar*, int> commands[] = {
        {u"-Initialize", 2}, {u"-1", 1}, {IsReadyCommand, 3}};
    const UnicodeString text = WithoutParentheses(commandLine);
    const auto* const found = std::ranges::find_if(
        commands, [&](const auto& command) { return GetCommandPosition(text, command.first) > 0; });
    return found == std::end(commands) ? 0 : found->second;
}

bool ContainsStartOnceCommand(const char* commandLine)
{
    return GetCommandPosition(WithoutParentheses(commandLine), u"-1") > 0;
}

} // namespace BTL

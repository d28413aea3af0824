// SPDX-License-Identifier: MIT
#include "progress/BTL_MessageReceiverDLG.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/MessageWindow.h"

#include <utility>

using System::UnicodeString;

// NOLINTNEXTLINE(bugprone-reserved-identifier)
constinit TBTL_MessageReceiverDLG* _BTL_MessageReceiverDLG = nullptr;

namespace
{

/// Who sent the message that came last.
struct TSender
{
    UnicodeString folder;
    UnicodeString token;
    /// How many messages are handled, one within the loop of another.
    int depth = 0;
};

/// Never destroyed: windows last as long as the process.
TSender& Sender()
{
    static auto* const sender = new TSender;
    return *sender;
}

/// Tells who sent the message while it is handled. A message that is handled within another one gives way to
/// that in the end.
class CSenderScope
{
public:
    explicit CSenderScope(const Toolkits::MessageWindow::TMessage& message)
        : mFolder(std::exchange(Sender().folder, message.folder)),
          mToken(std::exchange(Sender().token, message.token))
    {
        ++Sender().depth;
    }
    CSenderScope(const CSenderScope&) = delete;
    CSenderScope& operator=(const CSenderScope&) = delete;
    ~CSenderScope()
    {
        if (--Sender().depth > 0) {
            Sender().folder = std::move(mFolder);
            Sender().token = std::move(mToken);
        }
    }

private:
    UnicodeString mFolder;
    UnicodeString mToken;
};

} // namespace

System::TMetaClass* TBTL_MessageReceiverDLG::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TBTL_MessageReceiverDLG>(u"TBTL_MessageReceiverDLG").Build();
    return record;
}

TBTL_MessageReceiverDLG::TBTL_MessageReceiverDLG(Classes::TComponent* owner) : TForm(owner)
{
    ReadDesign();
}

TBTL_MessageReceiverDLG::~TBTL_MessageReceiverDLG()
{
    if (_BTL_MessageReceiverDLG == this) {
        _BTL_MessageReceiverDLG = nullptr;
    }
}

bool TBTL_MessageReceiverDLG::Listen()
{
    const auto receive = [this](const Toolkits::MessageWindow::TMessage& received) {
        const CSenderScope scope(received);
        const COPYDATASTRUCT data{received.dwData,
                                  (static_cast<unsigned long>(received.text.Length()) + 1) *
                                      sizeof(System::WideChar),
                                  received.text.c_str()};
        Messages::TWMCopyData message{.From = received.wParam, .CopyDataStruct = &data};
        Dispatch(&message);
        return message.Result;
    };
    // The new window stands before the former one goes, so that there is always one to be found.
    System::GOwner<Toolkits::MessageWindow> window(new Toolkits::MessageWindow(getCaption(), receive));
    if (!window->IsOpen()) {
        return false;
    }
    mWindow = std::move(window);
    return true;
}

void TBTL_MessageReceiverDLG::Dispatch(void* message)
{
    const unsigned number = static_cast<Messages::TMessage*>(message)->Msg;
    if (number == WM_COPYDATA) {
        WmCopyData(*static_cast<Messages::TWMCopyData*>(message));
        return;
    }
    TForm::Dispatch(message);
    if (number == CM_TEXTCHANGED && mWindow != nullptr) {
        Listen();
    }
}

// The form may be gone behind the handler.
void TBTL_MessageReceiverDLG::WmCopyData(Messages::TWMCopyData& message)
{
    if (!OnMessage || message.CopyDataStruct == nullptr) {
        return;
    }
    const auto handler = OnMessage;
    message.Result = handler(static_cast<const System::WideChar*>(message.CopyDataStruct->lpData));
}

UnicodeString TBTL_MessageReceiverDLG::GetSenderFolder()
{
    return Sender().folder;
}

UnicodeString TBTL_MessageReceiverDLG::GetSenderToken()
{
    return Sender().token;
}

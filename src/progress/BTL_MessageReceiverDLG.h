// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/controls/Messages.h"
#include "platform/visual/forms/Forms_Form.h"

namespace Toolkits
{
class MessageWindow;
} // namespace Toolkits

/// A form that is never shown: other processes find it by its caption and send it texts, as `BTL::CStartOnce`
/// does. An exception of the handler comes out of the message loop, and the sender gets 0.
///
///     auto* const receiver = new TBTL_MessageReceiverDLG(Forms::Application);
///     receiver->setCaption(u"Station");
///     receiver->OnMessage = [](const System::UnicodeString& text) { return Open(text); };
///     if (!receiver->Listen()) { ... }
class TRS8_BTL_API TBTL_MessageReceiverDLG : public Forms::TForm
{
    TRS8_BTL_CLASS(TBTL_MessageReceiverDLG, Forms::TForm)

public:
    explicit TBTL_MessageReceiverDLG(Classes::TComponent* owner = nullptr);
    ~TBTL_MessageReceiverDLG() override;

    /// Lets other processes of the user's session find the form by its caption; they find it under a new one
    /// as soon as it changes. It takes the place of one that had the caption before, in whatever process.
    /// False, with the last error set, if the session has no place for it.
    bool Listen();

    /// Hands a `WM_COPYDATA` to `WmCopyData`.
    void Dispatch(void* message) override;
    /// Gives the text of the message, up to its zero, to the handler, and its answer as the result. Without a
    /// handler the result stays.
    void WmCopyData(Messages::TWMCopyData& message);

    // Of the message that came last to such a form of this process, so mostly that which is handled.

    /// The folder in which the sender was started, without a final separator; empty if it was in none.
    [[nodiscard]] static System::UnicodeString GetSenderFolder();
    /// The token with which the sender was started by the desktop; empty without one.
    [[nodiscard]] static System::UnicodeString GetSenderToken();

    /// Called with each text that arrives; null at first.
    System::TClosure<int(const System::UnicodeString&)> OnMessage;

private:
    System::GOwner<Toolkits::MessageWindow> mWindow;
};

/// The receiver that was made last by `BTL::CStartOnce`; null without one.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
TRS8_BTL_API extern TBTL_MessageReceiverDLG* _BTL_MessageReceiverDLG;

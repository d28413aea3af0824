// SPDX-License-Identifier: MIT
#include "environment/Btl_sys_mapi.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/host/Mapi.h"

namespace BTL
{

namespace
{

using System::AnsiString;

EIDS TextOf(unsigned long code)
{
    switch (code) {
    case Mapi::SUCCESS_SUCCESS:
        return EIDS::MailSent;
    case Mapi::MAPI_E_USER_ABORT:
        return EIDS::MailCancelled;
    case Mapi::MAPI_E_LOGIN_FAILURE:
        return EIDS::MailLoginFailed;
    case Mapi::MAPI_E_INSUFFICIENT_MEMORY:
        return EIDS::MailMemory;
    case Mapi::MAPI_E_TOO_MANY_FILES:
        return EIDS::MailTooManyFiles;
    case Mapi::MAPI_E_TOO_MANY_RECIPIENTS:
        return EIDS::MailTooManyRecipients;
    case Mapi::MAPI_E_ATTACHMENT_NOT_FOUND:
        return EIDS::MailAttachmentNotFound;
    case Mapi::MAPI_E_ATTACHMENT_OPEN_FAILURE:
        return EIDS::MailAttachmentNotOpened;
    case Mapi::MAPI_E_UNKNOWN_RECIPIENT:
        return EIDS::MailRecipientUnknown;
    case Mapi::MAPI_E_BAD_RECIPTYPE:
        return EIDS::MailRecipientTypeInvalid;
    case Mapi::MAPI_E_TEXT_TOO_LARGE:
        return EIDS::MailTextTooLarge;
    case Mapi::MAPI_E_AMBIGUOUS_RECIPIENT:
        return EIDS::MailRecipientAmbiguous;
    default:
        return EIDS::MailFailed;
    }
}

void ShowResult(unsigned long code)
{
    const auto type = code == Mapi::SUCCESS_SUCCESS ? Dialogs::mtInformation : Dialogs::mtError;
    Gi18n::MessageDlg(TextOf(code), type, {Dialogs::mbOK}, 0);
}

Mapi::MapiRecipDesc Recipient(unsigned long kind, const AnsiString& name, const AnsiString& address)
{
    return {.ulRecipClass = kind, .lpszName = name.c_str(), .lpszAddress = address.c_str()};
}

} // namespace

unsigned long SendEMail(const AnsiString& subject, const AnsiString& text, const AnsiString& fromName,
                        const AnsiString& fromAddress, const AnsiString& toName, const AnsiString& toAddress,
                        const AnsiString& secondName, const AnsiString& secondAddress, bool dialog)
{
    const Mapi::MapiRecipDesc from = Recipient(Mapi::MAPI_ORIG, fromName, fromAddress);
    const Mapi::MapiRecipDesc to[] = {Recipient(Mapi::MAPI_TO, toName, toAddress),
                                      Recipient(Mapi::MAPI_TO, secondName, secondAddress)};
    const Mapi::MapiMessage message{.lpszSubject = subject.c_str(),
                                    .lpszNoteText = text.c_str(),
                                    .lpOriginator = &from,
                                    .nRecipCount = secondAddress.IsEmpty() ? 1UL : 2UL,
                                    .lpRecips = to};
    const unsigned long flags = dialog ? Mapi::MAPI_LOGON_UI | Mapi::MAPI_DIALOG : 0;
    const unsigned long code = Mapi::MapiSendMail(0, nullptr, &message, flags, 0);
    if (code != Mapi::SUCCESS_SUCCESS) {
        ShowResult(code);
    }
    return code;
}

} // namespace BTL

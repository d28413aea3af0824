// SPDX-License-Identifier: MIT
#pragma once

#include "languages/BTL_I18N_Gi18nEx.h"

namespace BTL
{

/// The texts of the library: each value is a place in its table, and tells what stands for `%s`.
enum class EIDS
{
    /// A language file isn't there: `%s` the file.
    LanguageFileMissing = 0,
    /// A language file lacks a key: `%s` the key, `%s` the file.
    LanguageKeyMissing = 1,
    /// The unit of money.
    CurrencyUnit = 2,
    /// A search without a find: `%s` the text searched for.
    TextNotFound = 3,
    /// Nothing is selected.
    NothingSelected = 4,
    /// Asks whether the selection is to be deleted.
    DeleteSelection = 5,
    /// Asks whether changes are to be saved.
    SaveChanges = 6,
    /// Asks whether changes are to be lost.
    DiscardChanges = 7,
    /// A folder isn't there.
    FolderMissing = 8,
    /// Asks whether a file is to be deleted: `%s` the file.
    DeleteFile = 9,
    /// An ini file can't be written: `%s` the file.
    IniFileNotWritten = 10,
    /// An ini file is read-only: `%s` the file.
    IniFileReadOnly = 11,
    /// What the user gave can't be used.
    InputInvalid = 12,
    /// The user gave nothing.
    InputMissing = 13,
    /// Box: a file isn't there: `%s` the file.
    FileNotFoundBox = 14,
    /// Exception: a file isn't there: `%s` the file.
    FileNotFound = 15,
    /// There is no printer.
    PrinterMissing = 16,
    /// A picture of an unknown kind can't be saved.
    GraphicUnknown = 17,
    /// Shown while data are read.
    WaitForReading = 18,
    /// Shown while data are written.
    WaitForWriting = 19,
    /// In front of a remaining time.
    RemainingTime = 20,
    /// A mail is sent.
    MailSent = 21,
    /// The recipient of a mail could be several.
    MailRecipientAmbiguous = 22,
    /// A file for a mail isn't there.
    MailAttachmentNotFound = 23,
    /// A file for a mail can't be read.
    MailAttachmentNotOpened = 24,
    /// A recipient of a mail is of an unknown kind.
    MailRecipientTypeInvalid = 25,
    /// A mail isn't sent, for a reason unknown.
    MailFailed = 26,
    /// No memory for a mail.
    MailMemory = 27,
    /// The mail program refuses the user.
    MailLoginFailed = 28,
    /// The text of a mail is too long.
    MailTextTooLarge = 29,
    /// A mail has too many files.
    MailTooManyFiles = 30,
    /// A mail has too many recipients.
    MailTooManyRecipients = 31,
    /// The recipient of a mail is unknown.
    MailRecipientUnknown = 32,
    /// The user cancelled a mail.
    MailCancelled = 33,
    /// Hint of the button that opens a choice.
    HintEllipsis = 34,
    /// Hint of the button that clears a field.
    HintClear = 35,
    /// Hint of the button that opens what a field names.
    HintOpen = 36,
    /// Hint of the button that reads a field anew.
    HintRefresh = 37,
    /// The program runs already.
    AlreadyRunning = 38,
};

/// The language file of the library: "BTL_German.ids" in `GetProgramIDSPath()`, whatever the language in it.
class TRS8_BTL_API Ci18n_IDSFile : public AIDSFile
{
public:
    Ci18n_IDSFile();
    ~Ci18n_IDSFile() override;
};

/// The texts of the library. They may be asked for from any thread, and at any time.
///
///     const auto text = BTL::Gi18n::GetString_VA(BTL::EIDS::FileNotFound, file);
///     BTL::Gi18n::Init(u"IDS", u"BTL_German.ids", BTL::GetProgramIDSPath() + u"English\\");
using Gi18n = Gi18nEx<EIDS, Ci18n_IDSFile>;

extern template class TRS8_BTL_API Gi18nEx<EIDS, Ci18n_IDSFile>;

} // namespace BTL

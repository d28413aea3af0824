// SPDX-License-Identifier: MIT
#include "platform/visual/dialogs/Dialogs_OpenDialog.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"

#include <algorithm>

namespace Typinfo
{

TTypeInfo GEnumType<Dialogs::TOpenOption>::Make()
{
    return EnumType(
        u"TOpenOption",
        {u"ofReadOnly",         u"ofOverwritePrompt",    u"ofHideReadOnly",        u"ofNoChangeDir",
         u"ofShowHelp",         u"ofNoValidate",         u"ofAllowMultiSelect",    u"ofExtensionDifferent",
         u"ofPathMustExist",    u"ofFileMustExist",      u"ofCreatePrompt",        u"ofShareAware",
         u"ofNoReadOnlyReturn", u"ofNoTestFileCreate",   u"ofNoNetworkButton",     u"ofNoLongNames",
         u"ofOldStyleDialog",   u"ofNoDereferenceLinks", u"ofEnableIncludeNotify", u"ofEnableSizing",
         u"ofDontAddToRecent",  u"ofForceShowHidden"});
}

} // namespace Typinfo

namespace Dialogs
{

using System::UnicodeString;
using Toolkits::TFileAnswer;
using Toolkits::TFileFilter;
using Toolkits::TFileQuestion;

namespace
{

/// The parts of a text between the separators.
std::vector<UnicodeString> Split(std::u16string_view text, char16_t separator)
{
    std::vector<UnicodeString> parts;
    while (true) {
        const std::size_t end = std::min(text.find(separator), text.size());
        parts.emplace_back(text.substr(0, end));
        if (end == text.size()) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::vector<TFileFilter> ParseFilter(const UnicodeString& filter)
{
    std::vector<TFileFilter> filters;
    if (filter.IsEmpty()) {
        return filters;
    }
    const std::vector<UnicodeString> parts = Split(filter.AsView(), u'|');
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        // A name without masks is one itself.
        std::vector<UnicodeString> masks = Split(parts[std::min(i + 1, parts.size() - 1)].AsView(), u';');
        for (UnicodeString& mask : masks) {
            mask = mask.Trim();
        }
        std::ranges::replace(masks, UnicodeString(u"*.*"), UnicodeString(u"*"));
        filters.push_back({parts[i], std::move(masks)});
    }
    return filters;
}

/// The mark of an extension without its point.
UnicodeString BareExtension(const UnicodeString& extension)
{
    const std::u16string_view text = extension.AsView();
    return text.starts_with(u'.') ? UnicodeString(text.substr(1)) : extension;
}

void Tell(const UnicodeString& file, const UnicodeString& fault)
{
    MessageDlg(file + u"\n" + fault, mtWarning, {mbOK}, 0);
}

bool Confirm(const UnicodeString& file, const UnicodeString& question)
{
    return MessageDlg(file + u"\n" + question, mtConfirmation, {mbYes, mbNo}, 0) == mrYes;
}

} // namespace

System::TMetaClass* TCommonDialog::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCommonDialog>(u"TCommonDialog")
            .Property(u"HelpContext", &TCommonDialog::getHelpContext, &TCommonDialog::setHelpContext,
                      {.defaultValue = 0})
            .Property(u"OnClose", &TCommonDialog::OnClose)
            .Property(u"OnShow", &TCommonDialog::OnShow)
            .Build();
    return record;
}

TCommonDialog::~TCommonDialog() = default;

void TCommonDialog::DoShow()
{
    if (OnShow) {
        OnShow(this);
    }
}

void TCommonDialog::DoClose()
{
    if (OnClose) {
        OnClose(this);
    }
}

System::TMetaClass* TOpenDialog::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TOpenDialog>(u"TOpenDialog")
            .Property(u"DefaultExt", &TOpenDialog::getDefaultExt, &TOpenDialog::setDefaultExt)
            .Property(u"FileName", &TOpenDialog::getFileName, &TOpenDialog::setFileName)
            .Property(u"Filter", &TOpenDialog::getFilter, &TOpenDialog::setFilter)
            .Property(u"FilterIndex", &TOpenDialog::getFilterIndex, &TOpenDialog::setFilterIndex,
                      {.defaultValue = 1})
            .Property(u"InitialDir", &TOpenDialog::getInitialDir, &TOpenDialog::setInitialDir)
            .Property(u"Options", &TOpenDialog::getOptions, &TOpenDialog::setOptions,
                      {.defaultValue = 1 << ofHideReadOnly | 1 << ofEnableSizing})
            .Property(u"Title", &TOpenDialog::getTitle, &TOpenDialog::setTitle)
            .Property(u"OnCanClose", &TOpenDialog::OnCanClose)
            .Build();
    return record;
}

TOpenDialog::TOpenDialog(Classes::TComponent* owner) : TCommonDialog(owner), mFiles(new Classes::TStringList)
{
}

TOpenDialog::~TOpenDialog() = default;

TFileQuestion TOpenDialog::MakeQuestion() const
{
    TFileQuestion question;
    question.kind = Toolkits::EFileQuestion::Open;
    question.caption = mTitle.IsEmpty() ? UnicodeString(u"Open") : mTitle;
    const UnicodeString folder = Sysutils::ExtractFileDir(mFileName);
    question.folder = folder.IsEmpty() ? mInitialDir : folder;
    question.fileName = Sysutils::ExtractFileName(mFileName);
    question.filters = ParseFilter(mFilter);
    const auto index = static_cast<std::size_t>(std::max(mFilterIndex, 1) - 1);
    question.filterIndex = index < question.filters.size() ? index : 0;
    question.isMultiple = mOptions.Contains(ofAllowMultiSelect);
    question.showsHidden = mOptions.Contains(ofForceShowHidden);
    return question;
}

UnicodeString TOpenDialog::WithExtension(const UnicodeString& file) const
{
    if (mDefaultExt.IsEmpty() || !Sysutils::ExtractFileExt(file).IsEmpty()) {
        return file;
    }
    return file + u"." + BareExtension(mDefaultExt);
}

void TOpenDialog::TakeAnswer(const TFileAnswer& answer)
{
    mFiles->Clear();
    for (const UnicodeString& file : answer.files) {
        mFiles->Add(WithExtension(file));
    }
    mFileName = WithExtension(answer.files.front());
    mFilterIndex = static_cast<int>(answer.filterIndex) + 1;
    const UnicodeString extension = BareExtension(Sysutils::ExtractFileExt(mFileName));
    const bool isOther = !mDefaultExt.IsEmpty() && !Sysutils::SameText(extension, BareExtension(mDefaultExt));
    isOther ? mOptions << ofExtensionDifferent : mOptions >> ofExtensionDifferent;
}

bool TOpenDialog::Ask(TFileQuestion& question)
{
    const Classes::TComponentWatch watch(this);
    const UnicodeString formerName = mFileName;
    Classes::TStringList formerFiles;
    formerFiles.Assign(mFiles.get());
    const int formerFilter = mFilterIndex;
    const auto restore = [&] {
        mFileName = formerName;
        mFiles->Assign(&formerFiles);
        mFilterIndex = formerFilter;
    };
    while (true) {
        const TFileAnswer answer = Toolkits::CurrentToolkit().AskFiles(question);
        if (!watch.IsAlive() || answer.files.empty()) {
            return false;
        }
        TakeAnswer(answer);
        question.folder = Sysutils::ExtractFileDir(mFileName);
        question.fileName = Sysutils::ExtractFileName(mFileName);
        question.filterIndex = answer.filterIndex;
        try {
            const bool isAccepted = DoCanClose();
            if (isAccepted || !watch.IsAlive()) {
                return isAccepted && watch.IsAlive();
            }
        } catch (...) {
            if (watch.IsAlive()) {
                restore();
            }
            throw;
        }
        restore();
    }
}

bool TOpenDialog::Execute()
{
    const Classes::TComponentWatch watch(this);
    DoShow();
    if (!watch.IsAlive()) {
        return false;
    }
    TFileQuestion question = MakeQuestion();
    const bool isAnswered = Ask(question);
    if (watch.IsAlive()) {
        DoClose();
    }
    return isAnswered;
}

bool TOpenDialog::DoCanClose()
{
    const Classes::TComponentWatch watch(this);
    for (int i = 0; i < mFiles->getCount() && !mOptions.Contains(ofNoValidate); ++i) {
        if (!Accepts(mFiles->getStrings(i)) || !watch.IsAlive()) {
            return false;
        }
    }
    bool canClose = true;
    if (OnCanClose) {
        OnCanClose(this, canClose);
    }
    return canClose;
}

bool TOpenDialog::Accepts(const UnicodeString& file)
{
    const bool mustHavePath = mOptions.Contains(ofPathMustExist) || mOptions.Contains(ofFileMustExist);
    const UnicodeString folder = Sysutils::ExtractFileDir(file);
    if (mustHavePath && !folder.IsEmpty() && !Sysutils::DirectoryExists(folder)) {
        Tell(file, u"Path does not exist.");
        return false;
    }
    if (Sysutils::FileExists(file)) {
        return true;
    }
    if (mOptions.Contains(ofFileMustExist)) {
        Tell(file, u"File not found.");
        return false;
    }
    return !mOptions.Contains(ofCreatePrompt) ||
           Confirm(file, u"This file does not exist. Do you want to create it?");
}

System::TMetaClass* TSaveDialog::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TSaveDialog>(u"TSaveDialog").Build();
    return record;
}

TSaveDialog::~TSaveDialog() = default;

TFileQuestion TSaveDialog::MakeQuestion() const
{
    TFileQuestion question = TOpenDialog::MakeQuestion();
    question.kind = Toolkits::EFileQuestion::Save;
    question.isMultiple = false;
    if (getTitle().IsEmpty()) {
        question.caption = u"Save As";
    }
    return question;
}

bool TSaveDialog::Accepts(const UnicodeString& file)
{
    return TOpenDialog::Accepts(file) &&
           (!getOptions().Contains(ofOverwritePrompt) || !Sysutils::FileExists(file) ||
            Confirm(file, u"This file already exists. Do you want to replace it?"));
}

} // namespace Dialogs

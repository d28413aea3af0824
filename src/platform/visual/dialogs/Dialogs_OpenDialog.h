// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Toolkits
{
struct TFileAnswer;
struct TFileQuestion;
} // namespace Toolkits

namespace Dialogs
{

/// How a file dialog behaves. Looked at are `ofOverwritePrompt`, `ofAllowMultiSelect`, `ofPathMustExist`,
/// `ofFileMustExist`, `ofCreatePrompt`, `ofForceShowHidden`, and `ofNoValidate`, which puts off all tests;
/// the dialog itself sets `ofExtensionDifferent`. The others are kept for designs.
enum TOpenOption
{
    ofReadOnly,
    ofOverwritePrompt,
    ofHideReadOnly,
    ofNoChangeDir,
    ofShowHelp,
    ofNoValidate,
    ofAllowMultiSelect,
    ofExtensionDifferent,
    ofPathMustExist,
    ofFileMustExist,
    ofCreatePrompt,
    ofShareAware,
    ofNoReadOnlyReturn,
    ofNoTestFileCreate,
    ofNoNetworkButton,
    ofNoLongNames,
    ofOldStyleDialog,
    ofNoDereferenceLinks,
    ofEnableIncludeNotify,
    ofEnableSizing,
    ofDontAddToRecent,
    ofForceShowHidden
};
/// All that holds for a file dialog.
using TOpenOptions = System::Set<TOpenOption, ofReadOnly, ofForceShowHidden>;

/// Whether a dialog may be closed with what was chosen.
using TCloseQueryEvent = System::TClosure<void(System::TObject* sender, bool& canClose)>;

/// Base of the dialogs that a form owns and shows when it needs them.
class TRS8_BTL_API TCommonDialog : public Classes::TComponent
{
    TRS8_BTL_CLASS(TCommonDialog, Classes::TComponent)

public:
    using TComponent::TComponent;
    ~TCommonDialog() override;

    /// Shows the dialog until it is answered; false if it was cancelled.
    virtual bool Execute() = 0;
    /// As `Execute`; the window above which it should stand isn't looked at.
    bool Execute(void*) { return Execute(); }
    int getHelpContext() const noexcept { return mHelpContext; }
    void setHelpContext(int context) noexcept { mHelpContext = context; }

    /// The dialog is about to be shown, or was closed.
    Classes::TNotifyEvent OnShow;
    Classes::TNotifyEvent OnClose;

protected:
    /// Call the events of these names.
    virtual void DoShow();
    virtual void DoClose();

private:
    int mHelpContext = 0;
};

/// Asks for one or more files to open.
///
///     Dialogs::TOpenDialog dialog;
///     dialog.setFilter(u"Values (*.csv)|*.csv|All files|*.*");
///     dialog.setOptions({Dialogs::ofFileMustExist});
///     if (dialog.Execute()) { Load(dialog.getFileName()); }
class TRS8_BTL_API TOpenDialog : public TCommonDialog
{
    TRS8_BTL_CLASS(TOpenDialog, TCommonDialog)

public:
    explicit TOpenDialog(Classes::TComponent* owner = nullptr);
    ~TOpenDialog() override;

    /// What stands in the line at first, with or without a folder; the file that was chosen, the first of
    /// several. It stays if the dialog is cancelled.
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }
    void setFileName(const System::UnicodeString& name) { mFileName = name; }
    /// All files that were chosen.
    Classes::TStrings* getFiles() const noexcept { return mFiles.get(); }
    /// Kinds of files: their names and masks, a `|` between all of them and a `;` between masks of one kind.
    const System::UnicodeString& getFilter() const noexcept { return mFilter; }
    void setFilter(const System::UnicodeString& filter) { mFilter = filter; }
    /// The kind that is shown first, and that was shown last, counted from 1; one that isn't there counts as
    /// the first.
    int getFilterIndex() const noexcept { return mFilterIndex; }
    void setFilterIndex(int index) noexcept { mFilterIndex = index; }
    /// What a name without an extension gets, with or without a point in front; empty for nothing.
    const System::UnicodeString& getDefaultExt() const noexcept { return mDefaultExt; }
    void setDefaultExt(const System::UnicodeString& extension) { mDefaultExt = extension; }
    /// The folder that is shown first, if the name has none; empty leaves it to the toolkit.
    const System::UnicodeString& getInitialDir() const noexcept { return mInitialDir; }
    void setInitialDir(const System::UnicodeString& folder) { mInitialDir = folder; }
    /// The caption; empty for that of the class.
    const System::UnicodeString& getTitle() const noexcept { return mTitle; }
    void setTitle(const System::UnicodeString& title) { mTitle = title; }
    /// `ofHideReadOnly` and `ofEnableSizing` at first.
    const TOpenOptions& getOptions() const noexcept { return mOptions; }
    void setOptions(const TOpenOptions& options) { mOptions = options; }

    using TCommonDialog::Execute;
    bool Execute() override;

    /// Name and files are those that were chosen; if the dialog mustn't close, it asks again.
    TCloseQueryEvent OnCanClose;

protected:
    /// What the toolkit is asked first.
    virtual Toolkits::TFileQuestion MakeQuestion() const;
    /// Whether what was chosen is to be had: asks the user where the options want that, and `OnCanClose`.
    virtual bool DoCanClose();
    /// Whether the file may be given back, by the options.
    virtual bool Accepts(const System::UnicodeString& file);

private:
    bool Ask(Toolkits::TFileQuestion& question);
    void TakeAnswer(const Toolkits::TFileAnswer& answer);
    System::UnicodeString WithExtension(const System::UnicodeString& file) const;

    System::UnicodeString mFileName;
    System::UnicodeString mFilter;
    System::UnicodeString mDefaultExt;
    System::UnicodeString mInitialDir;
    System::UnicodeString mTitle;
    System::GOwner<Classes::TStrings> mFiles;
    int mFilterIndex = 1;
    TOpenOptions mOptions{ofHideReadOnly, ofEnableSizing};
};

/// Asks for a file to write.
class TRS8_BTL_API TSaveDialog : public TOpenDialog
{
    TRS8_BTL_CLASS(TSaveDialog, TOpenDialog)

public:
    using TOpenDialog::TOpenDialog;
    ~TSaveDialog() override;

protected:
    Toolkits::TFileQuestion MakeQuestion() const override;
    bool Accepts(const System::UnicodeString& file) override;
};

} // namespace Dialogs

namespace Typinfo
{

// The options of file dialogs, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Dialogs::TOpenOption>
{
    static TTypeInfo Make();
};

} // namespace Typinfo

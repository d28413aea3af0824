// SPDX-License-Identifier: MIT
#pragma once

#include "forms/BTL_CDisableForm.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "progress/model/BTL_ProgressInfo.h"

#include <memory>
#include <optional>

class TProgressForm;

namespace BTL
{

/// A progress info that hands all on to a dialog of somebody else. Once that is gone, nothing happens any
/// more. It has no message.
class TRS8_BTL_API CProgressInfoOfForm : public AProgressInfo
{
public:
    /// Null has no dialog.
    explicit CProgressInfoOfForm(TProgressForm* form);
    ~CProgressInfoOfForm() override;

    System::Int64 getMax() const override;
    void setMax(System::Int64 max) override;
    System::Int64 getPosition() const override;
    void setPosition(System::Int64 position) override;
    System::UnicodeString getCaption() const override;
    void setCaption(System::UnicodeString caption) override;
    System::UnicodeString getText1() const override;
    void setText1(System::UnicodeString text) override;
    System::UnicodeString getText2() const override;
    void setText2(System::UnicodeString text) override;
    System::UnicodeString getTextLines() const override;
    void setTextLines(System::UnicodeString lines) override;
    bool getUserCancel() const override;
    void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text1, const System::UnicodeString& text2,
                 const System::UnicodeString& lines, int width) override;
    void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text1, const System::UnicodeString& text2,
                 Classes::TStrings* lines, int width) override;
    void Start(System::Int64 max) override;
    void Stop() override;
    void IncPosition() override;
    void SetProgressEndPosition() override;

protected:
    /// The dialog; null if it is gone.
    TProgressForm* Form() const noexcept;
    void SetForm(TProgressForm* form);

private:
    TProgressForm* mForm = nullptr;
    std::unique_ptr<Classes::TComponentWatch> mWatch;
};

/// A progress info with a dialog of its own, a `TProgress64DLG`, which is hidden until `Start`.
///
///     BTL::AProgressInfo* const progress = BTL::AProgressInfo::Get(true);    // the program's one
///     progress->Prepare(files, true, true, u"Copy", u"", u"", u"", 0);
///     const BTL::CProgressInfoStarterModal started(progress, 0);
///     ...
class TRS8_BTL_API CProgressInfoDialog : public CProgressInfoOfForm
{
public:
    /// The dialog belongs to `owner`; without one, to this.
    explicit CProgressInfoDialog(Classes::TComponent* owner);
    ~CProgressInfoDialog() override;

    /// Forgets that the user cancelled. A dialog that was destroyed is made again, if its owner is there.
    void ResetUserCancel();

private:
    Classes::TComponent* mOwner;
    std::unique_ptr<Classes::TComponentWatch> mOwnerWatch;
};

/// As `CProgressInfoStarter`, with the active form of the program out of use meanwhile, unless that is a
/// dialog of progress: the user can cancel in any case.
class TRS8_BTL_API CProgressInfoStarterModal
{
public:
    CProgressInfoStarterModal(const CProgressInfoStarterModal&) = delete;
    CProgressInfoStarterModal& operator=(const CProgressInfoStarterModal&) = delete;
    CProgressInfoStarterModal(AProgressInfo* info, System::Int64 max)
        : mDisabled(std::in_place, ActiveForm()), mStarter(info, max)
    {
    }
    /// The form can be used again before the dialog goes, so that it becomes the active one.
    ~CProgressInfoStarterModal() { mDisabled.reset(); }

private:
    /// Null for a dialog of progress.
    static Forms::TForm* ActiveForm();

    /// It takes the form that is active before the dialog is.
    std::optional<CDisableForm> mDisabled;
    CProgressInfoStarter mStarter;
};

} // namespace BTL

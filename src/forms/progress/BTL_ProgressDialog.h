// SPDX-License-Identifier: MIT
#pragma once

#include "forms/BTL_AFC_AAuto_FormCreatorStd.h"
#include "forms/progress/BTL_Progress64DLG.h"
#include "forms/progress/BTL_ProgressDLG.h"

#include <limits>

namespace BTL
{

/// The form that a creator derived from this makes. It must be there before, and after, the creator.
template <class Dialog>
struct GProgressDialogPlace
{
    Dialog* mDialog = nullptr;
};

/// A dialog of progress for direct use, made when it is first asked for; it goes with this object. As long as
/// there is none, each call does nothing. `Number` is what it counts in.
template <class Dialog, class Number>
class GProgressDialog : private GProgressDialogPlace<Dialog>, public GAuto_FormCreator<Dialog>
{
public:
    /// Makes the dialog at once.
    GProgressDialog() : GProgressDialog(true) {}
    /// Makes it if `create`, otherwise when `CreateForm` is called.
    explicit GProgressDialog(bool create) : GAuto_FormCreator<Dialog>(this->mDialog, false, true)
    {
        if (create) {
            this->CreateForm();
        }
    }

    /// The dialog; null if there is none.
    Dialog* getForm() const noexcept { return this->mDialog; }

    /// As `TProgressForm::Prepare`.
    void Prepare(Number max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text1, const System::UnicodeString& text2,
                 Classes::TStrings* lines, int width)
    {
        With([&](Dialog& dialog) {
            dialog.Prepare(max, throwOnCancel, showCancel, caption, text1, text2, lines, width);
        });
    }
    /// As `TProgressForm::Start`.
    void Start(Number max)
    {
        With([&](Dialog& dialog) { dialog.Start(max); });
    }
    /// As `TProgressForm::Stop`.
    void Stop()
    {
        With([](Dialog& dialog) { dialog.Stop(); });
    }
    /// Throws `EProgressException` as the dialog's.
    void ThrowIfUserCancel() const
    {
        With([](const Dialog& dialog) { dialog.ThrowIfUserCancel(); });
    }
    /// As `TProgressForm::IncPosition`.
    void IncPosition(int step)
    {
        With([&](Dialog& dialog) { dialog.IncPosition(step); });
    }
    /// In pixels; 0 without a dialog.
    int getWidth() const
    {
        return Of(0, [](const Dialog& dialog) { return dialog.getWidth(); });
    }
    void setWidth(int width)
    {
        With([&](Dialog& dialog) { dialog.setWidth(width); });
    }
    void setUserCancel(bool isCancelled)
    {
        With([&](Dialog& dialog) { dialog.setUserCancel(isCancelled); });
    }
    /// False without a dialog.
    bool getUserCancel() const
    {
        return Of(false, [](const Dialog& dialog) { return dialog.getUserCancel(); });
    }
    void setMax(Number max)
    {
        With([&](Dialog& dialog) { dialog.setMax(max); });
    }
    /// 2147483647 without a dialog.
    Number getMax() const
    {
        return Of(Number(std::numeric_limits<int>::max()),
                  [](const Dialog& dialog) { return static_cast<Number>(dialog.getMax()); });
    }
    void setPosition(Number position)
    {
        With([&](Dialog& dialog) { dialog.setPosition(System::Int64(position)); });
    }
    /// The greatest number without a dialog.
    Number getPosition() const
    {
        return Of(std::numeric_limits<Number>::max(),
                  [](const Dialog& dialog) { return static_cast<Number>(dialog.getProgressPosition()); });
    }
    /// Empty without a dialog, as the second text is.
    System::UnicodeString getText1() const
    {
        return Of(System::UnicodeString(), [](const Dialog& dialog) { return dialog.getText1(); });
    }
    void setText1(const System::UnicodeString& text)
    {
        With([&](Dialog& dialog) { dialog.setText1(text); });
    }
    System::UnicodeString getText2() const
    {
        return Of(System::UnicodeString(), [](const Dialog& dialog) { return dialog.getText2(); });
    }
    void setText2(const System::UnicodeString& text)
    {
        With([&](Dialog& dialog) { dialog.setText2(text); });
    }
    /// As `TProgressForm::SetText_V`.
    template <class Character>
    void SetText_V(int index, const Character* format, System::TVarArgs arguments)
    {
        With([&](Dialog& dialog) { dialog.SetText_V(index, format, arguments); });
    }
    /// As `TProgressForm::SetText_VA`.
    template <class Character, class... Arguments>
    void SetText_VA(int index, const Character* format, const Arguments&... arguments)
    {
        With([&](Dialog& dialog) { dialog.SetText_VA(index, format, arguments...); });
    }
    /// Does what a click on Cancel does.
    void UserCancelClick()
    {
        With([](Dialog& dialog) { dialog.UserCancelClick(); });
    }

protected:
    /// Calls `action` for the dialog, if there is one.
    template <class Action>
    void With(Action action) const
    {
        if (this->mDialog != nullptr) {
            action(*this->mDialog);
        }
    }
    /// What `get` gives for the dialog; `without` if there is none.
    template <class Result, class Getter>
    Result Of(Result without, Getter get) const
    {
        return this->mDialog == nullptr ? without : get(*this->mDialog);
    }
};

/// A `TProgress64DLG` for direct use.
///
///     BTL::CProgress64Dialog progress;
///     progress.Prepare(count, true, true, u"Import", u"", u"", nullptr, 0);
///     progress.Start(0);
///     for (...) { progress.IncPositionModulo(100); }
///     progress.Stop();
class CProgress64Dialog : public GProgressDialog<TProgress64DLG, System::Int64>
{
public:
    using GProgressDialog::GProgressDialog;

    /// False without a dialog.
    bool IncPositionModulo(int modulo)
    {
        return Of(false, [&](TProgress64DLG& dialog) { return dialog.IncPositionModulo(modulo); });
    }
};

/// A `TProgressDLG` for direct use.
class CProgressDialog : public GProgressDialog<TProgressDLG, int>
{
public:
    using GProgressDialog::GProgressDialog;
};

} // namespace BTL

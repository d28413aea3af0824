// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/sysutils/System_VarArgs.h"
#include "platform/visual/forms/Forms_Form.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Comctrls
{
class TProgressBar;
} // namespace Comctrls

namespace Extctrls
{
class TPanel;
} // namespace Extctrls

namespace Stdctrls
{
class TButton;
class TMemo;
} // namespace Stdctrls

class TCTL_Label;

/// What a position change throws after the user cancelled, if the dialog was prepared for that.
enum EProgressException
{
    epeUserCancel = 0
};

/// What the dialogs of progress have in common: a bar, two lines of text, a field of lines and two buttons,
/// each on a panel of its own. The panels that are shown stand one below the other, and the form is as high
/// as they are.
///
/// The work runs in the main thread and tells the dialog of each step; that lets the message loop run, so
/// that Cancel is answered and any other message too. Deep within such calls, only what concerns the dialog
/// is still handled. A handler may destroy the dialog: the call that ran it then returns.
class TRS8_BTL_API TProgressForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TProgressForm, Forms::TForm)

public:
    explicit TProgressForm(Classes::TComponent* owner = nullptr);
    ~TProgressForm() override;

    Extctrls::TPanel* fPanel1 = nullptr;
    Comctrls::TProgressBar* fProgressBar = nullptr;
    Extctrls::TPanel* fPanel2 = nullptr;
    TCTL_Label* fLabel1 = nullptr;
    Extctrls::TPanel* fPanel3 = nullptr;
    TCTL_Label* fLabel2 = nullptr;
    Extctrls::TPanel* fPanel4 = nullptr;
    Stdctrls::TMemo* fMemo = nullptr;
    Extctrls::TPanel* fPanel5 = nullptr;
    Stdctrls::TButton* fBtn_Cancel = nullptr;
    Stdctrls::TButton* fBtn_Ok = nullptr;

    /// The position reached its maximum, or is beyond it: told at each change.
    Classes::TNotifyEvent OnEndPosition;
    Classes::TNotifyEvent OnOk;
    Classes::TNotifyEvent OnCancel;

    /// Where all such dialogs stand from now on: so many pixels from the top of the screen, in its middle; 0,
    /// as at first, puts them into the middle both ways.
    static void SetTop(int top) noexcept { smTop = top; }

    /// Sets all that is to be seen, before `Start`: `max` and position 0; whether a change of the position
    /// throws `EProgressException` once the user cancelled; whether there is a Cancel button; the caption,
    /// that of the program if it is empty; the texts and lines, which are hidden where they are empty; and
    /// the width, 0 for that which the form has. The bar is hidden for a `max` of 0.
    void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text1, const System::UnicodeString& text2,
                 const System::UnicodeString& lines, int width);
    /// As `Prepare` of a text, with the lines of a list, which are shown unless it is null.
    void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text1, const System::UnicodeString& text2,
                 Classes::TStrings* lines, int width);
    /// As `Prepare`, without a change of the lines themselves.
    void DoPrepare(System::Int64 max, bool throwOnCancel, bool showCancel,
                   const System::UnicodeString& caption, const System::UnicodeString& text1,
                   const System::UnicodeString& text2, bool showLines, int width);

    /// Shows the dialog at position 0, not modally, with this `max` and the bar unless it is 0.
    void Start(System::Int64 max);
    /// Hides the dialog, its bar at the end.
    void Stop();
    /// Throws `epeUserCancel` if the user cancelled and `Prepare` was told so.
    void ThrowIfUserCancel() const;
    /// Lets the message loop run, throws as `ThrowIfUserCancel`, and tells `OnEndPosition`.
    void PositionChanged();

    virtual System::Int64 getMax() const = 0;
    virtual void setMax(System::Int64 max) = 0;
    virtual System::Int64 getProgressPosition() const = 0;
    using TForm::setPosition;
    /// The position of the progress: moves the bar and calls `PositionChanged`, as all changes of it do.
    void setPosition(System::Int64 position);
    /// Moves the bar alone.
    virtual void SetProgressBarPosition(System::Int64 position) = 0;
    void IncPosition(int step);
    /// One step of a fast loop: the message loop runs at each multiple of `modulo` alone, and at each step if
    /// there are fewer than ten of those up to the maximum. True if it did. A bar that doesn't hold the
    /// position itself moves only then, too. A `modulo` below 1 counts as 1.
    bool IncPositionModulo(int modulo);
    /// As `IncPosition`, and `text` becomes the text of that index.
    void IncPositionExt(int step, int textIndex, const System::UnicodeString& text);
    /// As `IncPositionExt`, with the text that `System::PrintfA` or `System::Printf` makes.
    template <class Character, class... Arguments>
    void IncPositionExt_VA(int step, int textIndex, const Character* format, const Arguments&... arguments)
    {
        const Classes::TComponentWatch watch(this);
        IncPosition(step);
        if (watch.IsAlive()) {
            SetText_VA(textIndex, format, arguments...);
        }
    }

    bool getUserCancel() const noexcept { return mUserCancel; }
    void setUserCancel(bool isCancelled) noexcept { mUserCancel = isCancelled; }
    /// Does what a click on Cancel does.
    void UserCancelClick();

    bool getShowOk() const;
    void setShowOk(bool isShown);
    bool getShowCancel() const;
    /// Without Cancel, the window can't be closed by its frame either.
    void setShowCancel(bool isShown);
    /// The height of the field of lines, in pixels; negative ones count as 0.
    void setLinesHeight(int height);
    /// The text of the first line for 1, of the second for 2, else an empty one.
    System::UnicodeString getText(int index) const;
    /// An index other than 1 and 2 does nothing.
    void setText(int index, const System::UnicodeString& text);
    System::UnicodeString getText1() const;
    /// A text that is new lets the message loop run.
    void setText1(const System::UnicodeString& text);
    System::UnicodeString getText2() const;
    void setText2(const System::UnicodeString& text);
    /// As `setText`, with the text that `System::PrintfA` or `System::Printf` makes.
    void SetText_V(int index, const char* format, System::TVarArgs arguments);
    void SetText_V(int index, const System::WideChar* format, System::TVarArgs arguments);
    template <class Character, class... Arguments>
    void SetText_VA(int index, const Character* format, const Arguments&... arguments)
    {
        SetText_V(index, format, System::TVarArgs{System::TVarRec(arguments)...});
    }
    /// The field's own lines.
    Classes::TStrings* getLines() const;

    /// Whether the panel of the bar, of a text, or of the lines is shown.
    void setProgressBar(bool isShown);
    void setShowText1(bool isShown);
    void setShowText2(bool isShown);
    void setShowLines(bool isShown);

protected:
    /// Keeps the position where `getProgressPosition` has it from.
    virtual void KeepPosition(System::Int64 position) = 0;
    /// The user pressed a button or closed the dialog.
    virtual void Cancelled() { mUserCancel = true; }

private:
    void CancelClick(System::TObject* sender);
    void OkClick(System::TObject* sender);
    void FormClose(System::TObject* sender, Forms::TCloseAction& action);
    void FormShow(System::TObject* sender);
    void FormHide(System::TObject* sender);
    void ButtonsResize(System::TObject* sender);

    /// Off while the form is shown: that tells the user enough.
    void SwitchHourglass(bool isOn);
    void ShowPanel(Extctrls::TPanel& panel, bool isShown);
    void ShowButton(Stdctrls::TButton& button, bool isShown);
    void AlignPanels();
    /// Puts the buttons into the middle of their halves, or one of them into the middle.
    void InitControls();
    void PlaceOnScreen();
    void ProcessMessages();
    void ChangeText(TCTL_Label& label, const System::UnicodeString& text);

    static int smTop;

    bool mUserCancel = false;
    bool mThrowOnCancel = false;
    bool mIsHourglassOn = true;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <memory>

namespace Mask
{

class CEditMask;

/// A masked text isn't complete.
class TRS8_BTL_API EDBEditError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EDBEditError() override;
};

/// Base of edits that hold the text to a mask, place by place. Without a mask it is an edit as any other.
///
///     auto* const edit = new Mask::TMaskEdit(form);
///     edit->setEditMask(u"!99/99/00;1;_");                        // shows "__.__.__" with `.` for dates
///     edit->setText(u"1.2.03");                                   // "_1._2.03"
class TRS8_BTL_API TCustomMaskEdit : public Stdctrls::TCustomEdit
{
    TRS8_BTL_CLASS(TCustomMaskEdit, Stdctrls::TCustomEdit)

public:
    explicit TCustomMaskEdit(Classes::TComponent* owner = nullptr);
    ~TCustomMaskEdit() override;

    /// The mask: places, then behind a `;` whether the text has the literals (`0` is no), behind another one
    /// what is shown where a character is missing. In it `L`, `A`, `C` and `0` are a letter, a letter or
    /// digit, any character and a digit, `l`, `a`, `c` and `9` the same that may be missing, `#` a digit or
    /// sign that may; `>`, `<` and `<>` begin capitals, small letters and neither; `!` leaves out at the
    /// front; `\` takes the next character as it is; `/` and `:` are the separators of date and time, `_` a
    /// blank. Empty at first.
    System::UnicodeString getEditMask() const { return mEditMask; }
    /// The text is kept as far as it fits.
    void setEditMask(const System::UnicodeString& mask) { SetEditMask(mask); }
    virtual void SetEditMask(const System::UnicodeString& mask);
    /// Whether there is a mask.
    bool getIsMasked() const noexcept { return mMask != nullptr; }

    /// The text as it is shown, with literals and with what stands for a missing character.
    System::UnicodeString getEditText() const { return GetText(); }
    /// Brought to the length of the mask.
    void setEditText(const System::UnicodeString& text) { SetText(text); }
    /// The value: with the literals if the mask saves them, and blanks for what is missing; otherwise
    /// without, and without the blanks at its end, or with `!` at its front.
    System::UnicodeString getText() const;
    void setText(const System::UnicodeString& text);
    void SetText(const System::UnicodeString& text) override;
    void Clear() override;

    /// `EDBEditError` if the user changed the text and it isn't complete; the caret then stands at the fault,
    /// and the control has the focus. Called when the control is left.
    virtual void ValidateEdit();
    /// Whether the shown text is complete; `place` is the first fault if not.
    bool Validate(const System::UnicodeString& editText, int& place) const;
    /// Brings back the text that was there when the control was entered.
    virtual void Reset();

    void Dispatch(void* message) override;

protected:
    /// Raises what `ValidateEdit` does.
    virtual void ValidateError();
    /// Whether the user may change the text now.
    virtual bool EditCanModify() { return true; }
    void KeyPress(System::WideChar& key) override;
    bool EditByUser(int start, int length, const System::UnicodeString& text) override;

private:
    /// Puts the characters of `typed` into `text` from the place on; gives where the caret goes then.
    int TypeInto(std::u16string& text, int place, std::u16string_view typed) const;

    System::UnicodeString mEditMask;
    std::unique_ptr<CEditMask> mMask;
    System::UnicodeString mOldText;
};

/// A masked edit of a form's design.
class TRS8_BTL_API TMaskEdit : public TCustomMaskEdit
{
    TRS8_BTL_CLASS(TMaskEdit, TCustomMaskEdit)

public:
    explicit TMaskEdit(Classes::TComponent* owner = nullptr) : TCustomMaskEdit(owner) {}
    ~TMaskEdit() override;
};

} // namespace Mask

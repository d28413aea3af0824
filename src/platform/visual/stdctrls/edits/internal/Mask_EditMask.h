// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace Mask
{

/// What a mask says of a text, place by place: "!99/99/00;1;_". Characters that stand for others: `L` a
/// letter, `A` a letter or digit, `C` anything, `0` a digit, each of which must be there; `l`, `a`, `c`, `9`
/// as these, but may be missing; `#` a digit or sign that may. `>`, `<` and `<>` begin capitals, small
/// letters and neither, `!` has what is missing at the front, `\` takes the next character as it is, `:` and
/// `/` are the separators of time and date, `_` a blank, and any other stands for itself. Behind a `;` a `0`
/// leaves these out of the text, behind another one the character follows that is shown where none is.
class CEditMask
{
public:
    explicit CEditMask(const System::UnicodeString& mask);

    int Length() const noexcept { return static_cast<int>(mSlots.size()); }
    bool IsEmpty() const noexcept { return mSlots.empty(); }
    bool IsReversed() const noexcept { return mIsReversed; }
    /// Whether the text has the literals, and blanks for what is missing.
    bool SavesLiterals() const noexcept { return mSavesLiterals; }
    System::WideChar Blank() const noexcept { return mBlank; }

    /// The first place from `place` on that can be edited; the length if there is none.
    int NextEditable(int place) const noexcept;
    bool IsEditable(int place) const noexcept;
    System::UnicodeString EmptyText() const;
    /// The character as the place takes it; 0 if it doesn't.
    System::WideChar Accepted(int place, System::WideChar character) const;
    /// The place behind the first literal from `place` on that is the character; -1 if there is none.
    int BehindLiteral(int place, System::WideChar character) const noexcept;

    /// A text brought to the length of the mask, with its literals at their places.
    System::UnicodeString Fit(const System::UnicodeString& editText) const;
    /// The shown text of a value, with or without literals as the mask saves them.
    System::UnicodeString ToEditText(const System::UnicodeString& value) const;
    /// The value of a shown text.
    System::UnicodeString ToValue(const System::UnicodeString& editText) const;
    /// The first place that must have a character and has none, or a wrong one; -1 for a valid text.
    int FirstFault(const System::UnicodeString& editText) const;

private:
    enum class EKind
    {
        Literal,
        Letter,
        LetterOrDigit,
        Any,
        Digit,
        DigitOrSign
    };
    enum class ECase
    {
        Kept,
        Upper,
        Lower
    };
    struct TSlot
    {
        EKind kind = EKind::Literal;
        System::WideChar literal = 0;
        bool isRequired = false;
        ECase letterCase = ECase::Kept;
    };

    /// Reads the part that tells the places; gives what is behind its `;`.
    std::u16string_view ReadSlots(std::u16string_view mask);
    static bool Takes(EKind kind, System::WideChar character);
    System::UnicodeString FromSaved(std::u16string_view value) const;
    System::UnicodeString FromBare(std::u16string_view value) const;
    /// Puts a piece into the editable places from `begin` to `end`.
    void PutPiece(std::u16string& text, int begin, int end, std::u16string_view piece) const;

    std::vector<TSlot> mSlots;
    System::WideChar mBlank = u'_';
    bool mSavesLiterals = true;
    bool mIsReversed = false;
};

} // namespace Mask

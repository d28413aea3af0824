// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/internal/Mask_EditMask.h"

#include "platform/base/Sysutils_Locale.h"
#include "platform/runtime/sysutils/Character.h"

#include <algorithm>

namespace Mask
{

using Character::TCharacter;
using System::UnicodeString;
using System::WideChar;

using View = std::u16string_view;

CEditMask::CEditMask(const UnicodeString& mask)
{
    const View fields = ReadSlots(mask.AsView());
    if (!fields.empty()) {
        mSavesLiterals = fields[0] != u'0';
    }
    const std::size_t next = fields.find(u';');
    if (next != View::npos && next + 1 < fields.size()) {
        mBlank = fields[next + 1];
    }
}

View CEditMask::ReadSlots(View mask)
{
    ECase letterCase = ECase::Kept;
    const auto add = [&](EKind kind, bool isRequired) {
        mSlots.push_back({kind, 0, isRequired, letterCase});
    };
    const auto addLiteral = [this](WideChar c) { mSlots.push_back({EKind::Literal, c, false, ECase::Kept}); };
    for (std::size_t i = 0; i < mask.size(); ++i) {
        const WideChar c = mask[i];
        switch (c) {
        case u';':
            return mask.substr(i + 1);
        case u'!':
            mIsReversed = true;
            break;
        case u'>':
            letterCase = ECase::Upper;
            break;
        case u'<':
            letterCase = ECase::Lower;
            if (i + 1 < mask.size() && mask[i + 1] == u'>') {
                letterCase = ECase::Kept;
                ++i;
            }
            break;
        case u'\\':
            if (i + 1 < mask.size()) {
                addLiteral(mask[++i]);
            }
            break;
        case u'L':
        case u'l':
            add(EKind::Letter, c == u'L');
            break;
        case u'A':
        case u'a':
            add(EKind::LetterOrDigit, c == u'A');
            break;
        case u'C':
        case u'c':
            add(EKind::Any, c == u'C');
            break;
        case u'0':
        case u'9':
            add(EKind::Digit, c == u'0');
            break;
        case u'#':
            add(EKind::DigitOrSign, false);
            break;
        case u'/':
            addLiteral(Sysutils::DateSeparator);
            break;
        case u':':
            addLiteral(Sysutils::TimeSeparator);
            break;
        case u'_':
            addLiteral(u' ');
            break;
        default:
            addLiteral(c);
            break;
        }
    }
    return {};
}

bool CEditMask::IsEditable(int place) const noexcept
{
    return place >= 0 && place < Length() && mSlots[static_cast<std::size_t>(place)].kind != EKind::Literal;
}

int CEditMask::NextEditable(int place) const noexcept
{
    while (place < Length() && !IsEditable(place)) {
        ++place;
    }
    return std::min(place, Length());
}

UnicodeString CEditMask::EmptyText() const
{
    std::u16string text;
    for (const TSlot& slot : mSlots) {
        text += slot.kind == EKind::Literal ? slot.literal : mBlank;
    }
    return UnicodeString(View(text));
}

bool CEditMask::Takes(EKind kind, WideChar c)
{
    const bool isDigit = c >= u'0' && c <= u'9';
    switch (kind) {
    case EKind::Letter:
        return TCharacter::IsLetter(c);
    case EKind::LetterOrDigit:
        return isDigit || TCharacter::IsLetter(c);
    case EKind::Digit:
        return isDigit;
    case EKind::DigitOrSign:
        return isDigit || c == u'+' || c == u'-' || c == u' ';
    default:
        return kind == EKind::Any && c >= u' ';
    }
}

WideChar CEditMask::Accepted(int place, WideChar character) const
{
    if (!IsEditable(place)) {
        return 0;
    }
    const TSlot& slot = mSlots[static_cast<std::size_t>(place)];
    if (!Takes(slot.kind, character)) {
        return 0;
    }
    switch (slot.letterCase) {
    case ECase::Upper:
        return TCharacter::ToUpper(character);
    case ECase::Lower:
        return TCharacter::ToLower(character);
    default:
        return character;
    }
}

int CEditMask::BehindLiteral(int place, WideChar character) const noexcept
{
    for (int i = std::max(place, 0); i < Length(); ++i) {
        const TSlot& slot = mSlots[static_cast<std::size_t>(i)];
        if (slot.kind == EKind::Literal && slot.literal == character) {
            return i + 1;
        }
    }
    return -1;
}

UnicodeString CEditMask::Fit(const UnicodeString& editText) const
{
    std::u16string text(EmptyText().AsView());
    const View given = editText.AsView();
    for (std::size_t i = 0; i < std::min(text.size(), given.size()); ++i) {
        if (mSlots[i].kind != EKind::Literal) {
            text[i] = given[i];
        }
    }
    return UnicodeString(View(text));
}

void CEditMask::PutPiece(std::u16string& text, int begin, int end, View piece) const
{
    const auto width = static_cast<std::size_t>(end - begin);
    piece = piece.substr(0, width);
    const std::size_t at = static_cast<std::size_t>(begin) + (mIsReversed ? width - piece.size() : 0);
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const bool isMissing = piece[i] == u' ' && mSlots[at + i].kind != EKind::Any;
        text[at + i] = isMissing ? mBlank : piece[i];
    }
}

UnicodeString CEditMask::FromSaved(View value) const
{
    std::u16string text(EmptyText().AsView());
    int place = 0;
    while (place < Length()) {
        int fieldEnd = place;
        while (IsEditable(fieldEnd)) {
            ++fieldEnd;
        }
        int next = fieldEnd;
        while (next < Length() && !IsEditable(next)) {
            ++next;
        }
        const auto width = static_cast<std::size_t>(fieldEnd - place);
        const View break_ =
            View(text).substr(static_cast<std::size_t>(fieldEnd), static_cast<std::size_t>(next - fieldEnd));
        // A field may be shorter than its places are, if what parts it from the next one is there.
        const std::size_t found =
            break_.empty() ? View::npos : value.substr(0, width + break_.size()).find(break_);
        const View piece = value.substr(0, std::min(found, width));
        PutPiece(text, place, fieldEnd, piece);
        value.remove_prefix(piece.size() + (found == View::npos ? 0 : break_.size()));
        place = next;
    }
    return UnicodeString(View(text));
}

UnicodeString CEditMask::FromBare(View value) const
{
    std::u16string text(EmptyText().AsView());
    std::vector<std::size_t> places;
    for (int i = NextEditable(0); i < Length(); i = NextEditable(i + 1)) {
        places.push_back(static_cast<std::size_t>(i));
    }
    value = value.substr(0, places.size());
    const std::size_t first = mIsReversed ? places.size() - value.size() : 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const std::size_t place = places[first + i];
        text[place] = value[i] == u' ' && mSlots[place].kind != EKind::Any ? mBlank : value[i];
    }
    return UnicodeString(View(text));
}

UnicodeString CEditMask::ToEditText(const UnicodeString& value) const
{
    return mSavesLiterals ? FromSaved(value.AsView()) : FromBare(value.AsView());
}

UnicodeString CEditMask::ToValue(const UnicodeString& editText) const
{
    const View shown = editText.AsView();
    std::u16string value;
    for (std::size_t i = 0; i < std::min(shown.size(), mSlots.size()); ++i) {
        if (mSlots[i].kind != EKind::Literal) {
            value += shown[i] == mBlank ? u' ' : shown[i];
        } else if (mSavesLiterals) {
            value += shown[i];
        }
    }
    if (mSavesLiterals) {
        return UnicodeString(View(value));
    }
    const auto isBlank = [](WideChar c) { return c == u' '; };
    if (mIsReversed) {
        value.erase(value.begin(), std::find_if_not(value.begin(), value.end(), isBlank));
    } else {
        value.erase(std::find_if_not(value.rbegin(), value.rend(), isBlank).base(), value.end());
    }
    return UnicodeString(View(value));
}

int CEditMask::FirstFault(const UnicodeString& editText) const
{
    const View text = editText.AsView();
    for (std::size_t i = 0; i < mSlots.size(); ++i) {
        const TSlot& slot = mSlots[i];
        const WideChar c = i < text.size() ? text[i] : mBlank;
        const bool isMissing = c == mBlank;
        if (slot.kind == EKind::Literal || (isMissing && !slot.isRequired)) {
            continue;
        }
        if (isMissing || !Takes(slot.kind, c)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace Mask

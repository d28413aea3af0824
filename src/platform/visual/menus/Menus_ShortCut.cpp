// SPDX-License-Identifier: MIT
#include "platform/visual/menus/Menus_ShortCut.h"

#include <algorithm>
#include <string_view>

namespace Menus
{

using Classes::TShiftState;
using Classes::TShortCut;
using System::UnicodeString;
using System::Word;

namespace
{

struct TKeyName
{
    Word key;
    std::u16string_view name;
};

constexpr TKeyName KeyNames[] = {
    {VK_BACK, u"BkSp"},   {VK_TAB, u"Tab"},    {VK_ESCAPE, u"Esc"}, {VK_RETURN, u"Enter"},
    {VK_SPACE, u"Space"}, {VK_PRIOR, u"PgUp"}, {VK_NEXT, u"PgDn"},  {VK_END, u"End"},
    {VK_HOME, u"Home"},   {VK_LEFT, u"Left"},  {VK_UP, u"Up"},      {VK_RIGHT, u"Right"},
    {VK_DOWN, u"Down"},   {VK_INSERT, u"Ins"}, {VK_DELETE, u"Del"},
};

struct TModifier
{
    Word bit;
    std::u16string_view text;
};

constexpr TModifier Modifiers[] = {
    {Classes::scShift, u"Shift+"}, {Classes::scCtrl, u"Ctrl+"}, {Classes::scAlt, u"Alt+"}};

constexpr Word ModifierBits = Classes::scShift | Classes::scCtrl | Classes::scAlt;

constexpr bool IsDigitOrLetter(Word key)
{
    return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
}

UnicodeString NameOf(Word key)
{
    const auto* const found = std::ranges::find(KeyNames, key, &TKeyName::key);
    if (found != std::end(KeyNames)) {
        return UnicodeString(found->name);
    }
    if (IsDigitOrLetter(key)) {
        return UnicodeString(static_cast<System::WideChar>(key));
    }
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD0 + 9) {
        return u"Num " + UnicodeString(key - VK_NUMPAD0);
    }
    if (key >= VK_F1 && key <= VK_F24) {
        return u"F" + UnicodeString(key - VK_F1 + 1);
    }
    return {};
}

/// The key of a name, 0 if there is none.
Word KeyOf(const UnicodeString& name)
{
    for (Word key = 1; key <= 255; ++key) {
        const UnicodeString other = NameOf(key);
        if (!other.IsEmpty() && name.CompareIC(other) == 0) {
            return key;
        }
    }
    return 0;
}

} // namespace

TShortCut ShortCut(Word key, const TShiftState& shift)
{
    if (key > 255) {
        return Classes::scNone;
    }
    Word result = key;
    result |= shift.Contains(Classes::ssShift) ? Classes::scShift : Word{0};
    result |= shift.Contains(Classes::ssCtrl) ? Classes::scCtrl : Word{0};
    result |= shift.Contains(Classes::ssAlt) ? Classes::scAlt : Word{0};
    return TShortCut{result};
}

void ShortCutToKey(TShortCut shortCut, Word& key, TShiftState& shift)
{
    key = shortCut & ~ModifierBits;
    shift = {};
    if ((shortCut & Classes::scShift) != 0) {
        shift << Classes::ssShift;
    }
    if ((shortCut & Classes::scCtrl) != 0) {
        shift << Classes::ssCtrl;
    }
    if ((shortCut & Classes::scAlt) != 0) {
        shift << Classes::ssAlt;
    }
}

UnicodeString ShortCutToText(TShortCut shortCut)
{
    const UnicodeString name = NameOf(shortCut & ~ModifierBits);
    if (name.IsEmpty()) {
        return {};
    }
    UnicodeString text;
    for (const TModifier& modifier : Modifiers) {
        if ((shortCut & modifier.bit) != 0) {
            text += UnicodeString(modifier.text);
        }
    }
    return text + name;
}

TShortCut TextToShortCut(const UnicodeString& text)
{
    Word bits = 0;
    UnicodeString rest = text;
    const auto takeModifier = [&] {
        return std::ranges::any_of(Modifiers, [&](const TModifier& modifier) {
            const int length = static_cast<int>(modifier.text.size());
            if (rest.SubString(1, length).CompareIC(UnicodeString(modifier.text)) != 0) {
                return false;
            }
            bits |= modifier.bit;
            rest = rest.SubString(length + 1, rest.Length());
            return true;
        });
    };
    while (takeModifier()) {
    }
    const Word key = KeyOf(rest);
    return key == 0 ? Classes::scNone : TShortCut{static_cast<Word>(key | bits)};
}

} // namespace Menus

namespace Typinfo
{

TTypeInfo GEnumType<Classes::TShortCut>::Make()
{
    return {.Kind = tkInteger, .Name = u"TShortCut", .MinValue = 0, .MaxValue = 0xFFFF};
}

} // namespace Typinfo

// SPDX-License-Identifier: MIT
#include "progress/BTL_SharedProgressData.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace BTL
{

using System::UnicodeString;
using System::WideChar;

static_assert(std::is_trivially_copyable_v<CSharedProgressInfoData>);

void CSharedProgressInfoData::Clear() noexcept
{
    *this = CSharedProgressInfoData();
}

System::TDateTime CSharedProgressInfoData::getStartTime() const noexcept
{
    double days = 0;
    __atomic_load(&mStartTime, &days, __ATOMIC_ACQUIRE);
    return days;
}

void CSharedProgressInfoData::setStartTime(System::TDateTime time) noexcept
{
    double days = time;
    __atomic_store(&mStartTime, &days, __ATOMIC_RELEASE);
}

template <int Characters>
UnicodeString CSharedProgressInfoData::LoadText(const GText<Characters>& field)
{
    // The bytes may be of anybody's making, and change meanwhile.
    std::array<WideChar, Characters> text;
    int length = 0;
    while (length < Characters) {
        const WideChar character = Load(field.characters[length]);
        if (character == 0) {
            break;
        }
        text[static_cast<std::size_t>(length++)] = character;
    }
    return UnicodeString(text.data(), length);
}

template <int Characters>
void CSharedProgressInfoData::StoreText(GText<Characters>& field, const UnicodeString& text) noexcept
{
    const WideChar* const begin = text.c_str();
    const WideChar* const end = std::find(begin, begin + std::min(text.Length(), Characters), WideChar(0));
    WideChar* place = field.characters;
    for (const WideChar* character = begin; character != end; ++character) {
        Store(*place++, *character);
    }
    while (place != field.characters + Characters) {
        Store(*place++, WideChar(0));
    }
}

UnicodeString CSharedProgressInfoData::getCaption() const
{
    return LoadText(mCaption);
}

void CSharedProgressInfoData::setCaption(UnicodeString caption) noexcept
{
    StoreText(mCaption, caption);
}

UnicodeString CSharedProgressInfoData::getText1() const
{
    return LoadText(mText1);
}

void CSharedProgressInfoData::setText1(UnicodeString text) noexcept
{
    StoreText(mText1, text);
}

UnicodeString CSharedProgressInfoData::getText2() const
{
    return LoadText(mText2);
}

void CSharedProgressInfoData::setText2(UnicodeString text) noexcept
{
    StoreText(mText2, text);
}

UnicodeString CSharedProgressInfoData::getTextLines() const
{
    return LoadText(mTextLines);
}

void CSharedProgressInfoData::setTextLines(UnicodeString lines) noexcept
{
    StoreText(mTextLines, lines);
}

UnicodeString CSharedProgressInfoData::getMessage() const
{
    return LoadText(mMessage);
}

void CSharedProgressInfoData::setMessage(UnicodeString message) noexcept
{
    StoreText(mMessage, message);
}

UnicodeString CSharedProgressInfoData::getCommandLine() const
{
    return LoadText(mCommandLine);
}

void CSharedProgressInfoData::setCommandLine(UnicodeString line) noexcept
{
    StoreText(mCommandLine, line);
}

} // namespace BTL

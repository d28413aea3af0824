// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_StringBuilder.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <climits>

namespace Sysutils
{

using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr int DefaultCapacity = 16;

/// The piece of `count` characters at `index`, which must lie within `length`.
void CheckPiece(int index, int count, int length)
{
    if (index < 0 || count < 0 || index > length || count > length - index) {
        throw EArgumentOutOfRangeException(u"The position lies outside the text.");
    }
}

constexpr const WideChar* TooLong = u"The text grows too long.";

/// Runs what may use up the memory.
template <class Change>
void WithRoom(Change change)
{
    System::WithMemory(TooLong, change);
}

/// Runs what adds `count` characters to the `length` that are there.
template <class Change>
void WithRoom(std::size_t length, std::size_t count, Change change)
{
    if (count >= static_cast<std::size_t>(INT_MAX) - length) {
        throw EOutOfMemory(TooLong);
    }
    WithRoom(change);
}

} // namespace

System::TMetaClass* TStringBuilder::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TStringBuilder>(u"TStringBuilder").Build();
    return record;
}

TStringBuilder::TStringBuilder() : TStringBuilder(DefaultCapacity) {}

TStringBuilder::TStringBuilder(int capacity)
{
    WithRoom([&] { mText.reserve(static_cast<std::size_t>(std::max(capacity, 0))); });
}

TStringBuilder::TStringBuilder(const UnicodeString& text) : mText(text.AsView()) {}

TStringBuilder::~TStringBuilder() = default;

void TStringBuilder::setLength(int length)
{
    CheckPiece(0, length, INT_MAX - 1);
    WithRoom([&] { mText.resize(static_cast<std::size_t>(length)); });
}

int TStringBuilder::getCapacity() const noexcept
{
    return static_cast<int>(std::min<std::size_t>(mText.capacity(), INT_MAX - 1));
}

void TStringBuilder::setCapacity(int capacity)
{
    CheckPiece(0, getLength(), capacity);
    WithRoom([&] { mText.reserve(static_cast<std::size_t>(capacity)); });
}

WideChar TStringBuilder::getChars(int index) const
{
    CheckPiece(index, 1, getLength());
    return mText[static_cast<std::size_t>(index)];
}

void TStringBuilder::setChars(int index, WideChar character)
{
    CheckPiece(index, 1, getLength());
    mText[static_cast<std::size_t>(index)] = character;
}

TStringBuilder& TStringBuilder::Append(std::u16string_view text)
{
    WithRoom(mText.size(), text.size(), [&] { mText += text; });
    return *this;
}

TStringBuilder& TStringBuilder::Append(WideChar character, int count)
{
    const auto characters = static_cast<std::size_t>(std::max(count, 0));
    WithRoom(mText.size(), characters, [&] { mText.append(characters, character); });
    return *this;
}

TStringBuilder& TStringBuilder::AppendLine(const UnicodeString& text)
{
    return Append(text).Append(std::u16string_view(u"\r\n"));
}

TStringBuilder& TStringBuilder::Insert(int index, const UnicodeString& text)
{
    CheckPiece(index, 0, getLength());
    WithRoom(mText.size(), text.AsView().size(),
             [&] { mText.insert(static_cast<std::size_t>(index), text.AsView()); });
    return *this;
}

TStringBuilder& TStringBuilder::Remove(int index, int count)
{
    CheckPiece(index, count, getLength());
    mText.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
    return *this;
}

TStringBuilder& TStringBuilder::Replace(const UnicodeString& oldText, const UnicodeString& newText)
{
    mText = StringReplace(ToString(), oldText, newText, TReplaceFlags() << rfReplaceAll).AsView();
    return *this;
}

TStringBuilder& TStringBuilder::Replace(WideChar oldCharacter, WideChar newCharacter)
{
    std::replace(mText.begin(), mText.end(), oldCharacter, newCharacter);
    return *this;
}

UnicodeString TStringBuilder::ToString(int index, int count) const
{
    CheckPiece(index, count, getLength());
    return UnicodeString(
        std::u16string_view(mText).substr(static_cast<std::size_t>(index), static_cast<std::size_t>(count)));
}

} // namespace Sysutils

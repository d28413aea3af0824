// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Object.h"

#include <string>

namespace Sysutils
{

/// Builds a long text piece by piece. Positions count from 0; one that lies outside the text raises
/// `EArgumentOutOfRangeException`. Numbers become text as `System::UnicodeString` makes it. What no string
/// could hold raises `EOutOfMemory`.
///
///     TStringBuilder text;
///     text.Append(u"n=").Append(5).AppendLine();
///     text.Insert(0, u"> ");
///     const System::UnicodeString result = text.ToString();       // "> n=5" and CR LF
class TRS8_BTL_API TStringBuilder : public System::TObject
{
    TRS8_BTL_CLASS(TStringBuilder, System::TObject)

public:
    TStringBuilder();
    /// Empty, with room for `capacity` characters. A negative one counts as 0.
    explicit TStringBuilder(int capacity);
    explicit TStringBuilder(const System::UnicodeString& text);
    ~TStringBuilder() override;

    int getLength() const noexcept { return static_cast<int>(mText.size()); }
    /// Cuts, or lengthens with zero characters. `EArgumentOutOfRangeException` for a negative length.
    void setLength(int length);
    /// The characters that there is room for.
    int getCapacity() const noexcept;
    /// Makes room. `EArgumentOutOfRangeException` for less than the length.
    void setCapacity(int capacity);
    System::WideChar getChars(int index) const;
    void setChars(int index, System::WideChar character);
    System::WideChar operator[](int index) const { return getChars(index); }

    TStringBuilder& Append(const System::UnicodeString& text) { return Append(text.AsView()); }
    TStringBuilder& Append(const System::WideChar* text) { return Append(System::Detail::SafeView(text)); }
    TStringBuilder& Append(const char* text) { return Append(System::UnicodeString(text)); }
    TStringBuilder& Append(std::u16string_view text);
    TStringBuilder& Append(System::WideChar character) { return Append(std::u16string_view(&character, 1)); }
    /// `count` times `character`; a negative `count` counts as 0.
    TStringBuilder& Append(System::WideChar character, int count);
    template <class T>
    requires(System::TextInteger<T> || std::floating_point<T>) TStringBuilder& Append(T value)
    {
        return Append(System::UnicodeString(value));
    }
    TStringBuilder& Append(bool) = delete;
    /// Appends the text, if any, and CR LF.
    TStringBuilder& AppendLine(const System::UnicodeString& text = {});

    /// Puts `text` in front of the character at `index`, which may be the length.
    TStringBuilder& Insert(int index, const System::UnicodeString& text);
    template <class T>
    requires(System::TextInteger<T> || std::floating_point<T>) TStringBuilder& Insert(int index, T value)
    {
        return Insert(index, System::UnicodeString(value));
    }
    /// Removes `count` characters, which must all be there.
    TStringBuilder& Remove(int index, int count);
    /// Replaces every `oldText` from left to right; an empty one is nowhere.
    TStringBuilder& Replace(const System::UnicodeString& oldText, const System::UnicodeString& newText);
    TStringBuilder& Replace(System::WideChar oldCharacter, System::WideChar newCharacter);
    /// The room stays.
    void Clear() noexcept { mText.clear(); }

    System::UnicodeString ToString() const { return System::UnicodeString(std::u16string_view(mText)); }
    /// `count` characters from `index` on, which must all be there.
    System::UnicodeString ToString(int index, int count) const;

private:
    std::u16string mText;
};

} // namespace Sysutils

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedText.h"
#include "platform/base/System_TextSearch.h"

#include <climits>
#include <compare>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace System
{

/// The arithmetic types that are no characters of a string: a number becomes text by an explicit conversion
/// only, as in `text + UnicodeString(66)`.
template <class T>
concept NoStringCharacter = std::is_arithmetic_v<T> && !std::same_as<T, char> && !std::same_as<T, WideChar>;

/// The texts of the standard library that have the units of a string of `Char`.
template <class T, class Char>
concept StandardTextOf =
    std::same_as<T, std::basic_string<Char>> || std::same_as<T, std::basic_string_view<Char>>;

namespace Detail
{

template <class Char>
std::basic_string_view<Char> SafeView(const Char* text)
{
    return text == nullptr ? std::basic_string_view<Char>() : std::basic_string_view<Char>(text);
}

template <class Char>
std::basic_string_view<Char> SafeView(const Char* text, int count)
{
    return text == nullptr || count <= 0
               ? std::basic_string_view<Char>()
               : std::basic_string_view<Char>(text, static_cast<std::size_t>(count));
}

/// Whether trimming takes the character away. Those of both widths are compared as unsigned: a code above 127
/// is no blank.
template <class Char>
constexpr bool IsUpToBlank(Char c)
{
    return static_cast<std::make_unsigned_t<Char>>(c) <= 32;
}

template <class Char>
constexpr std::basic_string_view<Char> WithoutBlanksInFront(std::basic_string_view<Char> text)
{
    while (!text.empty() && IsUpToBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

template <class Char>
constexpr std::basic_string_view<Char> WithoutBlanksBehind(std::basic_string_view<Char> text)
{
    while (!text.empty() && IsUpToBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

template <class Char>
constexpr std::basic_string_view<Char> WithoutBlanks(std::basic_string_view<Char> text)
{
    return WithoutBlanksBehind(WithoutBlanksInFront(text));
}

/// As `a.compare(b)`, but passes over what is alike at the front in words: the keys of a map often begin
/// alike.
template <class Char>
int CompareViews(std::basic_string_view<Char> a, std::basic_string_view<Char> b) noexcept
{
    using Word = std::uint64_t;
    constexpr std::size_t step = sizeof(Word) / sizeof(Char);
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    std::size_t at = 0;
    for (; common - at >= step; at += step) {
        Word first;
        Word second;
        std::memcpy(&first, a.data() + at, sizeof first);
        std::memcpy(&second, b.data() + at, sizeof second);
        if (first != second) {
            break;
        }
    }
    return a.substr(at).compare(b.substr(at));
}

} // namespace Detail

/// What both string widths can do. `Self` is the string type, which adds its conversions. Positions are
/// 1-based and 0 means not found. Strings are values: a copy shares the buffer until one of them changes.
///
///     UnicodeString line = u"Range=" + UnicodeString(66) + u' ';   // a number never appends itself
///     line.Trim().Pos(u"=");                                       // 6
///     for (const WideChar c : line) { ... }                        // also a range for algorithms
///     std::u16string_view view = line;                             // no copy
template <class Self, class Char>
class GString
{
public:
    using CharType = Char;
    using View = std::basic_string_view<Char>;

    /// Whether the length is 0.
    bool IsEmpty() const noexcept { return mText.IsEmpty(); }
    /// The count of `Char` units.
    int Length() const noexcept { return mText.Length(); }
    /// Never null; the empty text gives a pointer to a zero. Valid until the next change.
    const Char* c_str() const noexcept { return mText.c_str(); }
    const Char* data() const noexcept { return mText.c_str(); }
    View AsView() const noexcept { return mText.AsView(); }
    /// As `AsView`: valid until the next change.
    operator View() const noexcept { return AsView(); }

    // The characters as a range. It is for reading: a write goes by index, so that no copy sees it.

    const Char* begin() const noexcept { return c_str(); }
    const Char* end() const noexcept { return c_str() + Length(); }
    std::size_t size() const noexcept { return mText.Size(); }
    [[nodiscard]] bool empty() const noexcept { return IsEmpty(); }

    /// The character at the 1-based `index`; `Sysutils::ERangeError` outside 1 to `Length()`.
    const Char& operator[](int index) const
    {
        CheckIndex(index);
        return mText.c_str()[index - 1];
    }
    Char& operator[](int index)
    {
        CheckIndex(index);
        return mText.Unique()[index - 1];
    }

    /// The buffer for writing `Length()` characters, shared with no other string; null for the empty text.
    Char* UniqueData() { return mText.Unique(); }
    Self& Unique()
    {
        mText.Unique();
        return AsSelf();
    }

    /// Cuts, or lengthens with zero characters. A negative `length` counts as 0.
    Self& SetLength(int length)
    {
        mText.Resize(length < 0 ? 0 : static_cast<std::size_t>(length));
        return AsSelf();
    }

    /// Makes room for `length` characters in all; the text stays.
    void Reserve(int length)
    {
        if (length > 0) {
            mText.Reserve(static_cast<std::size_t>(length));
        }
    }

    /// Up to `count` characters from the 1-based `index`. An `index` below 1 counts as 1; behind the end, or
    /// with a `count` below 1, the result is empty.
    Self SubString(int index, int count = INT_MAX) const
    {
        const auto [start, length] = Clip(index, count);
        return OfPiece(AsView().substr(start, length));
    }

    /// Removes up to `count` characters from the 1-based `index`; nothing if `index` lies outside the text.
    Self& Delete(int index, int count)
    {
        if (index < 1) {
            return AsSelf();
        }
        const auto [start, length] = Clip(index, count);
        if (length == 0) {
            return AsSelf();
        }
        if (start == 0) {
            mText.CutFront(length);
            return AsSelf();
        }
        const auto rest = static_cast<std::size_t>(Length()) - start - length;
        Char* text = mText.Unique();
        Traits::move(text + start, text + start + length, rest);
        mText.Resize(start + rest);
        return AsSelf();
    }

    /// Puts `text` in front of the character at the 1-based `index`, which is held within 1 and
    /// `Length() + 1`.
    Self& Insert(const Self& text, int index)
    {
        const View old = AsView();
        const View added = text.AsView();
        const std::size_t at = index < 1          ? 0
                               : index > Length() ? old.size()
                                                  : static_cast<std::size_t>(index - 1);
        auto result = GSharedText<Char>::Uninitialized(old.size() + added.size());
        Char* const out = result.Unique();
        Traits::copy(out, old.data(), at);
        Traits::copy(out + at, added.data(), added.size());
        Traits::copy(out + at + added.size(), old.data() + at, old.size() - at);
        mText = std::move(result);
        return AsSelf();
    }

    /// The 1-based place of the first `text`, 0 if there is none; an empty `text` is nowhere.
    int Pos(const Self& text) const { return Find(text.AsView()); }
    int Pos(const Char* text) const { return Find(Detail::SafeView(text)); }
    int Pos(Char character) const { return static_cast<int>(AsView().find(character) + 1); }

    /// The 1-based place of the last character that `delimiters` holds, 0 if there is none.
    int LastDelimiter(const Self& delimiters) const
    {
        return static_cast<int>(AsView().find_last_of(delimiters.AsView()) + 1);
    }
    /// Whether the character at `index` is one of `delimiters`; false outside the text.
    bool IsDelimiter(const Self& delimiters, int index) const
    {
        return index >= 1 && index <= Length() && delimiters.Pos((*this)[index]) != 0;
    }

    /// The last character; `Sysutils::ERangeError` for the empty text.
    const Char* LastChar() const
    {
        CheckIndex(Length());
        return c_str() + Length() - 1;
    }

    /// Without the characters up to and including the blank (code 32) at both ends.
    Self Trim() const { return OfPiece(Detail::WithoutBlanks(AsView())); }
    Self TrimLeft() const { return OfPiece(Detail::WithoutBlanksInFront(AsView())); }
    Self TrimRight() const { return OfPiece(Detail::WithoutBlanksBehind(AsView())); }

    /// Negative, 0 or positive, by the ordinals of the units.
    int Compare(const Self& other) const { return Detail::CompareViews(AsView(), other.AsView()); }

    Self& operator+=(const Self& text) { return AppendText(text); }
    Self& operator+=(const Char* text)
    {
        mText.Append(Detail::SafeView(text));
        return AsSelf();
    }
    template <std::same_as<Char> Character>
    Self& operator+=(Character character)
    {
        mText.Append(character);
        return AsSelf();
    }
    /// The units as they are; the view may be a piece of this text.
    template <std::same_as<View> Text>
    Self& operator+=(Text text)
    {
        return Append(text);
    }
    template <NoStringCharacter Number>
    Self& operator+=(Number) = delete;
    /// Adds a text at the end, which may be a piece of this one.
    Self& Append(View text)
    {
        mText.Append(text);
        return AsSelf();
    }

    void swap(Self& other) noexcept { std::swap(mText, other.mText); }

    friend Self operator+(const Self& a, const Self& b) { return Joined(a.AsView(), b.AsView()); }
    friend Self operator+(Self&& a, const Self& b) { return std::move(a += b); }
    friend Self operator+(const Self& a, const Char* b) { return Joined(a.AsView(), Detail::SafeView(b)); }
    friend Self operator+(Self&& a, const Char* b) { return std::move(a += b); }
    friend Self operator+(const Char* a, const Self& b) { return Joined(Detail::SafeView(a), b.AsView()); }
    template <std::same_as<Char> Character>
    friend Self operator+(const Self& a, Character b)
    {
        return Joined(a.AsView(), View(&b, 1));
    }
    template <std::same_as<Char> Character>
    friend Self operator+(Self&& a, Character b)
    {
        return std::move(a += b);
    }
    template <std::same_as<Char> Character>
    friend Self operator+(Character a, const Self& b)
    {
        return Joined(View(&a, 1), b.AsView());
    }
    template <std::same_as<View> Text>
    friend Self operator+(const Self& a, Text b)
    {
        return Joined(a.AsView(), b);
    }
    template <std::same_as<View> Text>
    friend Self operator+(Self&& a, Text b)
    {
        return std::move(a.Append(b));
    }
    template <std::same_as<View> Text>
    friend Self operator+(Text a, const Self& b)
    {
        return Joined(a, b.AsView());
    }
    template <NoStringCharacter Number>
    friend Self operator+(const Self&, Number) = delete;
    template <NoStringCharacter Number>
    friend Self operator+(Number, const Self&) = delete;

    friend bool operator==(const Self& a, const Self& b) noexcept
    {
        return a.Length() == b.Length() && a.Compare(b) == 0;
    }
    friend std::strong_ordering operator<=>(const Self& a, const Self& b) noexcept
    {
        return a.Compare(b) <=> 0;
    }
    friend bool operator==(const Self& a, const Char* b) noexcept
    {
        return a.AsView() == Detail::SafeView(b);
    }
    friend std::strong_ordering operator<=>(const Self& a, const Char* b) noexcept
    {
        return a.AsView() <=> Detail::SafeView(b);
    }
    template <StandardTextOf<Char> Text>
    friend bool operator==(const Self& a, const Text& b) noexcept
    {
        return a.AsView() == View(b);
    }
    template <StandardTextOf<Char> Text>
    friend std::strong_ordering operator<=>(const Self& a, const Text& b) noexcept
    {
        return a.AsView() <=> View(b);
    }

    /// `count` times `character`; a negative `count` counts as 0.
    static Self StringOfChar(Char character, int count)
    {
        auto text = GSharedText<Char>::Uninitialized(count < 0 ? 0 : static_cast<std::size_t>(count));
        Traits::assign(text.Unique(), text.Size(), character);
        return Self(std::move(text));
    }

protected:
    GString() noexcept = default;
    explicit GString(View text) : mText(text) {}
    explicit GString(GSharedText<Char> text) noexcept : mText(std::move(text)) {}

private:
    using Traits = std::char_traits<Char>;

    Self& AsSelf() noexcept { return static_cast<Self&>(*this); }
    const Self& AsSelf() const noexcept { return static_cast<const Self&>(*this); }
    Self& AppendText(const Self& text)
    {
        if (IsEmpty()) {
            mText = text.mText;
        } else {
            mText.Append(text.AsView());
        }
        return AsSelf();
    }

    int Find(View text) const
    {
        return text.empty() ? 0 : static_cast<int>(Detail::FindText(AsView(), text) + 1);
    }

    static Self Joined(View a, View b)
    {
        auto text = GSharedText<Char>::Uninitialized(a.size() + b.size());
        Char* const out = text.Unique();
        Traits::copy(out, a.data(), a.size());
        Traits::copy(out + a.size(), b.data(), b.size());
        return Self(std::move(text));
    }

    void CheckIndex(int index) const
    {
        if (index < 1 || index > Length()) {
            ThrowStringRange(index, Length());
        }
    }

    struct TPiece
    {
        std::size_t start;
        std::size_t length;
    };

    TPiece Clip(int index, int count) const
    {
        const int start = index < 1 ? 0 : index - 1;
        if (start >= Length() || count <= 0) {
            return {0, 0};
        }
        const int rest = Length() - start;
        return {static_cast<std::size_t>(start), static_cast<std::size_t>(count < rest ? count : rest)};
    }

    /// `piece` is a piece of this text; all of it shares the buffer.
    Self OfPiece(View piece) const
    {
        return piece.size() == static_cast<std::size_t>(Length()) ? AsSelf() : Self(piece);
    }

    GSharedText<Char> mText;
};

} // namespace System

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_CodePage.h"
#include "platform/base/System_GString.h"

#include <compare>
#include <concepts>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

namespace System
{

class UnicodeString;

template <CodePage CP>
class AnsiStringT;

/// 8-bit text in the system's code page.
using AnsiString = AnsiStringT<DefaultSystemCodePage>;
using UTF8String = AnsiStringT<CP_UTF8>;
/// 8-bit text of any code page; a conversion from another 8-bit type keeps the bytes.
using RawByteString = AnsiStringT<CP_RAW>;

/// The texts of the standard library. Their bytes are UTF-8, and what is none there becomes U+FFFD; units are
/// taken as they are.
template <class T>
concept StandardText = std::same_as<T, std::string> || std::same_as<T, std::string_view> ||
    std::same_as<T, std::u16string> || std::same_as<T, std::u16string_view>;

/// A `std::filesystem::path`, told by its members: its header is too large for this one.
template <class T>
concept StandardPath = requires(const T& path)
{
    T::preferred_separator;
    {
        path.native()
        } -> std::same_as<const std::string&>;
    path.lexically_normal();
};

/// The integers that turn into text by their value: all but the character types and `bool`.
template <class T>
concept TextInteger =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

namespace Detail
{

TRS8_BTL_API GSharedText<WideChar> IntegerText(long long value);
TRS8_BTL_API GSharedText<WideChar> UnsignedText(unsigned long long value);
/// As `Sysutils::FloatToStr`.
TRS8_BTL_API GSharedText<WideChar> FloatText(long double value);
TRS8_BTL_API GSharedText<WideChar> FromUtf32(std::wstring_view text);
/// The name of a file of the host as text: each byte that can't stand as text is kept as the lone surrogate
/// U+DC00 + byte. That is every byte that is no part of valid UTF-8, a backslash, which would separate names,
/// and the colon of a name such as "a:b" at the begin, which would be read as a drive.
TRS8_BTL_API GSharedText<WideChar> FromHostName(std::string_view bytes);
TRS8_BTL_API GSharedText<WideChar> UpperText(std::u16string_view text);
TRS8_BTL_API GSharedText<WideChar> LowerText(std::u16string_view text);
TRS8_BTL_API GSharedText<char> UpperText(CodePage codePage, std::string_view bytes);
TRS8_BTL_API GSharedText<char> LowerText(CodePage codePage, std::string_view bytes);
TRS8_BTL_API int CompareIgnoreCase(std::u16string_view a, std::u16string_view b);

TRS8_BTL_API std::ostream& WriteBytes(std::ostream& stream, std::string_view bytes);

} // namespace Detail

/// Wide text in UTF-16. Narrow text enters as text of the system's code page.
///
///     UnicodeString text = u"5 \u00B5m";
///     const AnsiString narrow = text;                             // Windows-1252
///     const std::string utf8 = ToUtf8(text);
///     text = FromUtf8(utf8) + u' ' + UnicodeString(0.5);
class UnicodeString : public GString<UnicodeString, WideChar>
{
    using Base = GString<UnicodeString, WideChar>;

public:
    UnicodeString() noexcept = default;
    explicit UnicodeString(GSharedText<WideChar> text) noexcept : Base(std::move(text)) {}
    /// A copy of the units, so that every function of a wide text takes a view too, as `Split` gives them.
    UnicodeString(std::u16string_view text) : Base(text) {}
    /// A null pointer gives the empty text.
    UnicodeString(const WideChar* text) : Base(Detail::SafeView(text)) {}
    UnicodeString(const WideChar* text, int count) : Base(Detail::SafeView(text, count)) {}
    template <std::same_as<WideChar> Character>
    UnicodeString(Character character) : Base(View(&character, 1))
    {
    }
    UnicodeString(const char* text) : Base(DecodeText(DefaultSystemCodePage, Detail::SafeView(text))) {}
    UnicodeString(const char* text, int count)
        : Base(DecodeText(DefaultSystemCodePage, Detail::SafeView(text, count)))
    {
    }
    template <std::same_as<char> Character>
    UnicodeString(Character character) : Base(DecodeText(DefaultSystemCodePage, {&character, 1}))
    {
    }
    /// For callers that hold the host's 32-bit wide text.
    UnicodeString(const wchar_t* text) : Base(Detail::FromUtf32(Detail::SafeView(text))) {}
    template <CodePage CP>
    UnicodeString(const AnsiStringT<CP>& text) : Base(DecodeText(CP, text.AsView()))
    {
    }
    /// The path of a file, as every function that takes a file name reads it: no byte of it is lost.
    template <StandardPath Path>
    UnicodeString(const Path& path) : Base(Detail::FromHostName(path.native()))
    {
    }

    template <TextInteger T>
    explicit UnicodeString(T value) : Base(FromInteger(value))
    {
    }
    /// As `Sysutils::FloatToStr`.
    template <std::floating_point T>
    explicit UnicodeString(T value) : Base(Detail::FloatText(value))
    {
    }

    using Base::operator+=;
    UnicodeString& operator+=(const char* text) { return *this += UnicodeString(text); }
    template <std::same_as<char> Character>
    UnicodeString& operator+=(Character character)
    {
        return *this += UnicodeString(character);
    }

    /// By the rules of Unicode, without regard to a locale.
    UnicodeString UpperCase() const { return UnicodeString(Detail::UpperText(AsView())); }
    UnicodeString LowerCase() const { return UnicodeString(Detail::LowerText(AsView())); }
    /// Negative, 0 or positive; case is folded.
    int CompareIC(const UnicodeString& other) const
    {
        return Detail::CompareIgnoreCase(AsView(), other.AsView());
    }

private:
    template <TextInteger T>
    static GSharedText<WideChar> FromInteger(T value)
    {
        if constexpr (std::is_signed_v<T>) {
            return Detail::IntegerText(value);
        } else {
            return Detail::UnsignedText(value);
        }
    }
};

/// 8-bit text in the code page `CP`. Wide text is converted on the way in; what the code page lacks becomes
/// `?`.
template <CodePage CP>
class AnsiStringT : public GString<AnsiStringT<CP>, char>
{
    using Base = GString<AnsiStringT<CP>, char>;
    static constexpr CodePage TextCodePage = CP == CP_RAW ? DefaultSystemCodePage : CP;

public:
    AnsiStringT() noexcept = default;
    explicit AnsiStringT(GSharedText<char> text) noexcept : Base(std::move(text)) {}
    explicit AnsiStringT(std::string_view bytes) : Base(bytes) {}
    /// A null pointer gives the empty text.
    AnsiStringT(const char* text) : Base(Detail::SafeView(text)) {}
    AnsiStringT(const char* text, int count) : Base(Detail::SafeView(text, count)) {}
    /// Only for a `char` itself: a wide character is text of the wide type.
    template <std::same_as<char> Character>
    AnsiStringT(Character character) : Base(std::string_view(&character, 1))
    {
    }
    AnsiStringT(const UnicodeString& text) : Base(EncodeText(TextCodePage, text.AsView())) {}
    explicit AnsiStringT(std::u16string_view text) : Base(EncodeText(TextCodePage, text)) {}
    explicit AnsiStringT(const WideChar* text) : AnsiStringT(Detail::SafeView(text)) {}
    template <CodePage Other>
    requires(Other != CP) AnsiStringT(const AnsiStringT<Other>& text) : Base(Recoded(text)) {}

    template <class T>
    requires(TextInteger<T> || std::floating_point<T>) explicit AnsiStringT(T value)
        : AnsiStringT(UnicodeString(value))
    {
    }

    /// As of `UnicodeString`; a letter whose other case the code page lacks, such as the micro sign, stays.
    AnsiStringT UpperCase() const { return AnsiStringT(Detail::UpperText(TextCodePage, Base::AsView())); }
    AnsiStringT LowerCase() const { return AnsiStringT(Detail::LowerText(TextCodePage, Base::AsView())); }
    /// As of `UnicodeString`, by way of UTF-16.
    int CompareIC(const AnsiStringT& other) const
    {
        return UnicodeString(*this).CompareIC(UnicodeString(other));
    }

private:
    template <CodePage Other>
    static GSharedText<char> Recoded(const AnsiStringT<Other>& text)
    {
        if constexpr (CP == CP_RAW || Other == CP_RAW) {
            return GSharedText<char>(text.AsView());
        } else {
            return EncodeText(TextCodePage, UnicodeString(text).AsView());
        }
    }
};

// Wide and narrow text mix as wide text, which loses nothing.

template <CodePage CP>
bool operator==(const UnicodeString& a, const AnsiStringT<CP>& b)
{
    return a == UnicodeString(b);
}
template <CodePage CP>
std::strong_ordering operator<=>(const UnicodeString& a, const AnsiStringT<CP>& b)
{
    return a <=> UnicodeString(b);
}
template <CodePage CP>
UnicodeString operator+(const UnicodeString& a, const AnsiStringT<CP>& b)
{
    return a + UnicodeString(b);
}
template <CodePage CP>
UnicodeString operator+(UnicodeString&& a, const AnsiStringT<CP>& b)
{
    return std::move(a += UnicodeString(b));
}
template <CodePage CP>
UnicodeString operator+(const AnsiStringT<CP>& a, const UnicodeString& b)
{
    return UnicodeString(a) + b;
}
template <CodePage CP>
UnicodeString operator+(AnsiStringT<CP>&& a, const UnicodeString& b)
{
    return UnicodeString(a) + b;
}
inline bool operator==(const UnicodeString& a, const char* b) noexcept
{
    return CompareWithAnsi(a.AsView(), Detail::SafeView(b)) == 0;
}
inline std::strong_ordering operator<=>(const UnicodeString& a, const char* b) noexcept
{
    return CompareWithAnsi(a.AsView(), Detail::SafeView(b)) <=> 0;
}
inline UnicodeString operator+(const UnicodeString& a, const char* b)
{
    return a + UnicodeString(b);
}
inline UnicodeString operator+(UnicodeString&& a, const char* b)
{
    return std::move(a += b);
}
inline UnicodeString operator+(const char* a, const UnicodeString& b)
{
    return UnicodeString(a) + b;
}

/// The UTF-8 form, as the host and other libraries want it; a lone surrogate becomes U+FFFD.
TRS8_BTL_API std::string ToUtf8(std::u16string_view text);
inline std::string ToUtf8(const UnicodeString& text)
{
    return ToUtf8(text.AsView());
}
inline std::string ToUtf8(const WideChar* text)
{
    return ToUtf8(Detail::SafeView(text));
}
/// A sequence that is no UTF-8 becomes U+FFFD.
TRS8_BTL_API UnicodeString FromUtf8(std::string_view bytes);

/// What becomes wide text: all that is one by itself, and the texts of the standard library.
template <class T>
concept TextSource = StandardText<T> || std::convertible_to<const T&, UnicodeString>;

/// The wide text of any `TextSource`.
template <TextSource T>
[[nodiscard]] UnicodeString ToUnicodeString(const T& text)
{
    if constexpr (std::same_as<T, std::string> || std::same_as<T, std::string_view>) {
        return FromUtf8(text);
    } else if constexpr (StandardText<T>) {
        return UnicodeString(std::u16string_view(text));
    } else {
        return text;
    }
}

/// Writes UTF-8, which the terminals of the host read.
TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const UnicodeString& text);
/// Writes the bytes as they are.
template <CodePage CP>
std::ostream& operator<<(std::ostream& stream, const AnsiStringT<CP>& text)
{
    return Detail::WriteBytes(stream, text.AsView());
}

} // namespace System

template <>
struct std::hash<System::UnicodeString>
{
    std::size_t operator()(const System::UnicodeString& text) const noexcept
    {
        return std::hash<std::u16string_view>()(text.AsView());
    }
};

template <System::CodePage CP>
struct std::hash<System::AnsiStringT<CP>>
{
    std::size_t operator()(const System::AnsiStringT<CP>& text) const noexcept
    {
        return std::hash<std::string_view>()(text.AsView());
    }
};

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace BTL
{

// Taking a text apart at each delimiter. Empty fields stay: n delimiters give n + 1 fields, and so an empty
// text one empty field. The time is linear in the length of the text.
//
//     for (const std::u16string_view field : BTL::Split(line, u';')) { sum += BTL::ToDouble(field); }
//     const std::vector<UnicodeString> names = BTL::SplitToVector(u"a, b, c", u", ");
//     const auto fields = BTL::Split(line, u';');
//     const auto count = std::distance(fields.begin(), fields.end());

namespace Detail
{

template <class Char>
using StringFor =
    std::conditional_t<std::same_as<Char, System::WideChar>, System::UnicodeString, System::AnsiString>;

/// A text of the library, which a view can hold for nothing.
template <class T>
concept SharedString = requires(const T& text)
{
    typename T::CharType;
    {
        text.AsView()
        } -> std::same_as<std::basic_string_view<typename T::CharType>>;
};

template <class T>
concept WideSplitText = std::convertible_to<T, std::u16string_view>;
template <class T>
concept NarrowSplitText = std::convertible_to<T, std::string_view>;

/// What a view keeps of its text: a string of the library as a copy, which shares the buffer; a temporary of
/// the standard library as itself; all else as a view of what stays the caller's.
template <class T>
struct GSplitText
{
    using Char = std::conditional_t<WideSplitText<T>, System::WideChar, char>;
    using Text = std::basic_string_view<Char>;
};
template <class T>
requires SharedString<std::remove_cvref_t<T>>
struct GSplitText<T>
{
    using Text = std::remove_cvref_t<T>;
    using Char = typename Text::CharType;
};
template <class C>
struct GSplitText<std::basic_string<C>>
{
    using Text = std::basic_string<C>;
    using Char = C;
};

template <class T>
concept SplitText = SharedString<std::remove_cvref_t<T>> || WideSplitText<T> || NarrowSplitText<T>;

/// A character of the width of `T`, or one of the system's code page.
template <class D, class T>
concept DelimCharFor = std::same_as<D, typename GSplitText<T>::Char> || std::same_as<D, char>;

/// A text that becomes one of the width of `T`.
template <class D, class T>
concept DelimTextFor =
    !std::is_arithmetic_v<D> && std::constructible_from<StringFor<typename GSplitText<T>::Char>, const D&>;

template <class Char>
std::basic_string_view<Char> ViewOf(std::basic_string_view<Char> text) noexcept
{
    return text;
}
template <class Char>
std::basic_string_view<Char> ViewOf(const std::basic_string<Char>& text) noexcept
{
    return text;
}
template <SharedString T>
std::basic_string_view<typename T::CharType> ViewOf(const T& text) noexcept
{
    return text.AsView();
}

} // namespace Detail

/// The fields of a text as views, each found when it is asked for. The fields are good as long as this and,
/// if it was made of anything but a string of the library or a temporary, the text. Iterators belong to the
/// object that they come from.
template <class Text, class Delim>
class GSplitView
{
public:
    using Char = std::remove_cvref_t<decltype(Detail::ViewOf(std::declval<const Text&>())[0])>;
    using View = std::basic_string_view<Char>;

    /// Walks over the fields; each one is found when it is reached.
    class iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = View;
        using difference_type = std::ptrdiff_t;
        using pointer = const View*;
        using reference = const View&;

        iterator() = default;

        reference operator*() const noexcept { return mField; }
        pointer operator->() const noexcept { return &mField; }
        iterator& operator++()
        {
            const Char* const end = mField.data() + mField.size();
            if (end == mEnd) {
                *this = iterator();
            } else {
                TakeField(end + mOwner->DelimSize());
            }
            return *this;
        }
        iterator operator++(int)
        {
            iterator result = *this;
            ++*this;
            return result;
        }

        friend bool operator==(const iterator& a, const iterator& b) noexcept
        {
            return a.mOwner == b.mOwner && a.mField.data() == b.mField.data();
        }

    private:
        friend GSplitView;

        iterator(const GSplitView* owner, View text) : mOwner(owner), mEnd(text.data() + text.size())
        {
            TakeField(text.data());
        }
        void TakeField(const Char* begin)
        {
            const View rest(begin, static_cast<std::size_t>(mEnd - begin));
            mField = rest.substr(0, mOwner->FindDelim(rest));
        }

        /// Null behind the last field.
        const GSplitView* mOwner = nullptr;
        const Char* mEnd = nullptr;
        View mField;
    };
    using const_iterator = iterator;

    GSplitView(Text text, Delim delim) : mText(std::move(text)), mDelim(std::move(delim)) {}

    iterator begin() const { return iterator(this, Detail::ViewOf(mText)); }
    iterator end() const { return iterator(); }
    /// A text has at least one field.
    static constexpr bool empty() noexcept { return false; }

private:
    static constexpr bool IsCharDelim = std::same_as<Delim, Char>;

    std::size_t DelimSize() const noexcept
    {
        if constexpr (IsCharDelim) {
            return 1;
        } else {
            return mDelim.AsView().size();
        }
    }
    /// `npos` if there is none. An empty delimiter is nowhere.
    std::size_t FindDelim(View rest) const noexcept
    {
        if constexpr (IsCharDelim) {
            return rest.find(mDelim);
        } else {
            return mDelim.IsEmpty() ? View::npos : System::Detail::FindText(rest, mDelim.AsView());
        }
    }

    Text mText;
    Delim mDelim;
};

/// The fields of `text` between the characters `delim`. `text` is any string or view of 8-bit or 16-bit text,
/// or a literal. A string of the library is held by the result, so that a temporary is safe.
template <Detail::SplitText T, Detail::DelimCharFor<T> D>
[[nodiscard]] auto Split(T&& text, D delim)
{
    using Text = typename Detail::GSplitText<T>::Text;
    using Char = typename Detail::GSplitText<T>::Char;
    if constexpr (std::same_as<D, Char>) {
        return GSplitView<Text, Char>(Text(std::forward<T>(text)), delim);
    } else {
        return GSplitView<Text, Char>(Text(std::forward<T>(text)), System::UnicodeString(delim)[1]);
    }
}
/// As `Split` at a character, but at each text `delim`, from left to right; at none if it is empty. The
/// result keeps a copy of `delim`.
template <Detail::SplitText T, Detail::DelimTextFor<T> D>
[[nodiscard]] auto Split(T&& text, const D& delim)
{
    using Text = typename Detail::GSplitText<T>::Text;
    using Delim = Detail::StringFor<typename Detail::GSplitText<T>::Char>;
    return GSplitView<Text, Delim>(Text(std::forward<T>(text)), Delim(delim));
}

/// The fields of `Split` as strings of their own: `UnicodeString` for 16-bit text, `AnsiString` for 8-bit
/// text that is no string of the library, and the type of `text` for one that is.
template <Detail::SplitText T, class Delim>
[[nodiscard]] auto SplitToVector(T&& text, const Delim& delim)
{
    using Source = Detail::GSplitText<T>;
    using Result =
        typename std::conditional_t<Detail::SharedString<typename Source::Text>,
                                    std::type_identity<typename Source::Text>,
                                    std::type_identity<Detail::StringFor<typename Source::Char>>>::type;
    std::vector<Result> result;
    for (const auto field : Split(std::forward<T>(text), delim)) {
        result.emplace_back(field);
    }
    return result;
}

} // namespace BTL

// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_SimpleString.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_Links.h"
#include "foundation/UTL_STR_Compare.h"
#include "foundation/UTL_STR_Numbers.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace UTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr CFaultPlace WritesOutside{"UTL_STR_SimpleString.cpp", 363};
constexpr CFaultPlace ReadsOutside{"UTL_STR_SimpleString.cpp", 369};

/// What a write outside of a string goes to.
thread_local char outside = 0;

/// The array of a fresh string, for the caller to own.
char* NewText(std::string_view a, std::string_view b = {})
{
    // Two characters at least, which begin at an even address: see `CGrownText`.
    auto* const result = new char[std::max<std::size_t>(a.size() + b.size() + 1, 2)];
    *std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), result)) = 0;
    return result;
}

/// The array of a text that grows by `+=` again and again: its length and room stand in front of the text, so
/// that the next piece is neither searched for its place nor moves all that was there. Texts that don't grow,
/// and short ones, do without. An array of more than one character begins at an even address, and a grown
/// text at an odd one, which tells the two apart.
class CGrownText
{
public:
    explicit CGrownText(char* text) : mText(text) {}

    /// The array of a fresh text with room for `room` characters, for the caller to own.
    static char* New(std::string_view a, std::string_view b, std::size_t room)
    {
        char* const array = new char[Front + room + 1];
        const CGrownText result(array + Front);
        result.Store({a.size() + b.size(), room});
        *std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), result.mText)) = 0;
        return result.mText;
    }
    void Delete() const { delete[](mText - Front); }

    static bool IsGrown(const char* text) { return reinterpret_cast<std::uintptr_t>(text) % 2 != 0; }

    std::size_t Length() const
    {
        const std::size_t length = Load().length;
        return length == Unknown ? std::strlen(mText) : length;
    }
    bool HasRoomFor(std::size_t length) const { return length <= Load().room; }
    void SetLength(std::size_t length) const { Store({length, Load().room}); }
    /// A writer that may put a zero anywhere is at work.
    void ForgetLength() const { SetLength(Unknown); }

private:
    static constexpr std::size_t Unknown = static_cast<std::size_t>(-1);

    struct TSizes
    {
        std::size_t length;
        std::size_t room;
    };
    static constexpr std::size_t Front = sizeof(TSizes) + 1;
    static_assert(Front % 2 != 0);

    TSizes Load() const
    {
        TSizes sizes;
        std::memcpy(&sizes, mText - Front, sizeof sizes);
        return sizes;
    }
    void Store(TSizes sizes) const { std::memcpy(mText - Front, &sizes, sizeof sizes); }

    char* mText;
};

/// Shorter texts are cheap to copy.
constexpr std::size_t MinGrownLength = 256;

std::size_t LengthOf(char* text)
{
    if (text == nullptr) {
        return 0;
    }
    return CGrownText::IsGrown(text) ? CGrownText(text).Length() : std::strlen(text);
}

/// The array of both texts for a string that held `old`. What grew before will grow again and gets room.
char* NewJoinedText(const char* old, std::string_view a, std::string_view b)
{
    const std::size_t length = a.size() + b.size();
    if (length < MinGrownLength) {
        return NewText(a, b);
    }
    return CGrownText::New(a, b, CGrownText::IsGrown(old) ? length + length / 4 : length);
}

/// What stands in `text` from `offset` on.
template <class Char>
std::basic_string_view<Char> Tail(const Char* text, int offset)
{
    const auto view = System::Detail::SafeView(text);
    return view.substr(std::min(static_cast<std::size_t>(std::max(offset, 0)), view.size()));
}

/// The narrow form of `text` that keeps a null pointer null.
class CNarrowText
{
public:
    explicit CNarrowText(const WideChar* text) : mText(text), mIsNull(text == nullptr) {}

    const char* Get() const { return mIsNull ? nullptr : mText.c_str(); }

private:
    AnsiString mText;
    bool mIsNull;
};

} // namespace

static_assert(sizeof(CSimpleString) == sizeof(char*));

CSimpleString::CSimpleString(const CSimpleString& other)
{
    *this = other.mText;
}

CSimpleString::CSimpleString(CSimpleString&& other) noexcept : mText(std::exchange(other.mText, nullptr)) {}

CSimpleString::CSimpleString(const char* text)
{
    *this = text;
}

CSimpleString::CSimpleString(const WideChar* text)
{
    *this = text;
}

CSimpleString::CSimpleString(const AnsiString& text)
{
    *this = text;
}

CSimpleString::CSimpleString(const UnicodeString& text)
{
    *this = text;
}

CSimpleString::CSimpleString(const CSimpleString& text, int offset)
{
    _assign(text, offset);
}

CSimpleString::CSimpleString(const char* text, int offset)
{
    _assign(text, offset);
}

CSimpleString::CSimpleString(const WideChar* text, int offset)
{
    _assign(text, offset);
}

CSimpleString& CSimpleString::operator=(CSimpleString&& other) noexcept
{
    std::swap(mText, other.mText);
    return *this;
}

CSimpleString& CSimpleString::operator=(std::nullptr_t) noexcept
{
    clear();
    return *this;
}

CSimpleString& CSimpleString::operator=(const char* text)
{
    if (text != mText) {
        char* const fresh = text == nullptr ? nullptr : NewText(text);
        Free(std::exchange(mText, fresh));
    }
    return *this;
}

CSimpleString& CSimpleString::operator=(const WideChar* text)
{
    return *this = CNarrowText(text).Get();
}

void CSimpleString::_assign(const char* text, int offset)
{
    const std::string_view tail = Tail(text, offset);
    char* const fresh = tail.empty() ? nullptr : NewText(tail);
    Free(std::exchange(mText, fresh));
}

void CSimpleString::_assign(const WideChar* text, int offset)
{
    _assign(AnsiString(Tail(text, offset)).c_str(), 0);
}

CSimpleString& CSimpleString::operator+=(const char* text)
{
    if (text == nullptr) {
        return *this;
    }
    const std::string_view added = text;
    const std::size_t length = LengthOf(mText);
    if (CGrownText::IsGrown(mText) && CGrownText(mText).HasRoomFor(length + added.size())) {
        *std::copy(added.begin(), added.end(), mText + length) = 0;
        CGrownText(mText).SetLength(length + added.size());
    } else {
        Free(std::exchange(mText, NewJoinedText(mText, {c_str(), length}, added)));
    }
    return *this;
}

CSimpleString& CSimpleString::operator+=(const WideChar* text)
{
    return *this += CNarrowText(text).Get();
}

CSimpleString CSimpleString::operator+(const char* text) const
{
    CSimpleString result(*this);
    result += text;
    return result;
}

CSimpleString CSimpleString::operator+(const WideChar* text) const
{
    return *this + CNarrowText(text).Get();
}

bool CSimpleString::operator==(const char* text) const
{
    return IsEqual(mText, text);
}

bool CSimpleString::operator==(const WideChar* text) const
{
    return *this == CNarrowText(text).Get();
}

bool CSimpleString::operator<(const char* text) const
{
    return IsLess(mText, text);
}

bool CSimpleString::operator<(const WideChar* text) const
{
    return *this < CNarrowText(text).Get();
}

char& CSimpleString::operator[](int index)
{
    if (!IsInside(index, WritesOutside)) {
        outside = 0;
        // The analyzer takes a thread's variable for null.
        return outside; // NOLINT(clang-analyzer-core.uninitialized.UndefReturn)
    }
    if (CGrownText::IsGrown(mText)) {
        CGrownText(mText).ForgetLength();
    }
    return mText[index];
}

const char& CSimpleString::operator[](int index) const
{
    static constexpr char zero = 0;
    // Nothing is inside of null, which the analyzer doesn't see.
    // NOLINTNEXTLINE(clang-analyzer-core.uninitialized.UndefReturn)
    return IsInside(index, ReadsOutside) ? mText[index] : zero;
}

bool CSimpleString::IsInside(int index, const CFaultPlace& place) const
{
    const bool isInside = index >= 0 && index < length();
    if (!isInside) {
        THROW_XAssert(place);
    }
    return isInside;
}

int CSimpleString::length() const noexcept
{
    return static_cast<int>(LengthOf(mText));
}

void CSimpleString::Free(char* text) noexcept
{
    if (CGrownText::IsGrown(text)) {
        CGrownText(text).Delete();
    } else {
        delete[] text;
    }
}

void CSimpleString::clear() noexcept
{
    Free(std::exchange(mText, nullptr));
}

bool CSimpleString::GetLong(long& value) const
{
    return UTL::GetLong(mText, value);
}

bool CSimpleString::GetDouble(double& value) const
{
    return UTL::GetDouble(mText, value);
}

int CSimpleString::ToIntDef(int defaultValue) const
{
    return Sysutils::StrToIntDef(UnicodeString(c_str()), defaultValue);
}

double CSimpleString::ToDoubleDef(double defaultValue) const
{
    double value = defaultValue;
    const auto toDouble = Links().Narrow.ToDouble;
    const bool isNumber = toDouble != nullptr ? toDouble(c_str(), value) : UTL::GetDouble(mText, value);
    return isNumber ? value : defaultValue;
}

void CSimpleString::AssignInteger(System::Int64 value)
{
    *this = std::to_string(value).c_str();
}

void CSimpleString::AssignUnsigned(System::UInt64 value)
{
    *this = std::to_string(value).c_str();
}

void CSimpleString::AssignFloat(double value)
{
    *this = Sysutils::FloatToStr(value);
}

void CSimpleString::AssignFloat(long double value)
{
    *this = Sysutils::FloatToStr(value);
}

std::ostream& operator<<(std::ostream& stream, const CSimpleString& text)
{
    return stream << text.c_str();
}

} // namespace UTL

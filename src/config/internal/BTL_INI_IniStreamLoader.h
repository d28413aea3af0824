// SPDX-License-Identifier: MIT
#pragma once

#include "config/internal/BTL_INI_IniStreamSection.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace BTL
{

namespace Detail
{

inline System::UnicodeString FromCodePage(std::string_view bytes)
{
    return System::UnicodeString(System::DecodeText(System::DefaultSystemCodePage, bytes));
}

/// Without the double quotes around it.
inline std::u16string_view Unquoted(std::u16string_view value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == u'"' && value.back() == u'"';
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

/// A position for a closure, which knows no larger ones.
inline int ToldPlace(System::Int64 position)
{
    return static_cast<int>(std::min(position, System::Int64{std::numeric_limits<int>::max()}));
}

/// Decodes short names so that those that come again, as the keys of alike sections do, share one buffer.
class CNameCache
{
public:
    System::UnicodeString Decoded(std::string_view bytes)
    {
        constexpr std::size_t longest = 32;
        if (bytes.size() > longest) {
            return FromCodePage(bytes);
        }
        System::UnicodeString& text = mTexts[std::hash<std::string_view>()(bytes) % mTexts.size()];
        if (!IsAsciiOf(text, bytes)) {
            text = FromCodePage(bytes);
        }
        return text;
    }

private:
    static bool IsAsciiOf(const System::UnicodeString& text, std::string_view bytes)
    {
        const auto isSame = [](System::WideChar c, char byte) {
            return c < 0x80 && c == static_cast<unsigned char>(byte);
        };
        return std::equal(text.begin(), text.end(), bytes.begin(), bytes.end(), isSame);
    }

    std::array<System::UnicodeString, 1024> mTexts;
};

/// Decodes one text after the other, mostly without a block of memory for each.
class CTextDecoder
{
public:
    explicit CTextDecoder(System::CodePage codePage) : mCodePage(codePage) {}

    /// Until the next one.
    std::u16string_view Decoded(std::string_view bytes)
    {
        const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
        if (std::all_of(bytes.begin(), bytes.end(), isAscii)) {
            mAscii.assign(bytes.begin(), bytes.end());
            return mAscii;
        }
        mOther = System::UnicodeString(System::DecodeText(mCodePage, bytes));
        return mOther.AsView();
    }

private:
    System::CodePage mCodePage;
    std::u16string mAscii;
    System::UnicodeString mOther;
};

} // namespace Detail

/// Takes what is loaded into the store and tells the closures. Those may do with the store what they like, so
/// the section is sought again after each.
class CIniStreamImp::CLoader
{
public:
    CLoader(CIniStreamImp& store, Classes::TStream& stream, EValues values)
        : mStore(store),
          mStream(stream),
          mValues(values == EValues::Utf8 ? System::CP_UTF8 : System::DefaultSystemCodePage)
    {
    }

    void OnSection(std::string_view name)
    {
        mName = Detail::FromCodePage(name);
        if (mStore.mOnLoadSection) {
            mStore.mOnLoadSection(System::AnsiString(name), Detail::ToldPlace(mStream.getPosition()));
        }
        mSection = &mStore.NeedSection(mName);
    }

    void OnKey(std::string_view keyBytes, std::string_view valueBytes)
    {
        using System::Detail::WithoutBlanks;
        System::UnicodeString key = mKeys.Decoded(WithoutBlanks(keyBytes));
        const std::u16string_view value = Detail::Unquoted(mValues.Decoded(WithoutBlanks(valueBytes)));
        if (!mStore.mOnLoadKey) {
            mSection->Set(std::move(key), value);
            return;
        }
        mStore.NeedSection(mName).Set(key, value);
        mStore.mOnLoadKey(System::AnsiString(key), System::AnsiString(value),
                          Detail::ToldPlace(mStream.getPosition()));
    }

private:
    CIniStreamImp& mStore;
    Classes::TStream& mStream;
    System::UnicodeString mName;
    CSection* mSection = nullptr;
    Detail::CNameCache mKeys;
    Detail::CTextDecoder mValues;
};

} // namespace BTL

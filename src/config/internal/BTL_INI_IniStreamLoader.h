// SPDX-License-Identifier: MIT
#pragma once

#include "config/internal/BTL_INI_IniStreamSection.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "text/editing/BTL_STR_Cut.h"

#include <algorithm>
#include <array>
#include <limits>
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

/// Without the quotes around it.
inline System::UnicodeString Unquoted(System::UnicodeString value)
{
    const bool isQuoted = value.AsView().starts_with(u'"') && IsQuotedStr(value, u'"');
    return isQuoted ? ExtractQuotedStr(value, u'"') : value;
}

/// A position for a closure, which knows no larger ones.
inline int ToldPlace(System::Int64 position)
{
    return static_cast<int>(std::min(position, System::Int64{std::numeric_limits<int>::max()}));
}

/// Decodes short texts so that those that come again, as the keys of alike sections do, share one buffer.
class CTextCache
{
public:
    System::UnicodeString Decoded(System::CodePage codePage, std::string_view bytes)
    {
        constexpr std::size_t longest = 32;
        if (bytes.size() > longest) {
            return System::UnicodeString(System::DecodeText(codePage, bytes));
        }
        System::UnicodeString& text = mTexts[std::hash<std::string_view>()(bytes) % mTexts.size()];
        if (!IsAsciiOf(text, bytes)) {
            text = System::UnicodeString(System::DecodeText(codePage, bytes));
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

} // namespace Detail

/// Takes what is loaded into the store and tells the closures. Those may do with the store what they like, so
/// the section is sought again after each.
class CIniStreamImp::CLoader
{
public:
    CLoader(CIniStreamImp& store, Classes::TStream& stream, EValues values)
        : mStore(store),
          mStream(stream),
          mCodePage(values == EValues::Utf8 ? System::CP_UTF8 : System::DefaultSystemCodePage)
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
        System::UnicodeString key = mKeys.Decoded(System::DefaultSystemCodePage, WithoutBlanks(keyBytes));
        System::UnicodeString value = Detail::Unquoted(mValues.Decoded(mCodePage, WithoutBlanks(valueBytes)));
        if (!mStore.mOnLoadKey) {
            mSection->Set(std::move(key), std::move(value));
            return;
        }
        mStore.NeedSection(mName).Set(key, value);
        mStore.mOnLoadKey(System::AnsiString(key), System::AnsiString(value),
                          Detail::ToldPlace(mStream.getPosition()));
    }

private:
    CIniStreamImp& mStore;
    Classes::TStream& mStream;
    System::CodePage mCodePage;
    System::UnicodeString mName;
    CSection* mSection = nullptr;
    Detail::CTextCache mKeys;
    Detail::CTextCache mValues;
};

} // namespace BTL

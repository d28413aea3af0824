// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniStreamImp.h"
#include "config/internal/BTL_INI_IniText.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace BTL
{

namespace Detail
{

/// Whether the text comes back from the code page as it is.
inline bool IsInCodePage(const System::UnicodeString& text)
{
    const auto isAscii = [](System::WideChar c) { return c < 0x80; };
    return std::all_of(text.begin(), text.end(), isAscii) ||
           System::UnicodeString(System::AnsiString(text)) == text;
}

inline bool IsSavableHeadline(const System::UnicodeString& headline)
{
    return !headline.AsView().starts_with(u'[') && headline.Pos(u'\r') == 0;
}

inline bool IsSavableSection(const System::UnicodeString& name)
{
    return name.Pos(u']') == 0 && IsInCodePage(name);
}

inline bool IsSavableEntry(const System::UnicodeString& key, std::u16string_view value)
{
    if (key.Pos(u'=') != 0 || value.find(u'\r') != std::u16string_view::npos || !IsInCodePage(key)) {
        return false;
    }
    const System::WideChar first = key.IsEmpty() ? u'=' : key[1];
    if (first == u'[' || first == u';') {
        return false;
    }
    // A line that doesn't load is passed over up to its line feed, and no further.
    const bool isOneLine = key.Pos(u'\n') == 0 && value.find(u'\n') == std::u16string_view::npos;
    return isOneLine || BeginsKey(first < 0x80 ? static_cast<char>(first) : '\x80');
}

} // namespace Detail

/// Gathers the text that is saved. A closure finds in the stream all that stands before.
class CIniStreamImp::CSaver
{
public:
    explicit CSaver(Classes::TStream& stream) : mStream(stream) {}

    void Put(std::string_view bytes) { mText.append(bytes); }
    void Put(std::u16string_view text, EValues values)
    {
        values == EValues::Utf8 ? Put(System::ToUtf8(text)) : Put(System::AnsiString(text).AsView());
    }
    void PutEntry(const System::UnicodeString& key, std::u16string_view value, EValues values)
    {
        Put(key.AsView(), EValues::CodePage);
        Put("=");
        Put(value, values);
        Put("\r\n");
    }
    /// Empties the stream, unless that was done, and writes what is gathered.
    void Flush()
    {
        if (!std::exchange(mBegun, true)) {
            mStream.setSize(0);
            mStream.setPosition(0);
        }
        mStream.WriteBuffer(mText.data(), static_cast<System::Int64>(mText.size()));
        mText.clear();
    }

private:
    Classes::TStream& mStream;
    std::string mText;
    bool mBegun = false;
};

} // namespace BTL

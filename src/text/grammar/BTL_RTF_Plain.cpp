// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_RTF_Plain.h"

#include "text/editing/BTL_STR_Replace.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <algorithm>
#include <string>

namespace BTL
{

namespace
{

using System::UnicodeString;
using System::WideChar;

using View = std::u16string_view;

constexpr View Beginning = u"{\\rtf";
constexpr View Paragraph = u"\\par";

bool IsLineEnd(WideChar c)
{
    return c == u'\r' || c == u'\n';
}

/// Walks once over a text in RTF.
class CRtfReader
{
public:
    CRtfReader(View text, View lineBreak) : mText(text), mLineBreak(lineBreak) {}

    UnicodeString Read()
    {
        while (mPlace < mText.size()) {
            Take(mText[mPlace]);
        }
        return mResult == mLineBreak ? UnicodeString() : UnicodeString(View(mResult));
    }

private:
    void Take(WideChar c)
    {
        if (c == u'{') {
            ++mLevel;
        } else if (c == u'}') {
            --mLevel;
        } else if (mLevel == 1) {
            if (c == u'\\' && mPlace + 1 < mText.size()) {
                TakeControl(mText[mPlace + 1]);
                return;
            }
            if (!IsLineEnd(c)) {
                mResult += c;
            }
        }
        ++mPlace;
    }

    /// `c` stands behind a backslash.
    void TakeControl(WideChar c)
    {
        switch (c) {
        case u'\\':
        case u'{':
        case u'}':
            mResult += c;
            mPlace += 2;
            break;
        case u'\'':
            TakeCode();
            break;
        default:
            TakeWord();
            break;
        }
    }

    void TakeCode()
    {
        constexpr std::size_t length = 4;
        if (const View digits = mText.substr(mPlace).substr(0, length).substr(2); digits.size() == 2) {
            mResult += static_cast<WideChar>(HexToInt(UnicodeString(digits)));
        }
        mPlace += length;
    }

    /// The last character of the text ends a word and is lost with it: in a whole text it is the brace that
    /// closes the outer group.
    void TakeWord()
    {
        const std::size_t last = mText.size() - 1;
        const std::size_t end = std::min(mText.find_first_of(u" \\{}\r\n", mPlace + 1), last);
        if (mText.substr(mPlace, end - mPlace) == Paragraph) {
            mResult += mLineBreak;
        }
        mPlace = end == last || mText[end] == u' ' ? end + 1 : end;
    }

    View mText;
    View mLineBreak;
    std::size_t mPlace = 0;
    int mLevel = 0;
    std::u16string mResult;
};

} // namespace

bool IsRTF(const UnicodeString& text)
{
    return text.AsView().size() > Beginning.size() && text.AsView().starts_with(Beginning);
}

UnicodeString RTF2Plain(const UnicodeString& text, const UnicodeString& lineBreak)
{
    if (IsRTF(text)) {
        return CRtfReader(text.AsView(), lineBreak.AsView()).Read();
    }
    return lineBreak == u"\n" ? ExchangeAll(text, u"\r\n", u"\n") : text;
}

UnicodeString RTF2PlainStd(const UnicodeString& text)
{
    return RTF2Plain(text, u"\n");
}

UnicodeString RTF2PlainFile(const UnicodeString& text)
{
    return RTF2Plain(text, u"\r\n");
}

} // namespace BTL

// SPDX-License-Identifier: MIT
#include "platform/base/System_CodePage.h"
#include "platform/visual/stdctrls/edits/internal/Comctrls_Rtf.h"

#include <algorithm>
#include <array>
#include <climits>
#include <map>
#include <optional>

namespace Comctrls
{

using Graphics::TColor;
using System::UnicodeString;
using System::WideChar;

namespace
{

using View = std::u16string_view;

constexpr int TwipsInPoint = 20;

/// Where characters go to.
enum class EDestination
{
    Text,
    Fonts,
    Colors,
    Nowhere
};

/// What a group may change, and gives back at its end.
struct TState
{
    TCharFormat format;
    TParaFormat paragraph;
    EDestination destination = EDestination::Text;
    int font = 0;
    /// How many characters stand behind a `\u` for those who can't show it.
    int substitutes = 1;
};

bool IsLetter(WideChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(WideChar c)
{
    return c >= u'0' && c <= u'9';
}

int HexDigit(WideChar c)
{
    const WideChar small = c | 0x20;
    return IsDigit(c) ? c - u'0' : small >= u'a' && small <= u'f' ? small - u'a' + 10 : -1;
}

/// The words that stand for one character.
WideChar CharacterOf(View word)
{
    static constexpr std::array<std::pair<View, WideChar>, 9> characters{{{u"tab", u'\t'},
                                                                          {u"emdash", u'\u2014'},
                                                                          {u"endash", u'\u2013'},
                                                                          {u"bullet", u'\u2022'},
                                                                          {u"lquote", u'\u2018'},
                                                                          {u"rquote", u'\u2019'},
                                                                          {u"ldblquote", u'\u201C'},
                                                                          {u"rdblquote", u'\u201D'},
                                                                          {u"emspace", u'\u2003'}}};
    const auto found = std::ranges::find(characters, word, &std::pair<View, WideChar>::first);
    return found == characters.end() ? u'\0' : found->second;
}

/// Groups whose text isn't the document's.
bool IsHidden(View word)
{
    static constexpr std::array<View, 14> hidden{
        u"stylesheet", u"info",    u"pict",    u"object",   u"header", u"headerl", u"headerr",
        u"footer",     u"footerl", u"footerr", u"footnote", u"pntext", u"fldinst", u"themedata"};
    return std::ranges::find(hidden, word) != hidden.end();
}

/// Walks once over a text.
class CRtfReader
{
public:
    CRtfReader(View source, const TCharFormat& start) : mSource(source), mStart(start)
    {
        mState.format = start;
    }

    TFormattedText Read()
    {
        while (mPlace < mSource.size()) {
            const WideChar c = mSource[mPlace++];
            switch (c) {
            case u'{':
                mStates.push_back(mState);
                break;
            case u'}':
                if (mStates.empty()) {
                    mPlace = mSource.size();
                    break;
                }
                mState = std::move(mStates.back());
                mStates.pop_back();
                if (mStates.empty()) {
                    mPlace = mSource.size();
                }
                break;
            case u'\\':
                TakeControl();
                break;
            case u'\r':
            case u'\n':
                break;
            default:
                TakeCharacter(c);
                break;
            }
        }
        EndParagraph();
        mResult.text = UnicodeString(View(mText));
        return std::move(mResult);
    }

private:
    void TakeCharacter(WideChar c)
    {
        if (mToSkip > 0) {
            --mToSkip;
            return;
        }
        switch (mState.destination) {
        case EDestination::Text:
            if (c == u'\r' || c == u'\n') {
                BreakLine();
            } else {
                Put(View(&c, 1));
            }
            break;
        case EDestination::Fonts:
            if (c == u';') {
                mFonts[mState.font] = UnicodeString(View(mName));
                mName.clear();
            } else {
                mName += c;
            }
            break;
        case EDestination::Colors:
            if (c == u';') {
                mColors.push_back(mColor);
                mColor.reset();
            }
            break;
        case EDestination::Nowhere:
            break;
        }
    }

    void Put(View text)
    {
        mText += text;
        mResult.chars.Append(static_cast<int>(text.size()), mState.format);
    }

    void EndParagraph()
    {
        mResult.paragraphs.Append(static_cast<int>(mText.size() - mParagraph), mState.paragraph);
        mParagraph = mText.size();
    }

    void BreakLine()
    {
        if (mState.destination == EDestination::Text) {
            Put(u"\r\n");
            EndParagraph();
        }
    }

    void TakeControl()
    {
        if (mPlace == mSource.size()) {
            return;
        }
        const WideChar c = mSource[mPlace];
        if (IsLetter(c)) {
            TakeWord();
            return;
        }
        ++mPlace;
        switch (c) {
        case u'\'':
            TakeByte();
            break;
        case u'*':
            // What follows may be passed over by whoever doesn't know it, but for bullets.
            mState.destination = EDestination::Nowhere;
            break;
        case u'~':
            TakeCharacter(u'\u00A0');
            break;
        case u'_':
            TakeCharacter(u'\u2011');
            break;
        case u'-':
            break;
        case u'\r':
        case u'\n':
            BreakLine();
            break;
        default:
            TakeCharacter(c);
            break;
        }
    }

    void TakeByte()
    {
        if (mSource.size() - mPlace < 2) {
            mPlace = mSource.size();
            return;
        }
        const int high = HexDigit(mSource[mPlace]);
        const int low = HexDigit(mSource[mPlace + 1]);
        if (high < 0 || low < 0) {
            return;
        }
        mPlace += 2;
        const char byte = static_cast<char>(high * 16 + low);
        const auto decoded = System::DecodeText(System::DefaultSystemCodePage, {&byte, 1});
        TakeCharacter(decoded.AsView().empty() ? u'?' : decoded.AsView().front());
    }

    void TakeWord()
    {
        const std::size_t begin = mPlace;
        while (mPlace < mSource.size() && IsLetter(mSource[mPlace])) {
            ++mPlace;
        }
        const View word = mSource.substr(begin, mPlace - begin);
        const std::optional<int> number = TakeNumber();
        if (mPlace < mSource.size() && mSource[mPlace] == u' ') {
            ++mPlace;
        }
        if (word == u"bin") {
            mPlace +=
                std::min(static_cast<std::size_t>(std::max(number.value_or(0), 0)), mSource.size() - mPlace);
        } else if (word == u"u") {
            TakeUnicode(number.value_or(0));
        } else if (word == u"uc") {
            mState.substitutes = std::clamp(number.value_or(1), 0, 1000);
        } else if (word == u"par" || word == u"line") {
            BreakLine();
        } else if (const WideChar character = CharacterOf(word); character != 0) {
            TakeCharacter(character);
        } else if (!TakeDestination(word) && !TakeTable(word, number) && !TakeParagraph(word, number)) {
            TakeFormat(word, number);
        }
    }

    std::optional<int> TakeNumber()
    {
        const bool isNegative =
            mPlace + 1 < mSource.size() && mSource[mPlace] == u'-' && IsDigit(mSource[mPlace + 1]);
        mPlace += isNegative ? 1 : 0;
        if (mPlace == mSource.size() || !IsDigit(mSource[mPlace])) {
            return {};
        }
        int value = 0;
        for (; mPlace < mSource.size() && IsDigit(mSource[mPlace]); ++mPlace) {
            constexpr int most = INT_MAX / 10 - 1;
            value = std::min(value, most) * 10 + (mSource[mPlace] - u'0');
        }
        return isNegative ? -value : value;
    }

    void TakeUnicode(int number)
    {
        TakeCharacter(static_cast<WideChar>(number));
        mToSkip = mState.substitutes;
    }

    bool TakeDestination(View word)
    {
        if (word == u"fonttbl") {
            mState.destination = EDestination::Fonts;
        } else if (word == u"colortbl") {
            mState.destination = EDestination::Colors;
        } else if (IsHidden(word)) {
            mState.destination = EDestination::Nowhere;
        } else {
            return false;
        }
        return true;
    }

    bool TakeTable(View word, std::optional<int> number)
    {
        if (mState.destination == EDestination::Fonts && word == u"f") {
            mState.font = number.value_or(0);
            mName.clear();
            return true;
        }
        const int shift = word == u"red" ? 0 : word == u"green" ? 8 : word == u"blue" ? 16 : -1;
        if (mState.destination != EDestination::Colors || shift < 0) {
            return false;
        }
        const int part = std::clamp(number.value_or(0), 0, 255);
        mColor = static_cast<TColor>(mColor.value_or(Graphics::clBlack) | part << shift);
        return true;
    }

    bool TakeParagraph(View word, std::optional<int> number)
    {
        const int points = number.value_or(0) / TwipsInPoint;
        TParaFormat& paragraph = mState.paragraph;
        if (word == u"pard") {
            paragraph = {};
        } else if (word == u"ql" || word == u"qj") {
            paragraph.alignment = Classes::taLeftJustify;
        } else if (word == u"qr") {
            paragraph.alignment = Classes::taRightJustify;
        } else if (word == u"qc") {
            paragraph.alignment = Classes::taCenter;
        } else if (word == u"fi") {
            paragraph.firstIndent = points;
        } else if (word == u"li") {
            paragraph.leftIndent = points;
        } else if (word == u"ri") {
            paragraph.rightIndent = points;
        } else if (word == u"tx") {
            constexpr std::size_t most = 32;
            if (paragraph.tabs.size() < most) {
                paragraph.tabs.push_back(points);
            }
        } else if (word == u"pnlvlblt") {
            // It stands in a group of its own, and means the paragraph around that.
            paragraph.numbering = nsBullet;
            if (!mStates.empty()) {
                mStates.back().paragraph.numbering = nsBullet;
            }
        } else {
            return false;
        }
        return true;
    }

    void TakeFormat(View word, std::optional<int> number)
    {
        static constexpr std::array<std::pair<View, Graphics::TFontStyle>, 4> styles{
            {{u"b", Graphics::fsBold},
             {u"i", Graphics::fsItalic},
             {u"ul", Graphics::fsUnderline},
             {u"strike", Graphics::fsStrikeOut}}};
        TCharFormat& format = mState.format;
        const auto style = std::ranges::find(styles, word, &std::pair<View, Graphics::TFontStyle>::first);
        if (style != styles.end()) {
            number.value_or(1) != 0 ? format.style << style->second : format.style >> style->second;
        } else if (word == u"ulnone") {
            format.style >> Graphics::fsUnderline;
        } else if (word == u"plain") {
            format = mStart;
            UseFont(mDefaultFont);
        } else if (word == u"deff") {
            mDefaultFont = number.value_or(0);
        } else if (word == u"f") {
            UseFont(number.value_or(0));
        } else if (word == u"fs") {
            format.size = std::clamp(number.value_or(24), 2, 3276) / 2;
        } else if (word == u"cf") {
            const auto place = static_cast<std::size_t>(std::max(number.value_or(0), 0));
            format.color = place < mColors.size() ? mColors[place].value_or(mStart.color) : mStart.color;
        } else if (word == u"protect") {
            format.isProtected = number.value_or(1) != 0;
        }
    }

    void UseFont(int number)
    {
        const auto found = mFonts.find(number);
        if (found != mFonts.end() && !found->second.IsEmpty()) {
            mState.format.name = found->second;
        }
    }

    View mSource;
    std::size_t mPlace = 0;
    TCharFormat mStart;
    TState mState;
    std::vector<TState> mStates;
    std::map<int, UnicodeString> mFonts;
    std::vector<std::optional<TColor>> mColors;
    std::u16string mName;
    std::optional<TColor> mColor;
    int mDefaultFont = 0;
    int mToSkip = 0;
    std::u16string mText;
    std::size_t mParagraph = 0;
    TFormattedText mResult;
};

} // namespace

bool IsRtf(View text) noexcept
{
    return text.starts_with(u"{\\rtf");
}

TFormattedText ReadRtf(View source, const TCharFormat& start)
{
    return CRtfReader(source, start).Read();
}

} // namespace Comctrls

// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/internal/Comctrls_Rtf.h"

#include <algorithm>

namespace Comctrls
{

using System::WideChar;

namespace
{

using View = std::u16string_view;

constexpr int TwipsInPoint = 20;

/// The place of a value in a table, to which it is added if it isn't there.
template <class Value>
std::size_t PlaceIn(std::vector<Value>& table, const Value& value)
{
    const auto found = std::ranges::find(table, value);
    if (found != table.end()) {
        return static_cast<std::size_t>(found - table.begin());
    }
    table.push_back(value);
    return table.size() - 1;
}

std::string Word(const char* word, long long number)
{
    return word + std::to_string(number);
}

void Escape(std::string& out, WideChar c)
{
    if (c == u'\\' || c == u'{' || c == u'}') {
        out += '\\';
        out += static_cast<char>(c);
    } else if (c == u'\t') {
        out += "\\tab ";
    } else if (c >= u' ' && c < 0x7F) {
        out += static_cast<char>(c);
    } else {
        out += Word("\\u", static_cast<std::int16_t>(c)) + '?';
    }
}

class CRtfWriter
{
public:
    explicit CRtfWriter(const TFormattedText& text) : mText(text) {}

    std::string Write()
    {
        const View text = mText.text.AsView();
        auto paragraph = mText.paragraphs.getRuns().begin();
        int paragraphRest = 0;
        std::size_t place = 0;
        bool isLineBegin = true;
        for (const auto& run : mText.chars.getRuns()) {
            const std::size_t end = std::min(place + static_cast<std::size_t>(run.length), text.size());
            PutFormat(run.format);
            for (; place < end; ++place) {
                while (paragraphRest == 0 && paragraph != mText.paragraphs.getRuns().end()) {
                    paragraphRest = paragraph->length;
                    mParagraph = &(paragraph++)->format;
                    isLineBegin = true;
                }
                --paragraphRest;
                if (isLineBegin) {
                    PutParagraph();
                    isLineBegin = false;
                }
                PutUnit(text, place);
            }
        }
        return Head() + mBody + "}\r\n";
    }

private:
    void PutUnit(View text, std::size_t place)
    {
        const bool isBreak =
            text[place] == u'\n' || (text[place] == u'\r' && text.substr(place, 2) != u"\r\n");
        if (isBreak) {
            mBody += "\\par\r\n";
        } else if (text[place] != u'\r') {
            Escape(mBody, text[place]);
        }
    }

    void PutFormat(const TCharFormat& format)
    {
        mBody += Word("\\plain\\f", static_cast<long long>(PlaceIn(mFonts, format.name)));
        mBody += Word("\\fs", 2LL * format.size);
        if (format.color != Graphics::clWindowText) {
            mBody += Word("\\cf",
                          static_cast<long long>(PlaceIn(mColors, Graphics::ColorToRGB(format.color)) + 1));
        }
        constexpr const char* words[] = {"\\b", "\\i", "\\ul", "\\strike"};
        for (const Graphics::TFontStyle style : format.style) {
            mBody += words[style];
        }
        mBody += format.isProtected ? "\\protect " : " ";
    }

    void PutParagraph()
    {
        constexpr const char* alignments[] = {"", "\\qr", "\\qc"};
        mBody += "\\pard";
        if (mParagraph != nullptr) {
            const TParaFormat& format = *mParagraph;
            if (format.numbering == nsBullet) {
                mBody += "{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}";
            }
            mBody += alignments[format.alignment];
            mBody += Word("\\fi", 1LL * TwipsInPoint * format.firstIndent);
            mBody += Word("\\li", 1LL * TwipsInPoint * format.leftIndent);
            mBody += Word("\\ri", 1LL * TwipsInPoint * format.rightIndent);
            for (const int tab : format.tabs) {
                mBody += Word("\\tx", 1LL * TwipsInPoint * tab);
            }
        }
        mBody += ' ';
    }

    std::string Head() const
    {
        std::string head = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
        for (std::size_t i = 0; i < mFonts.size(); ++i) {
            head += "{" + Word("\\f", static_cast<long long>(i)) + " ";
            for (const WideChar c : mFonts[i]) {
                Escape(head, c);
            }
            head += ";}";
        }
        head += "}\r\n{\\colortbl ;";
        for (const int color : mColors) {
            head += Word("\\red", color & 0xFF) + Word("\\green", color >> 8 & 0xFF) +
                    Word("\\blue", color >> 16 & 0xFF) + ";";
        }
        return head + "}\r\n";
    }

    const TFormattedText& mText;
    const TParaFormat* mParagraph = nullptr;
    std::vector<System::UnicodeString> mFonts;
    std::vector<int> mColors;
    std::string mBody;
};

} // namespace

std::string WriteRtf(const TFormattedText& text)
{
    return CRtfWriter(text).Write();
}

} // namespace Comctrls

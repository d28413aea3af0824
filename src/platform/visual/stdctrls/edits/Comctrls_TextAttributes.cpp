// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"

#include <algorithm>

// The looks of characters and paragraphs of a rich edit.

namespace Comctrls
{

using Graphics::TColor;
using Graphics::TFontStyles;
using System::UnicodeString;

System::TMetaClass* TTextAttributes::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TTextAttributes>(u"TTextAttributes").Build();
    return record;
}

TTextAttributes::~TTextAttributes() = default;

const TCharFormat& TTextAttributes::Format() const
{
    return mTarget == ETarget::Default ? mEdit->mDefFormat : mEdit->SelFormat();
}

template <class Change>
void TTextAttributes::ChangeFormat(Change change)
{
    if (mTarget == ETarget::Default) {
        const TCharFormat former = mEdit->mDefFormat;
        change(mEdit->mDefFormat);
        // Those that had no other look follow.
        mEdit->mChars.ChangeRange(0, mEdit->Buffer().Length(), [&](TCharFormat& format) {
            if (format == former) {
                format = mEdit->mDefFormat;
            }
        });
        mEdit->ShowAllFormats();
    } else if (mEdit->getSelLength() == 0) {
        mEdit->mNextFormat = mEdit->SelFormat();
        mEdit->mNextPlace = mEdit->getSelStart();
        change(mEdit->mNextFormat);
    } else {
        const int start = mEdit->getSelStart();
        mEdit->mChars.ChangeRange(start, start + mEdit->getSelLength(), change);
        mEdit->ShowFormats(start, start + mEdit->getSelLength());
    }
    mEdit->Invalidate();
}

void TTextAttributes::Assign(TPersistent* source)
{
    if (auto* const font = dynamic_cast<Graphics::TFont*>(source)) {
        ChangeFormat([font](TCharFormat& format) {
            format.name = font->getName();
            format.size = font->getSize();
            format.color = font->getColor();
            format.style = font->getStyle();
        });
    } else if (auto* const other = dynamic_cast<TTextAttributes*>(source)) {
        const TCharFormat taken = other->Format();
        ChangeFormat([&taken](TCharFormat& format) { format = taken; });
    } else {
        TPersistent::Assign(source);
    }
}

void TTextAttributes::AssignTo(TPersistent* target) const
{
    auto* const font = dynamic_cast<Graphics::TFont*>(target);
    if (font == nullptr) {
        TPersistent::AssignTo(target);
        return;
    }
    const TCharFormat format = Format();
    font->setName(format.name);
    font->setSize(format.size);
    font->setColor(format.color);
    font->setStyle(format.style);
}

void TTextAttributes::setName(const UnicodeString& name)
{
    if (!name.IsEmpty()) {
        ChangeFormat([&](TCharFormat& format) { format.name = name; });
    }
}

void TTextAttributes::setSize(int size)
{
    static constexpr int most = 1638;
    ChangeFormat([size](TCharFormat& format) { format.size = std::clamp(size, 1, most); });
}

int TTextAttributes::getHeight() const
{
    Graphics::TFont font;
    font.setSize(getSize());
    return font.getHeight();
}

void TTextAttributes::setHeight(int height)
{
    Graphics::TFont font;
    font.setHeight(height);
    const int size = font.getSize();
    setSize(size < 0 ? -size : size);
}

void TTextAttributes::setColor(TColor color)
{
    ChangeFormat([color](TCharFormat& format) { format.color = color; });
}

void TTextAttributes::setStyle(const TFontStyles& style)
{
    ChangeFormat([&style](TCharFormat& format) { format.style = style; });
}

void TTextAttributes::setProtected(bool isOn)
{
    ChangeFormat([isOn](TCharFormat& format) { format.isProtected = isOn; });
}

TConsistentAttributes TTextAttributes::getConsistentAttributes() const
{
    TConsistentAttributes alike{caBold, caColor,     caFace,      caItalic,
                                caSize, caStrikeOut, caUnderline, caProtected};
    if (mTarget == ETarget::Default) {
        return alike;
    }
    const TCharFormat& first = Format();
    const auto check = [&](bool isAlike, TConsistentAttribute attribute) {
        if (!isAlike) {
            alike >> attribute;
        }
    };
    const int start = mEdit->getSelStart();
    mEdit->mChars.VisitRange(start, start + mEdit->getSelLength(), [&](const TCharFormat& format, int, int) {
        const auto hasSame = [&](Graphics::TFontStyle style) {
            return format.style.Contains(style) == first.style.Contains(style);
        };
        check(hasSame(Graphics::fsBold), caBold);
        check(hasSame(Graphics::fsItalic), caItalic);
        check(hasSame(Graphics::fsUnderline), caUnderline);
        check(hasSame(Graphics::fsStrikeOut), caStrikeOut);
        check(format.color == first.color, caColor);
        check(format.name == first.name, caFace);
        check(format.size == first.size, caSize);
        check(format.isProtected == first.isProtected, caProtected);
    });
    return alike;
}

System::TMetaClass* TParaAttributes::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TParaAttributes>(u"TParaAttributes").Build();
    return record;
}

TParaAttributes::~TParaAttributes() = default;

const TParaFormat& TParaAttributes::Format() const
{
    return mEdit->mParagraphs.At(mEdit->ParagraphRange().X, mEdit->mDefParagraph);
}

template <class Change>
void TParaAttributes::ChangeFormat(Change change)
{
    const Types::TPoint range = mEdit->ParagraphRange();
    mEdit->mParagraphs.ChangeRange(range.X, range.Y, change);
    if (mEdit->Buffer().Length() == 0) {
        change(mEdit->mDefParagraph);
    }
    mEdit->ShowFormats(range.X, range.Y);
    mEdit->Invalidate();
}

void TParaAttributes::Assign(TPersistent* source)
{
    auto* const other = dynamic_cast<TParaAttributes*>(source);
    if (other == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    const TParaFormat taken = other->Format();
    ChangeFormat([&taken](TParaFormat& format) { format = taken; });
}

void TParaAttributes::setAlignment(Classes::TAlignment alignment)
{
    ChangeFormat([alignment](TParaFormat& format) { format.alignment = alignment; });
}

void TParaAttributes::setFirstIndent(int points)
{
    ChangeFormat([points](TParaFormat& format) { format.firstIndent = points; });
}

void TParaAttributes::setLeftIndent(int points)
{
    ChangeFormat([points](TParaFormat& format) { format.leftIndent = points; });
}

void TParaAttributes::setRightIndent(int points)
{
    ChangeFormat([points](TParaFormat& format) { format.rightIndent = points; });
}

void TParaAttributes::setNumbering(TNumberingStyle style)
{
    ChangeFormat([style](TParaFormat& format) { format.numbering = style; });
}

namespace
{

constexpr int MostTabs = 32;

} // namespace

void TParaAttributes::setTabCount(int count)
{
    const auto held = static_cast<std::size_t>(std::clamp(count, 0, MostTabs));
    ChangeFormat([held](TParaFormat& format) { format.tabs.resize(held); });
}

int TParaAttributes::getTab(int index) const
{
    const std::vector<int>& tabs = Format().tabs;
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < tabs.size() ? tabs[place] : 0;
}

void TParaAttributes::setTab(int index, int points)
{
    if (index < 0 || index >= MostTabs) {
        return;
    }
    const auto place = static_cast<std::size_t>(index);
    ChangeFormat([place, points](TParaFormat& format) {
        format.tabs.resize(std::max(format.tabs.size(), place + 1));
        format.tabs[place] = points;
    });
}

} // namespace Comctrls

// SPDX-License-Identifier: MIT
#include "platform/visual/clipboard/Clipbrd.h"

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Picture.h"

#include <algorithm>

namespace Clipbrd
{

using System::UnicodeString;
using System::Word;
using Toolkits::CurrentToolkit;
using Toolkits::Pixels;

System::TMetaClass* TClipboard::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TClipboard>(u"TClipboard").Build();
    return record;
}

TClipboard::TClipboard() = default;

TClipboard::~TClipboard() = default;

UnicodeString TClipboard::getAsText() const
{
    return CurrentToolkit().GetClipboardText();
}

void TClipboard::setAsText(const UnicodeString& text)
{
    CurrentToolkit().SetClipboardText(text);
    mOwnPicture = nullptr;
}

void TClipboard::SetTextBuf(const System::WideChar* text)
{
    setAsText(text == nullptr ? UnicodeString() : UnicodeString(text));
}

void TClipboard::Clear()
{
    setAsText({});
}

Pixels TClipboard::GetPicture() const
{
    Pixels shared = CurrentToolkit().GetClipboardPixels();
    const bool isOwnCurrent = mOwnPicture != nullptr && shared.IsEmpty() && getAsText().IsEmpty();
    return isOwnCurrent ? *mOwnPicture : shared;
}

void TClipboard::PutPicture(TPersistent& picture)
{
    Graphics::TBitmap bitmap;
    if (auto* const graphic = dynamic_cast<Graphics::TGraphic*>(&picture);
        graphic != nullptr && dynamic_cast<Graphics::TBitmap*>(graphic) == nullptr) {
        // One that is drawn rather than made of pixels.
        bitmap.SetSize(graphic->getWidth(), graphic->getHeight());
        bitmap.getCanvas()->Draw(0, 0, graphic);
    } else {
        bitmap.Assign(&picture);
    }
    const Toolkits::TSharedPixels pixels = bitmap.SharePixels();
    Clear();
    if (!CurrentToolkit().SetClipboardPixels(*pixels)) {
        mOwnPicture = System::MakeOwner<Pixels>(*pixels);
    }
}

void TClipboard::Assign(TPersistent* source)
{
    if (source == nullptr) {
        return Clear();
    }
    if (auto* const lines = dynamic_cast<Classes::TStrings*>(source)) {
        return setAsText(lines->getText());
    }
    auto* const picture = dynamic_cast<Graphics::TPicture*>(source);
    TPersistent* const content = picture == nullptr ? source : picture->getGraphic();
    if (content == nullptr) {
        return Clear();
    }
    if (dynamic_cast<Graphics::TGraphic*>(content) == nullptr) {
        return TPersistent::Assign(source);
    }
    PutPicture(*content);
}

void TClipboard::AssignTo(TPersistent* target) const
{
    if (auto* const lines = dynamic_cast<Classes::TStrings*>(target)) {
        return lines->setText(getAsText());
    }
    auto* const bitmap = dynamic_cast<Graphics::TBitmap*>(target);
    auto* const picture = dynamic_cast<Graphics::TPicture*>(target);
    if (bitmap == nullptr && picture == nullptr) {
        return TPersistent::AssignTo(target);
    }
    Pixels pixels = GetPicture();
    if (pixels.IsEmpty()) {
        throw Graphics::EInvalidGraphic(u"There is no picture on the clipboard");
    }
    Graphics::TBitmap content;
    content.TakePixels(std::move(pixels));
    target->Assign(&content);
}

bool TClipboard::HasFormat(Word format) const
{
    switch (format) {
    case CF_TEXT:
    case CF_UNICODETEXT:
        return !getAsText().IsEmpty();
    case CF_BITMAP:
    case CF_DIB:
    case CF_PICTURE:
        return !GetPicture().IsEmpty();
    default:
        return false;
    }
}

namespace
{

std::vector<Word> FormatsOn(const TClipboard& clipboard)
{
    std::vector<Word> formats;
    std::ranges::copy_if(std::initializer_list<Word>{CF_UNICODETEXT, CF_TEXT, CF_BITMAP, CF_DIB},
                         std::back_inserter(formats),
                         [&](Word format) { return clipboard.HasFormat(format); });
    return formats;
}

} // namespace

int TClipboard::getFormatCount() const
{
    return static_cast<int>(FormatsOn(*this).size());
}

Word TClipboard::getFormats(int index) const
{
    const std::vector<Word> formats = FormatsOn(*this);
    if (index < 0 || index >= static_cast<int>(formats.size())) {
        throw Classes::EListError(u"There is no format " + UnicodeString(index) + u" on the clipboard");
    }
    return formats[static_cast<std::size_t>(index)];
}

TClipboard& Clipboard()
{
    // Never destroyed: controls of static lifetime may use it last.
    static TClipboard& clipboard = *new TClipboard;
    return clipboard;
}

} // namespace Clipbrd

// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/stdctrls/edits/Stdctrls_PublishEdit.h"
#include "platform/visual/stdctrls/edits/internal/Comctrls_Rtf.h"
#include "platform/visual/stdctrls/edits/internal/Stdctrls_MemoLines.h"

#include <algorithm>
#include <utility>

namespace Comctrls
{

using System::UnicodeString;

namespace
{

/// Lines whose text may have formats.
class CRichLines final : public Stdctrls::CMemoLines
{
public:
    explicit CRichLines(TCustomRichEdit* edit) noexcept : CMemoLines(edit), mEdit(edit) {}

    void SaveToStream(Classes::TStream* stream, Sysutils::TEncoding* encoding) const override
    {
        if (mEdit->getPlainText()) {
            CMemoLines::SaveToStream(stream, encoding);
            return;
        }
        if (stream == nullptr) {
            throw Classes::EStreamError(u"There is no stream");
        }
        const std::string text = WriteRtf(mEdit->GetFormattedText());
        stream->WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
    }

protected:
    void SetTextStr(const UnicodeString& text) override
    {
        if (mEdit->getPlainText() || !IsRtf(text.AsView())) {
            CMemoLines::SetTextStr(text);
            return;
        }
        TCharFormat start;
        start.name = mEdit->getDefAttributes()->getName();
        start.size = mEdit->getDefAttributes()->getSize();
        start.color = mEdit->getDefAttributes()->getColor();
        mEdit->SetFormattedText(ReadRtf(text.AsView(), start));
    }

private:
    TCustomRichEdit* mEdit;
};

} // namespace

System::TMetaClass* TCustomRichEdit::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomRichEdit>(u"TCustomRichEdit").Build();
    return record;
}

TCustomRichEdit::TCustomRichEdit(Classes::TComponent* owner)
    : TCustomMemo(owner, std::make_unique<CRichLines>(this))
{
    setHideSelection(true);
    TakeFont();
}

TCustomRichEdit::~TCustomRichEdit() = default;

void TCustomRichEdit::TakeFont()
{
    const Graphics::TFont& font = GetShownFont();
    mDefAttributes.Assign(&const_cast<Graphics::TFont&>(font));
}

void TCustomRichEdit::Dispatch(void* record)
{
    if (static_cast<const Messages::TMessage*>(record)->Msg == CM_FONTCHANGED) {
        TakeFont();
    }
    const Classes::TComponentWatch watch(this);
    TCustomMemo::Dispatch(record);
    if (watch.IsAlive()) {
        TakeBackByKey(*static_cast<Messages::TMessage*>(record));
    }
}

void TCustomRichEdit::TakeBackByKey(Messages::TMessage& message)
{
    const bool isKey = message.Msg == WM_KEYDOWN && message.Result == 0 && message.WParam == 'Z';
    if (isKey && Controls::WindowActs(*this) &&
        Controls::ParamToShift(static_cast<std::uintptr_t>(message.LParam)) ==
            Classes::TShiftState{Classes::ssCtrl}) {
        message.Result = 1;
        Undo();
    }
}

void TCustomRichEdit::CreateParams(Controls::TCreateParams& params)
{
    TCustomMemo::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::RichEdit;
}

const TCharFormat& TCustomRichEdit::SelFormat() const
{
    const int start = getSelStart();
    if (getSelLength() > 0) {
        return mChars.At(start, mDefFormat);
    }
    if (mNextPlace == start) {
        return mNextFormat;
    }
    // What is typed looks like what stands in front of it.
    return Buffer().Length() == 0 ? mDefFormat : mChars.At(std::max(start - 1, 0), mDefFormat);
}

Types::TPoint TCustomRichEdit::ParagraphRange() const
{
    const Stdctrls::CEditBuffer& buffer = Buffer();
    const int last = buffer.LineAt(buffer.SelStart() + std::max(buffer.SelLength() - 1, 0));
    const int begin = buffer.LineBegin(buffer.LineAt(buffer.SelStart()));
    const int end = last + 1 < buffer.LineCount() ? buffer.LineBegin(last + 1) : buffer.Length();
    return {.X = begin, .Y = end};
}

void TCustomRichEdit::TextShown(EShown shown)
{
    if (shown == EShown::Given) {
        ShowAllFormats();
        return;
    }
    // A window takes the looks of what stands beside, and paragraphs may have become one.
    const Stdctrls::CEditBuffer& buffer = Buffer();
    const int last = buffer.LineAt(mEdited.Y);
    ShowFormats(buffer.LineBegin(buffer.LineAt(mEdited.X)),
                last + 1 < buffer.LineCount() ? buffer.LineBegin(last + 1) : buffer.Length());
}

void TCustomRichEdit::Edited(int start, int removed, int added)
{
    mEdited = {.X = start, .Y = start + added};
    if (TFormattedText* const taken = std::exchange(mTaken, nullptr)) {
        mChars = std::move(taken->chars);
        mParagraphs = std::move(taken->paragraphs);
        return;
    }
    const bool isWhole = start == 0 && removed > 0 && Buffer().Length() == added;
    TCharFormat format = mDefFormat;
    TParaFormat paragraph = mDefParagraph;
    if (!isWhole) {
        format = mNextPlace == start ? mNextFormat
                                     : mChars.At(removed > 0 ? start : std::max(start - 1, 0), mDefFormat);
        paragraph = mParagraphs.At(std::max(start - 1, 0), mDefParagraph);
    }
    const bool keepsNext = std::exchange(mNextPlace, -1) == start;
    mChars.Replace(start, removed, added, format);
    mParagraphs.Replace(start, removed, added, paragraph);
    if (keepsNext && Buffer().getCaret() == start + added) {
        mNextPlace = start + added;
    }
}

TFormattedText TCustomRichEdit::GetFormattedText() const
{
    return {GetText(), mChars, mParagraphs};
}

void TCustomRichEdit::SetFormattedText(const TFormattedText& text)
{
    // The formats are there when `OnChange` comes.
    TFormattedText taken = text;
    const auto fill = [length = text.text.Length()](auto& runs, const auto& format) {
        int known = 0;
        for (const auto& run : runs.getRuns()) {
            known += run.length;
        }
        runs.Append(length - known, format);
    };
    fill(taken.chars, mDefFormat);
    fill(taken.paragraphs, mDefParagraph);
    mNextPlace = -1;
    if (text.text == GetText()) {
        mChars = std::move(taken.chars);
        mParagraphs = std::move(taken.paragraphs);
        ShowAllFormats();
        Invalidate();
        return;
    }
    const Classes::TComponentWatch watch(this);
    mTaken = &taken;
    SetText(text.text);
    if (watch.IsAlive()) {
        mTaken = nullptr;
    }
}

System::TMetaClass* TRichEdit::ClassRecord()
{
    static System::TMetaClass* const record =
        Stdctrls::PublishMemo(Stdctrls::PublishEdit(System::GClassBuilder<TRichEdit>(u"TRichEdit")))
            .Property(u"HideScrollBars", &TRichEdit::getHideScrollBars, &TRichEdit::setHideScrollBars,
                      {.defaultValue = 1})
            .Property(u"PlainText", &TRichEdit::getPlainText, &TRichEdit::setPlainText, {.defaultValue = 0})
            .Build();
    return record;
}

TRichEdit::~TRichEdit() = default;

} // namespace Comctrls

namespace Typinfo
{

TTypeInfo GEnumType<Comctrls::TNumberingStyle>::Make()
{
    return EnumType(u"TNumberingStyle", {u"nsNone", u"nsBullet"});
}

} // namespace Typinfo

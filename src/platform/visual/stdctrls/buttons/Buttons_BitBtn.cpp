// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Buttons_BitBtn.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/buttons/internal/Buttons_Glyph.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

#include <algorithm>

namespace Buttons
{

using System::UnicodeString;

namespace
{

/// What a kind gives a button.
struct TKindTraits
{
    const char16_t* caption;
    int modalResult;
    bool isDefault = false;
    bool isCancel = false;
};

const TKindTraits& TraitsOf(TBitBtnKind kind)
{
    static constexpr TKindTraits traits[] = {
        {u"", 0},        {u"OK", 1, true},   {u"Cancel", 2, false, true},
        {u"&Help", 0},   {u"&Yes", 6, true}, {u"&No", 7, false, true},
        {u"&Close", 8},  {u"Abort", 3},      {u"&Retry", 4},
        {u"&Ignore", 5}, {u"&All", 12},
    };
    return traits[kind];
}

} // namespace

System::TMetaClass* TBitBtn::ClassRecord()
{
    using T = TBitBtn;
    const auto isGlyphOwn = [](const System::TObject* object) {
        return dynamic_cast<const T*>(object)->getKind() == bkCustom;
    };
    static System::TMetaClass* const record =
        Stdctrls::PublishButton(
            Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<T>(u"TBitBtn"))))
            .Property(u"Glyph", &T::getGlyph, &T::setGlyph, {.stored = isGlyphOwn})
            .Property(u"Kind", &T::getKind, &T::setKind, {.defaultValue = bkCustom})
            .Property(u"Layout", &T::getLayout, &T::setLayout, {.defaultValue = blGlyphLeft})
            .Property(u"Margin", &T::getMargin, &T::setMargin, {.defaultValue = -1})
            .Property(u"NumGlyphs", &T::getNumGlyphs, &T::setNumGlyphs, {.defaultValue = 1})
            .Property(u"Spacing", &T::getSpacing, &T::setSpacing, {.defaultValue = 4})
            .Build();
    return record;
}

TBitBtn::TBitBtn(Classes::TComponent* owner) : TCustomButton(owner), mGlyph(std::make_unique<CButtonGlyph>())
{
    mGlyph->setOnChange({this, &TBitBtn::GlyphChanged});
}

TBitBtn::~TBitBtn()
{
    mGlyph->setOnChange({});
}

template <class T>
void TBitBtn::Put(T& field, T value)
{
    if (field != value) {
        field = value;
        Invalidate();
    }
}

void TBitBtn::setLayout(TButtonLayout layout)
{
    Put(mLayout, layout);
}

void TBitBtn::setMargin(int margin)
{
    Put(mMargin, std::max(margin, -1));
}

void TBitBtn::setSpacing(int spacing)
{
    Put(mSpacing, std::max(spacing, -1));
}

Graphics::TBitmap* TBitBtn::getGlyph() const noexcept
{
    return mGlyph->Bitmap();
}

void TBitBtn::setGlyph(Graphics::TBitmap* glyph)
{
    mGlyph->Assign(glyph);
    mIsGlyphChanged = true;
    Invalidate();
}

TNumGlyphs TBitBtn::getNumGlyphs() const noexcept
{
    return mGlyph->getParts();
}

void TBitBtn::setNumGlyphs(TNumGlyphs count)
{
    mGlyph->setParts(std::clamp(count, 1, 4));
}

void TBitBtn::GlyphChanged(System::TObject*)
{
    mIsGlyphChanged = true;
    Invalidate();
}

TBitBtnKind TBitBtn::getKind() const
{
    const TKindTraits& traits = TraitsOf(mKind);
    const bool isAsGiven = traits.isDefault == getDefault() && traits.isCancel == getCancel() &&
                           traits.modalResult == getModalResult() && !mIsGlyphChanged;
    if (!isAsGiven) {
        mKind = bkCustom;
    }
    return mKind;
}

void TBitBtn::setKind(TBitBtnKind kind)
{
    if (kind == getKind() || kind < bkCustom || kind > bkAll) {
        return;
    }
    mKind = kind;
    if (kind == bkCustom) {
        return;
    }
    const TKindTraits& traits = TraitsOf(kind);
    setDefault(traits.isDefault);
    setCancel(traits.isCancel);
    if (!IsLoading() || getCaption().IsEmpty()) {
        setCaption(traits.caption);
    }
    setModalResult(traits.modalResult);
    mGlyph->Assign(MakeKindGlyph(kind).get());
    mGlyph->setParts(2);
    mIsGlyphChanged = false;
    Invalidate();
}

void TBitBtn::Click()
{
    if (mKind == bkClose) {
        if (Forms::TCustomForm* const form = Forms::GetParentForm(this)) {
            form->Close();
            return;
        }
    }
    if (mKind == bkHelp) {
        const Controls::TControl* topic = this;
        while (topic != nullptr && topic->getHelpContext() == 0) {
            topic = topic->getParent();
        }
        if (topic != nullptr) {
            Forms::Application->HelpContext(topic->getHelpContext());
            return;
        }
    }
    TCustomButton::Click();
}

void TBitBtn::CreateParams(Controls::TCreateParams& params)
{
    TCustomButton::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::Canvas;
}

void TBitBtn::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    const Types::TRect client = GetClientRect();
    Stdctrls::CButtonPainter painter(*this, canvas);
    painter.Face(client, {.isDown = IsHeldDown(), .isDefault = getActive()});
    const TButtonState state = !getEnabled() ? bsDisabled : IsHeldDown() ? bsDown : bsUp;
    canvas.setFont(const_cast<Graphics::TFont*>(&GetShownFont()));
    mGlyph->Draw(*this, canvas, client, {mLayout, mMargin, mSpacing}, state, getWordWrap());
    if (Focused()) {
        painter.Focus({client.Left + 4, client.Top + 4, client.Right - 4, client.Bottom - 4});
    }
}

} // namespace Buttons

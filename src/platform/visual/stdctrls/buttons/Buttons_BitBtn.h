// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/buttons/Buttons_Types.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

namespace Graphics
{
class TBitmap;
} // namespace Graphics

namespace Buttons
{

class CButtonGlyph;

/// A button with a picture beside its caption.
///
///     auto* const ok = new Buttons::TBitBtn(form);
///     ok->setParent(form);
///     ok->setKind(Buttons::bkOK);                                 // caption, picture and modal result
class TRS8_BTL_API TBitBtn : public Stdctrls::TCustomButton
{
    TRS8_BTL_CLASS(TBitBtn, Stdctrls::TCustomButton)

public:
    explicit TBitBtn(Classes::TComponent* owner = nullptr);
    ~TBitBtn() override;

    /// Closes the form of a `bkClose` button, and shows the help topic of a `bkHelp` button that has one, its
    /// own or that of a parent. Otherwise as any button.
    void Click() override;

    /// `bkCustom` as soon as anything that it gave is changed.
    TBitBtnKind getKind() const;
    /// Gives the button its caption, picture, modal result, and whether it is the default or cancel button.
    void setKind(TBitBtnKind kind);
    /// The picture, whose lower left pixel's colour lets through what is below. The button owns it; writing
    /// copies.
    Graphics::TBitmap* getGlyph() const noexcept;
    void setGlyph(Graphics::TBitmap* glyph);
    /// How many pictures, side by side, the glyph has: for a usual, disabled and pressed button, 1 to 4. A
    /// glyph that is a whole number of times as wide as high sets it.
    TNumGlyphs getNumGlyphs() const noexcept;
    void setNumGlyphs(TNumGlyphs count);
    TButtonLayout getLayout() const noexcept { return mLayout; }
    void setLayout(TButtonLayout layout);
    /// Pixels between the edge and what comes first; -1, which is first, puts it into the middle.
    int getMargin() const noexcept { return mMargin; }
    void setMargin(int margin);
    /// Pixels between picture and caption, 4 at first; -1 leaves the caption in the middle of the rest.
    int getSpacing() const noexcept { return mSpacing; }
    void setSpacing(int spacing);

protected:
    void CreateParams(Controls::TCreateParams& params) override;
    void Paint() override;

private:
    void GlyphChanged(System::TObject* sender);
    template <class T>
    void Put(T& field, T value);

    std::unique_ptr<CButtonGlyph> mGlyph;
    mutable TBitBtnKind mKind = bkCustom;
    TButtonLayout mLayout = blGlyphLeft;
    int mMargin = -1;
    int mSpacing = 4;
    bool mIsGlyphChanged = false;
};

} // namespace Buttons

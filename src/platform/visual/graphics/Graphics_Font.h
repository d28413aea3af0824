// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Object.h"

namespace Graphics
{

/// What a font holds; fonts that are equal by `Assign` share it.
struct TRS8_BTL_API TFontBlock : System::TSharedBlock
{
    TFontBlock() = default;
    TFontBlock(const TFontBlock& other);
    ~TFontBlock() override;

    Toolkits::TFontData data;
    TColor color = clWindowText;
    int pixelsPerInch = 96;
};

/// A font: Tahoma of size 8 in the colour of the desktop's text at first. A font that was changed in nothing,
/// or that took over another one's state, shares that and so takes little memory.
///
///     canvas->getFont()->setName(u"Courier New");
///     canvas->getFont()->setSize(10);                             // points, the height follows
///     canvas->getFont()->setStyle({fsBold});
class TRS8_BTL_API TFont : public TGraphicsObject
{
    TRS8_BTL_CLASS(TFont, TGraphicsObject)

public:
    TFont();
    ~TFont() override;

    void Assign(TPersistent* source) override;
    /// Whether the fonts look alike.
    bool IsEqual(const TFont& other) const;

    const System::UnicodeString& getName() const noexcept { return mBlock->data.name; }
    /// An empty name changes nothing.
    void setName(const System::UnicodeString& name);
    /// In points; negative if the height is that of a line.
    int getSize() const noexcept;
    void setSize(int size);
    /// In pixels: negative the height of the characters, positive that of a line.
    int getHeight() const noexcept { return mBlock->data.height; }
    void setHeight(int height);
    TColor getColor() const noexcept { return mBlock->color; }
    void setColor(TColor color);
    const TFontStyles& getStyle() const noexcept { return mBlock->data.styles; }
    void setStyle(const TFontStyles& style);
    TFontCharset getCharset() const noexcept { return mBlock->data.charset; }
    void setCharset(TFontCharset charset);
    TFontPitch getPitch() const noexcept { return mBlock->data.pitch; }
    void setPitch(TFontPitch pitch);
    TFontQuality getQuality() const noexcept { return mBlock->data.quality; }
    void setQuality(TFontQuality quality);
    /// Tenths of a degree, counterclockwise.
    int getOrientation() const noexcept { return mBlock->data.orientation; }
    void setOrientation(int orientation);
    /// What turns the size into the height; 96 at first. A change keeps the size; one below 1 counts as 96.
    int getPixelsPerInch() const noexcept { return mBlock->pixelsPerInch; }
    void setPixelsPerInch(int pixelsPerInch);

    /// The font as a toolkit asks for it; valid until the font changes or is gone.
    const Toolkits::TFontData& getData() const noexcept { return mBlock->data; }
    /// What the font holds now. It stays as it is for the holder, who must not change it.
    const System::GSharedBlock<TFontBlock>& getBlock() const noexcept { return mBlock; }

private:
    template <class Value>
    void Put(Value Toolkits::TFontData::*member, const Value& value);
    template <class Change>
    void ChangeBlock(Change change);

    System::GSharedBlock<TFontBlock> mBlock;
};

/// The name of a character set, such as "ANSI_CHARSET"; false, and `ident` stays, for one without a name.
TRS8_BTL_API bool CharsetToIdent(int charset, System::UnicodeString& ident);
/// The number of a character set by its name, case aside; false, and `charset` stays, for an unknown name.
TRS8_BTL_API bool IdentToCharset(const System::UnicodeString& ident, int& charset);

} // namespace Graphics

namespace Typinfo
{

// The enumerations of a font, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Graphics::TFontStyle>
{
    static TTypeInfo Make();
};

template <>
struct TRS8_BTL_API GEnumType<Graphics::TFontPitch>
{
    static TTypeInfo Make();
};

template <>
struct TRS8_BTL_API GEnumType<Graphics::TFontQuality>
{
    static TTypeInfo Make();
};

} // namespace Typinfo

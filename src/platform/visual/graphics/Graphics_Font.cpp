// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Font.h"

#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/internal/Graphics_Idents.h"
#include "platform/visual/graphics/internal/Graphics_MulDiv.h"

namespace Graphics
{

namespace
{

constexpr int PointsPerInch = 72;

/// What all fonts hold that were changed in nothing. Never destroyed, so that fonts of static lifetime may
/// hold it.
const System::GSharedBlock<TFontBlock>& DefaultBlock()
{
    static const auto& block = *[] {
        auto* const font = new TFontBlock;
        font->data.name = u"Tahoma";
        return new System::GSharedBlock<TFontBlock>(font);
    }();
    return block;
}

constexpr TIdent Charsets[] = {
    {u"ANSI_CHARSET", 0},     {u"DEFAULT_CHARSET", 1},      {u"SYMBOL_CHARSET", 2},
    {u"MAC_CHARSET", 77},     {u"SHIFTJIS_CHARSET", 128},   {u"HANGEUL_CHARSET", 129},
    {u"JOHAB_CHARSET", 130},  {u"GB2312_CHARSET", 134},     {u"CHINESEBIG5_CHARSET", 136},
    {u"GREEK_CHARSET", 161},  {u"TURKISH_CHARSET", 162},    {u"HEBREW_CHARSET", 177},
    {u"ARABIC_CHARSET", 178}, {u"BALTIC_CHARSET", 186},     {u"RUSSIAN_CHARSET", 204},
    {u"THAI_CHARSET", 222},   {u"EASTEUROPE_CHARSET", 238}, {u"OEM_CHARSET", 255}};

const Typinfo::TTypeInfo* CharsetType()
{
    static const auto* const type =
        new Typinfo::TTypeInfo{.Kind = Typinfo::tkInteger, .Name = u"TFontCharset", .MaxValue = 255};
    return type;
}

/// Lets form resources have the names of character sets.
struct TLinkToFiler
{
    TLinkToFiler() { Classes::RegisterIntegerConsts(CharsetType(), &IdentToCharset, &CharsetToIdent); }
};

const TLinkToFiler linkToFiler;

} // namespace

TFontBlock::TFontBlock(const TFontBlock& other)
    : System::TSharedBlock(), data(other.data), color(other.color), pixelsPerInch(other.pixelsPerInch)
{
}

TFontBlock::~TFontBlock() = default;

System::TMetaClass* TFont::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TFont>(u"TFont")
            .Property(u"Charset", &TFont::getCharset, &TFont::setCharset, {.type = &CharsetType})
            .Property(u"Color", &TFont::getColor, &TFont::setColor)
            .Property(u"Height", &TFont::getHeight, &TFont::setHeight)
            .Property(u"Name", &TFont::getName, &TFont::setName)
            .Property(u"Orientation", &TFont::getOrientation, &TFont::setOrientation, {.defaultValue = 0})
            .Property(u"Pitch", &TFont::getPitch, &TFont::setPitch, {.defaultValue = fpDefault})
            .Property(u"Quality", &TFont::getQuality, &TFont::setQuality, {.defaultValue = fqDefault})
            // The height says it already.
            .Property(u"Size", &TFont::getSize, &TFont::setSize,
                      {.stored = [](const System::TObject*) { return false; }})
            .Property(u"Style", &TFont::getStyle, &TFont::setStyle)
            .Build();
    return record;
}

TFont::TFont() : mBlock(DefaultBlock()) {}

TFont::~TFont() = default;

template <class Change>
void TFont::ChangeBlock(Change change)
{
    // Others that share the block, the default one's holder among them, keep what they have.
    if (!mBlock.IsUnique()) {
        mBlock = System::GSharedBlock<TFontBlock>(new TFontBlock(*mBlock));
    }
    change(*mBlock);
    Changed();
}

template <class Value>
void TFont::Put(Value Toolkits::TFontData::*member, const Value& value)
{
    if (mBlock->data.*member != value) {
        ChangeBlock([&](TFontBlock& block) { block.data.*member = value; });
    }
}

void TFont::Assign(TPersistent* source)
{
    const auto* const other = dynamic_cast<TFont*>(source);
    if (other == nullptr) {
        TPersistent::Assign(source);
        return;
    }
    if (mBlock == other->mBlock) {
        return;
    }
    const bool isEqual = IsEqual(*other) && getPixelsPerInch() == other->getPixelsPerInch();
    mBlock = other->mBlock;
    if (!isEqual) {
        Changed();
    }
}

bool TFont::IsEqual(const TFont& other) const
{
    return mBlock == other.mBlock ||
           (mBlock->color == other.mBlock->color && mBlock->data == other.mBlock->data);
}

void TFont::setName(const System::UnicodeString& name)
{
    if (!name.IsEmpty()) {
        Put(&Toolkits::TFontData::name, name);
    }
}

int TFont::getSize() const noexcept
{
    return MulDiv(-getHeight(), PointsPerInch, getPixelsPerInch());
}

void TFont::setSize(int size)
{
    setHeight(MulDiv(-size, getPixelsPerInch(), PointsPerInch));
}

void TFont::setHeight(int height)
{
    Put(&Toolkits::TFontData::height, height);
}

void TFont::setColor(TColor color)
{
    if (getColor() != color) {
        ChangeBlock([color](TFontBlock& block) { block.color = color; });
    }
}

void TFont::setStyle(const TFontStyles& style)
{
    Put(&Toolkits::TFontData::styles, style);
}

void TFont::setCharset(TFontCharset charset)
{
    Put(&Toolkits::TFontData::charset, charset);
}

void TFont::setPitch(TFontPitch pitch)
{
    Put(&Toolkits::TFontData::pitch, pitch);
}

void TFont::setQuality(TFontQuality quality)
{
    Put(&Toolkits::TFontData::quality, quality);
}

void TFont::setOrientation(int orientation)
{
    Put(&Toolkits::TFontData::orientation, orientation);
}

void TFont::setPixelsPerInch(int pixelsPerInch)
{
    const int fresh = pixelsPerInch < 1 ? TFontBlock().pixelsPerInch : pixelsPerInch;
    if (fresh == getPixelsPerInch()) {
        return;
    }
    const int size = getSize();
    ChangeBlock([&](TFontBlock& block) {
        block.pixelsPerInch = fresh;
        block.data.height = MulDiv(-size, fresh, PointsPerInch);
    });
}

bool CharsetToIdent(int charset, System::UnicodeString& ident)
{
    return FindIdent(Charsets, charset, ident);
}

bool IdentToCharset(const System::UnicodeString& ident, int& charset)
{
    return FindValue(Charsets, ident, charset);
}

} // namespace Graphics

namespace Typinfo
{

TTypeInfo GEnumType<Graphics::TFontStyle>::Make()
{
    return EnumType(u"TFontStyle", {u"fsBold", u"fsItalic", u"fsUnderline", u"fsStrikeOut"});
}

TTypeInfo GEnumType<Graphics::TFontPitch>::Make()
{
    return EnumType(u"TFontPitch", {u"fpDefault", u"fpVariable", u"fpFixed"});
}

TTypeInfo GEnumType<Graphics::TFontQuality>::Make()
{
    return EnumType(u"TFontQuality", {u"fqDefault", u"fqDraft", u"fqProof", u"fqNonAntialiased",
                                      u"fqAntialiased", u"fqClearType", u"fqClearTypeNatural"});
}

} // namespace Typinfo

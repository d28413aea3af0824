// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Types.h"

namespace Typinfo
{

TTypeInfo GEnumType<Classes::TAlignment>::Make()
{
    return EnumType(u"TAlignment", {u"taLeftJustify", u"taRightJustify", u"taCenter"});
}

TTypeInfo GEnumType<Classes::TVerticalAlignment>::Make()
{
    return EnumType(u"TVerticalAlignment", {u"taAlignTop", u"taAlignBottom", u"taVerticalCenter"});
}

TTypeInfo GEnumType<Classes::TBiDiMode>::Make()
{
    return EnumType(u"TBiDiMode", {u"bdLeftToRight", u"bdRightToLeft", u"bdRightToLeftNoAlign",
                                   u"bdRightToLeftReadingOnly"});
}

TTypeInfo GEnumType<Controls::TAlign>::Make()
{
    return EnumType(u"TAlign",
                    {u"alNone", u"alTop", u"alBottom", u"alLeft", u"alRight", u"alClient", u"alCustom"});
}

TTypeInfo GEnumType<Controls::TAnchorKind>::Make()
{
    return EnumType(u"TAnchorKind", {u"akLeft", u"akTop", u"akRight", u"akBottom"});
}

TTypeInfo GEnumType<Controls::TBevelEdge>::Make()
{
    return EnumType(u"TBevelEdge", {u"beLeft", u"beTop", u"beRight", u"beBottom"});
}

TTypeInfo GEnumType<Controls::TBevelCut>::Make()
{
    return EnumType(u"TBevelCut", {u"bvNone", u"bvLowered", u"bvRaised", u"bvSpace"});
}

TTypeInfo GEnumType<Controls::TBevelKind>::Make()
{
    return EnumType(u"TBevelKind", {u"bkNone", u"bkTile", u"bkSoft", u"bkFlat"});
}

} // namespace Typinfo

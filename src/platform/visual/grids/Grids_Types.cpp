// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_Types.h"

namespace Grids
{

EInvalidGridOperation::~EInvalidGridOperation() = default;

} // namespace Grids

namespace Typinfo
{

TTypeInfo GEnumType<Grids::TGridOption>::Make()
{
    return EnumType(u"TGridOption",
                    {u"goFixedVertLine", u"goFixedHorzLine", u"goVertLine", u"goHorzLine", u"goRangeSelect",
                     u"goDrawFocusSelected", u"goRowSizing", u"goColSizing", u"goRowMoving", u"goColMoving",
                     u"goEditing", u"goTabs", u"goRowSelect", u"goAlwaysShowEditor", u"goThumbTracking",
                     u"goFixedColClick", u"goFixedRowClick", u"goFixedHotTrack"});
}

TTypeInfo GEnumType<Grids::TGridDrawingStyle>::Make()
{
    return EnumType(u"TGridDrawingStyle", {u"gdsClassic", u"gdsThemed", u"gdsGradient"});
}

} // namespace Typinfo

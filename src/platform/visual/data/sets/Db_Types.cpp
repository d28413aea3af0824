// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_Types.h"

namespace Db
{

EDatabaseError::~EDatabaseError() = default;

} // namespace Db

namespace Typinfo
{

TTypeInfo GEnumType<Db::TFieldType>::Make()
{
    return EnumType(u"TFieldType",
                    {u"ftUnknown", u"ftString", u"ftWideString", u"ftInteger", u"ftLargeint", u"ftFloat",
                     u"ftBoolean", u"ftDate", u"ftTime", u"ftDateTime", u"ftBlob", u"ftMemo", u"ftWideMemo"});
}

TTypeInfo GEnumType<Db::TFieldKind>::Make()
{
    return EnumType(u"TFieldKind", {u"fkData", u"fkCalculated"});
}

} // namespace Typinfo

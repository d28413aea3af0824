// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Controls_Cursor.h"

#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/visual/graphics/internal/Graphics_Idents.h"

namespace Controls
{

namespace
{

constexpr Graphics::TIdent Cursors[] = {{u"crAppStart", crAppStart},
                                        {u"crArrow", crArrow},
                                        {u"crCross", crCross},
                                        {u"crDefault", crDefault},
                                        {u"crDrag", crDrag},
                                        {u"crHandPoint", crHandPoint},
                                        {u"crHelp", crHelp},
                                        {u"crHourGlass", crHourGlass},
                                        {u"crHSplit", crHSplit},
                                        {u"crIBeam", crIBeam},
                                        {u"crMultiDrag", crMultiDrag},
                                        {u"crNo", crNo},
                                        {u"crNoDrop", crNoDrop},
                                        {u"crNone", crNone},
                                        {u"crSizeAll", crSizeAll},
                                        {u"crSizeNESW", crSizeNESW},
                                        {u"crSizeNS", crSizeNS},
                                        {u"crSizeNWSE", crSizeNWSE},
                                        {u"crSizeWE", crSizeWE},
                                        {u"crSQLWait", crSQLWait},
                                        {u"crUpArrow", crUpArrow},
                                        {u"crVSplit", crVSplit},
                                        // Read, but never written.
                                        {u"crSize", crSize}};

/// Lets form resources have the names.
struct TLinkToFiler
{
    TLinkToFiler()
    {
        Classes::RegisterIntegerConsts(Typinfo::TypeInfoOf<TCursor>(), &IdentToCursor, &CursorToIdent);
    }
};

const TLinkToFiler linkToFiler;

} // namespace

bool CursorToIdent(int cursor, System::UnicodeString& ident)
{
    return Graphics::FindIdent(Cursors, cursor, ident);
}

bool IdentToCursor(const System::UnicodeString& ident, int& cursor)
{
    return Graphics::FindValue(Cursors, ident, cursor);
}

System::UnicodeString CursorToString(TCursor cursor)
{
    System::UnicodeString ident;
    return CursorToIdent(cursor, ident) ? ident : Sysutils::IntToStr(int{cursor});
}

TCursor StringToCursor(const System::UnicodeString& text)
{
    int cursor = 0;
    const int value = IdentToCursor(text, cursor) ? cursor : Sysutils::StrToInt(text);
    if (value != static_cast<short>(value)) {
        throw Sysutils::EConvertError(u"There is no cursor " + text);
    }
    return TCursor(value);
}

void GetCursorValues(const System::TClosure<void(const System::UnicodeString&)>& call)
{
    for (const Graphics::TIdent& cursor : Cursors) {
        call(cursor.name);
    }
}

} // namespace Controls

namespace Typinfo
{

TTypeInfo GEnumType<Controls::TCursor>::Make()
{
    return {.Kind = tkInteger,
            .Name = u"TCursor",
            .MinValue = std::numeric_limits<short>::min(),
            .MaxValue = std::numeric_limits<short>::max()};
}

const TTypeInfo* GPropTraits<Controls::TCursor>::TypeInfo()
{
    static const auto* const type = new TTypeInfo(GEnumType<Controls::TCursor>::Make());
    return type;
}

} // namespace Typinfo

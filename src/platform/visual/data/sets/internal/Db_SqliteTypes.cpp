// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/internal/Db_SqliteTypes.h"

#include "platform/base/dates/Sysutils_IsoDate.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <algorithm>
#include <cmath>

namespace Db
{

using System::TDateTime;
using System::UnicodeString;
using System::Variant;

namespace
{

/// The number in "VARCHAR(20)"; 0 if there is none.
int SizeIn(const UnicodeString& declaration)
{
    const int open = declaration.Pos(u'(');
    const int close = declaration.Pos(u')');
    return open > 0 && close > open
               ? std::max(Sysutils::StrToIntDef(declaration.SubString(open + 1, close - open - 1), 0), 0)
               : 0;
}

bool ReadPoint(const UnicodeString& text, TDateTime& value)
{
    Sysutils::TIsoDateTime read;
    if (Sysutils::TryIsoToDateTime(text, read)) {
        value = read.value;
        return true;
    }
    // A time of day alone.
    if (Sysutils::TryIsoToDateTime(u"1899-12-30T" + text, read)) {
        value = read.value;
        return true;
    }
    return false;
}

Variant ToPoint(const Variant& value)
{
    constexpr double JulianOfDayZero = 2415018.5;
    constexpr double UnixDay = 25569;
    TDateTime point;
    if (value.IsText()) {
        return ReadPoint(value.As<UnicodeString>(), point) ? Variant(point) : value;
    }
    if (value.Type() == System::varDouble) {
        return TDateTime(value.As<double>() - JulianOfDayZero);
    }
    return value.Type() == System::varInt64 ? Variant(TDateTime(UnixDay + value.As<double>() / 86400))
                                            : value;
}

} // namespace

TFieldType TypeOfDeclaration(const UnicodeString& declaration, int& size)
{
    struct TWord
    {
        const char16_t* word;
        TFieldType type;
    };
    // The first that is found counts: "DATETIME" has "DATE" and "TIME" in it, "BIGINT" an "INT".
    static constexpr TWord Words[] = {
        {u"DATETIME", ftDateTime}, {u"TIMESTAMP", ftDateTime}, {u"DATE", ftDate},
        {u"TIME", ftTime},         {u"BOOL", ftBoolean},       {u"BIGINT", ftLargeint},
        {u"INTEGER", ftLargeint},  {u"INT8", ftLargeint},      {u"INT", ftInteger},
        {u"CLOB", ftWideMemo},     {u"MEMO", ftWideMemo},      {u"CHAR", ftWideString},
        {u"TEXT", ftWideString},   {u"BLOB", ftBlob},          {u"REAL", ftFloat},
        {u"FLOA", ftFloat},        {u"DOUB", ftFloat},         {u"NUM", ftFloat},
        {u"DEC", ftFloat}};
    const UnicodeString capitals = declaration.UpperCase();
    const auto* const found = std::find_if(std::begin(Words), std::end(Words),
                                           [&](const TWord& entry) { return capitals.Pos(entry.word) != 0; });
    const TFieldType type = found == std::end(Words) ? ftUnknown : found->type;
    size = type == ftWideString ? SizeIn(declaration) : 0;
    return type;
}

TFieldType TypeOfValue(const Variant& value)
{
    if (value.IsArray()) {
        return ftBlob;
    }
    return value.Type() == System::varInt64    ? ftLargeint
           : value.Type() == System::varDouble ? ftFloat
                                               : ftWideString;
}

Variant FromSqlite(const Variant& value, TFieldType type)
{
    if (value.IsNull()) {
        return value;
    }
    switch (type) {
    case ftDate:
    case ftTime:
    case ftDateTime:
        return ToPoint(value);
    case ftBoolean:
        return value.Type() == System::varInt64 ? Variant(value.As<System::Int64>() != 0) : value;
    default:
        return value;
    }
}

Variant ToSqlite(const Variant& value, TFieldType type)
{
    if (value.Type() != System::varDate) {
        return value;
    }
    const TDateTime point = value.As<TDateTime>();
    try {
        if (type == ftDate) {
            return Sysutils::DateToIso(point);
        }
        // The form that SQLite writes itself, so that the two compare as texts.
        UnicodeString text = Sysutils::DateTimeToIso(point);
        const int separator = text.Pos(u'T');
        const UnicodeString time = text.SubString(separator + 1);
        return type == ftTime ? time : text.SubString(1, separator - 1) + u" " + time;
    } catch (const Sysutils::EConvertError& error) {
        throw EDatabaseError(error.getMessage());
    }
}

UnicodeString QuotedName(const UnicodeString& name)
{
    UnicodeString quoted = u"\"";
    for (const char16_t unit : name.AsView()) {
        quoted += unit == u'"' ? UnicodeString(u"\"\"") : UnicodeString(unit);
    }
    return quoted + u"\"";
}

} // namespace Db

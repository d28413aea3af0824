// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/variants/System_Variant.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <climits>
#include <span>
#include <string_view>
#include <vector>

// Values of Qt and of the library, both ways.
//
//     const QString text = Interop::ToQString(list.getText());
//     const System::UTF8String name = Interop::FromQString(text);  // by way of wide text, as everywhere
//     settings.setValue("Limit", Interop::ToQVariant(limit));

namespace Interop
{

/// All units, zeros and lone surrogates among them.
inline QString ToQString(const System::UnicodeString& text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.Length()));
}

/// The characters that the bytes stand for in the code page of the text.
template <System::CodePage CP>
QString ToQString(const System::AnsiStringT<CP>& text)
{
    return ToQString(System::UnicodeString(text));
}

/// All units. As 8-bit text by the conversion of that, which puts `?` for what its code page lacks.
inline System::UnicodeString FromQString(const QString& text)
{
    return System::UnicodeString(std::u16string_view(reinterpret_cast<const char16_t*>(text.constData()),
                                                     static_cast<std::size_t>(text.size())));
}

/// The bytes as they are, also of a text in whatever code page.
inline QByteArray ToQByteArray(std::span<const System::Byte> bytes)
{
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}
template <System::CodePage CP>
QByteArray ToQByteArray(const System::AnsiStringT<CP>& text)
{
    return QByteArray(text.data(), static_cast<qsizetype>(text.Length()));
}

/// A copy of the bytes.
inline std::vector<System::Byte> FromQByteArray(const QByteArray& bytes)
{
    return std::vector<System::Byte>(bytes.begin(), bytes.end());
}

/// The bytes as a text of the code page `Text` has, whatever they mean:
/// `TextOfQByteArray<System::UTF8String>(bytes)`.
template <class Text = System::AnsiString>
Text TextOfQByteArray(const QByteArray& bytes)
{
    return Text(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

/// The local date and time, to the millisecond; not valid for a value without a date. A time that the clocks
/// leave out is moved as Qt does it.
inline QDateTime ToQDateTime(const System::TDateTime& value)
{
    System::Word year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, milliSecond = 0;
    value.DecodeDate(&year, &month, &day);
    value.DecodeTime(&hour, &minute, &second, &milliSecond);
    return month == 0 ? QDateTime()
                      : QDateTime(QDate(year, month, day), QTime(hour, minute, second, milliSecond));
}

namespace Detail
{

/// `Sysutils::EConvertError` for parts that aren't valid, and outside the years 1 to 9999.
inline System::TDateTime FromDateAndTime(const QDate& date, const QTime& time)
{
    const bool isKnown = date.isValid() && date.year() >= 1 && date.year() <= 9999;
    const auto word = [](int field) { return static_cast<System::Word>(field); };
    System::TDateTime result =
        isKnown ? System::TDateTime(word(date.year()), word(date.month()), word(date.day()))
                : System::TDateTime(System::Word(0), System::Word(0), System::Word(0));
    Sysutils::ReplaceTime(result, System::TDateTime(word(time.hour()), word(time.minute()),
                                                    word(time.second()), word(time.msec())));
    return result;
}

} // namespace Detail

/// The local date and time. `Sysutils::EConvertError` for one that isn't valid, and outside the years 1 to
/// 9999.
inline System::TDateTime FromQDateTime(const QDateTime& value)
{
    const QDateTime local = value.toLocalTime();
    return Detail::FromDateAndTime(local.date(), local.time());
}

/// The lines, without their objects.
inline QStringList ToQStringList(const Classes::TStrings& lines)
{
    QStringList list;
    list.reserve(lines.getCount());
    for (int i = 0; i < lines.getCount(); ++i) {
        list.append(ToQString(lines.getStrings(i)));
    }
    return list;
}

/// Puts the texts in place of the lines.
inline void AssignQStringList(Classes::TStrings& lines, const QStringList& list)
{
    const Classes::GUpdateScope<Classes::TStrings> update(lines);
    lines.Clear();
    for (const QString& line : list) {
        lines.Add(FromQString(line));
    }
}

namespace Detail
{

/// The elements behind some indices, dimension by dimension.
inline QVariant ArrayToQVariant(const System::Variant& array, std::vector<int>& indices);

/// The value of one that is no array.
inline QVariant ScalarToQVariant(const System::Variant& value)
{
    switch (value.Type()) {
    case System::varEmpty:
        return {};
    case System::varNull:
        return QVariant::fromValue(nullptr);
    case System::varBoolean:
        return value.As<bool>();
    case System::varShortInt:
        return QVariant::fromValue(value.As<signed char>());
    case System::varSmallint:
        return QVariant::fromValue(value.As<short>());
    case System::varInteger:
        return value.As<int>();
    case System::varInt64:
        return QVariant::fromValue(qlonglong{value.As<System::Int64>()});
    case System::varByte:
        return QVariant::fromValue(value.As<unsigned char>());
    case System::varWord:
        return QVariant::fromValue(value.As<unsigned short>());
    case System::varLongWord:
        return value.As<unsigned>();
    case System::varUInt64:
    case System::varDecimal:
        return QVariant::fromValue(qulonglong{value.As<System::UInt64>()});
    case System::varSingle:
        return value.As<float>();
    case System::varDouble:
    case System::varCurrency:
        return value.As<double>();
    case System::varDate:
        return ToQDateTime(value.As<System::TDateTime>());
    default:
        return ToQString(value.As<System::UnicodeString>());
    }
}

[[noreturn]] inline void ThrowNoVariant(const QVariant& value)
{
    const char* const name = value.metaType().name();
    throw Sysutils::EVariantError(u"No variant has the type " + System::UnicodeString(name));
}

inline System::Variant BytesToVariant(const QByteArray& bytes)
{
    if (bytes.size() > INT_MAX) {
        throw Sysutils::EVariantError(u"The bytes are more than an array has");
    }
    System::Variant array({0, static_cast<int>(bytes.size()) - 1}, System::varByte);
    std::copy(bytes.begin(), bytes.end(), array.ArrayBytes().begin());
    return array;
}

inline System::Variant FromQVariantAt(const QVariant& value, int depth);

inline System::Variant ListToVariant(const QVariant& value, int depth)
{
    if (depth > System::Variant::MaxArrayDepth) {
        ThrowNoVariant(value);
    }
    const QVariantList list = value.toList();
    std::vector<System::Variant> elements;
    elements.reserve(static_cast<std::size_t>(list.size()));
    for (const QVariant& element : list) {
        elements.push_back(FromQVariantAt(element, depth + 1));
    }
    return System::Variant::ArrayOf(elements);
}

inline System::Variant FromQVariantAt(const QVariant& value, int depth)
{
    if (!value.isValid()) {
        return {};
    }
    if (value.isNull()) {
        return System::Variant::Null();
    }
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Char:
        return value.value<char>();
    case QMetaType::SChar:
        return value.value<signed char>();
    case QMetaType::Short:
        return value.value<short>();
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::Long:
    case QMetaType::LongLong:
        return System::Int64{value.toLongLong()};
    case QMetaType::UChar:
        return value.value<unsigned char>();
    case QMetaType::UShort:
        return value.value<unsigned short>();
    case QMetaType::UInt:
        return value.toUInt();
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return System::UInt64{value.toULongLong()};
    case QMetaType::Float:
        return value.toFloat();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QChar:
    case QMetaType::QString:
        return FromQString(value.toString());
    case QMetaType::QDate:
        // Not the start of the local day, which the clocks may leave out.
        return FromDateAndTime(value.toDate(), QTime(0, 0));
    case QMetaType::QTime:
        return FromDateAndTime(QDate(1899, 12, 30), value.toTime());
    case QMetaType::QDateTime:
        return FromQDateTime(value.toDateTime());
    case QMetaType::QByteArray:
        return BytesToVariant(value.toByteArray());
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return ListToVariant(value, depth);
    default:
        ThrowNoVariant(value);
    }
}

} // namespace Detail

/// Numbers, booleans, texts and dates by their types, money as a `double`, Empty as a variant that isn't
/// valid, Null as one of `nullptr`. An array of bytes becomes a `QByteArray`, any other a list, one of
/// several dimensions a list of lists.
inline QVariant ToQVariant(const System::Variant& value)
{
    if (!value.IsArray()) {
        return Detail::ScalarToQVariant(value);
    }
    std::vector<int> indices;
    return Detail::ArrayToQVariant(value, indices);
}

/// As `ToQVariant` back: what isn't valid is Empty, what is null Null, lists are arrays of variants, dates
/// and times are dates. `Sysutils::EVariantError` for any other type and for lists nested deeper than
/// `Variant::MaxArrayDepth`, `Sysutils::EConvertError` for dates as of `FromQDateTime`.
inline System::Variant FromQVariant(const QVariant& value)
{
    return Detail::FromQVariantAt(value, 1);
}

inline QVariant Detail::ArrayToQVariant(const System::Variant& array, std::vector<int>& indices)
{
    const int dimension = static_cast<int>(indices.size()) + 1;
    const int count = array.ArrayDimCount();
    if (count == 1 && (array.Type() & System::varTypeMask) == System::varByte) {
        return ToQByteArray(array.ArrayBytes());
    }
    QVariantList list;
    const System::Int64 end = array.ArrayHighBound(dimension);
    for (System::Int64 i = array.ArrayLowBound(dimension); i <= end; ++i) {
        indices.push_back(static_cast<int>(i));
        list.append(dimension == count ? ToQVariant(array.GetElementAt(indices))
                                       : ArrayToQVariant(array, indices));
        indices.pop_back();
    }
    return list;
}

} // namespace Interop

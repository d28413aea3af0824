// SPDX-License-Identifier: MIT
#include "interop/QtValues.h"

#include "platform/base/numbers/System_Currency.h"

#include <gtest/gtest.h>

#include <QUrl>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace Interop;
using System::UnicodeString;
using System::Variant;

TEST(QtValuesTest, TextsKeepTheirUnits)
{
    const char16_t units[] = {u'a', 0, 0xD800, u'Ω', 0xDC00};
    const UnicodeString odd(std::u16string_view(units, std::size(units)));
    EXPECT_EQ(ToQString(odd).size(), 5);
    EXPECT_EQ(FromQString(ToQString(odd)), odd);
    EXPECT_EQ(FromQString(QString()), u"");
    EXPECT_TRUE(ToQString(UnicodeString()).isEmpty());
}

TEST(QtValuesTest, EightBitTextsGoByTheirCodePage)
{
    const System::AnsiString ansi("5 \xB5m");
    EXPECT_EQ(ToQString(ansi), QStringLiteral("5 µm"));
    EXPECT_EQ(ToQString(System::UTF8String(u"5 µm")), QStringLiteral("5 µm"));
    EXPECT_EQ(System::AnsiString(FromQString(QStringLiteral("µΩ"))), "\xB5?");
    EXPECT_EQ(ToQByteArray(ansi), QByteArray("5 \xB5m"));
    EXPECT_EQ(TextOfQByteArray<System::UTF8String>(QByteArray("\xC2\xB5")), UnicodeString(u"µ"));
    EXPECT_EQ(TextOfQByteArray(QByteArray("\xB5", 1)), "\xB5");
}

TEST(QtValuesTest, BytesStayAsTheyAre)
{
    const std::vector<System::Byte> bytes = {0, 255, 10};
    EXPECT_EQ(FromQByteArray(ToQByteArray(bytes)), bytes);
    EXPECT_TRUE(FromQByteArray(QByteArray()).empty());
}

TEST(QtValuesTest, DatesAreLocalAndExactToTheMillisecond)
{
    const System::TDateTime noon = System::TDateTime(2022, 2, 28) + System::TDateTime(12, 30, 5, 250);
    const QDateTime value(QDate(2022, 2, 28), QTime(12, 30, 5, 250));
    EXPECT_EQ(ToQDateTime(noon), value);
    EXPECT_EQ(ToQDateTime(FromQDateTime(value)), value);
    EXPECT_EQ(ToQDateTime(FromQDateTime(value.toUTC())), value);
    // Before day zero the fraction still counts forwards.
    EXPECT_EQ(ToQDateTime(System::TDateTime(-1.25)), QDateTime(QDate(1899, 12, 29), QTime(6, 0)));
    EXPECT_EQ(FromQDateTime(QDateTime(QDate(1899, 12, 29), QTime(6, 0))).Val, -1.25);
    EXPECT_FALSE(ToQDateTime(std::numeric_limits<double>::quiet_NaN()).isValid());
    EXPECT_THROW(FromQDateTime(QDateTime()), Sysutils::EConvertError);
    EXPECT_THROW(FromQDateTime(QDateTime(QDate(10000, 1, 1), QTime(0, 0))), Sysutils::EConvertError);
    EXPECT_THROW(FromQDateTime(QDateTime(QDate(-1, 1, 1), QTime(0, 0))), Sysutils::EConvertError);
}

TEST(QtValuesTest, TimesOfAnyKindAreTheirLocalOnes)
{
    const QDateTime noon(QDate(2022, 2, 28), QTime(12, 0), Qt::UTC);
    const QDateTime local = noon.toLocalTime();
    const System::TDateTime expected = FromQDateTime(QDateTime(local.date(), local.time(), Qt::LocalTime));
    EXPECT_EQ(FromQDateTime(noon), expected);
    EXPECT_EQ(FromQDateTime(noon.toOffsetFromUtc(5 * 3600 + 1800)), expected);
    for (const auto& [date, time] : {std::pair(QDate(1, 1, 1), QTime(0, 0, 0, 1)),
                                     {QDate(1600, 2, 29), QTime(23, 59, 59, 999)},
                                     {QDate(1899, 12, 30), QTime(0, 0)},
                                     {QDate(9999, 12, 31), QTime(23, 59, 59, 999)}}) {
        const QDateTime value(date, time);
        SCOPED_TRACE(value.toString(Qt::ISODateWithMs).toStdString());
        EXPECT_EQ(ToQDateTime(FromQDateTime(value)), value);
        EXPECT_EQ(FromQVariant(date).As<System::TDateTime>().Val,
                  FromQDateTime(QDateTime(date, QTime(0, 0))).Val);
    }
    // What isn't quite the next day is that one, as everywhere.
    EXPECT_EQ(ToQDateTime(System::TDateTime(45000.9999999999)), ToQDateTime(System::TDateTime(45001)));
}

/// The zone of the process for a scope.
class CZone
{
public:
    explicit CZone(const char* zone)
    {
        if (const char* const former = getenv("TZ")) {
            mFormer = former;
        }
        Set(zone);
    }
    ~CZone() { Set(mFormer ? mFormer->c_str() : nullptr); }
    CZone(const CZone&) = delete;
    CZone& operator=(const CZone&) = delete;

private:
    static void Set(const char* zone)
    {
        if (zone != nullptr) {
            setenv("TZ", zone, 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

    std::optional<std::string> mFormer;
};

TEST(QtValuesTest, ADayHasItsDateWhereTheClocksLeaveItsStartOut)
{
    // Midnight is left out on the second Sunday of March.
    const CZone zone("AAA5BBB,M3.2.0/0,M11.1.0/0");
    ASSERT_EQ(QDate(2022, 3, 13).startOfDay().time(), QTime(1, 0));
    EXPECT_EQ(FromQVariant(QDate(2022, 3, 13)).As<System::TDateTime>(), System::TDateTime(2022, 3, 13));
    EXPECT_EQ(FromQDateTime(QDateTime(QDate(2022, 7, 1), QTime(12, 0), Qt::UTC)),
              System::TDateTime(2022, 7, 1) + System::TDateTime(8, 0, 0, 0));
}

TEST(QtValuesTest, ListsOfTexts)
{
    Classes::TStringList lines;
    AssignQStringList(lines, {QStringLiteral("a"), QString(), QStringLiteral("Ω")});
    EXPECT_EQ(lines.getCount(), 3);
    EXPECT_EQ(lines[2], u"Ω");
    EXPECT_EQ(ToQStringList(lines), QStringList({QStringLiteral("a"), QString(), QStringLiteral("Ω")}));
    AssignQStringList(lines, {});
    EXPECT_EQ(lines.getCount(), 0);

    int changes = 0;
    Classes::TStringList unique;
    unique.setOnChange([&](System::TObject*) { ++changes; });
    unique.setSorted(true);
    unique.setDuplicates(Classes::dupError);
    changes = 0;
    EXPECT_THROW(AssignQStringList(unique, {QStringLiteral("a"), QStringLiteral("a")}),
                 Classes::EStringListError);
    EXPECT_EQ(changes, 1);
    unique.Add(u"b");
    EXPECT_EQ(changes, 2);
}

TEST(QtValuesTest, VariantsKeepTypeAndValue)
{
    const struct
    {
        Variant value;
        int type;
    } rows[] = {
        {{}, QMetaType::UnknownType},
        {Variant::Null(), QMetaType::Nullptr},
        {true, QMetaType::Bool},
        {static_cast<signed char>(-128), QMetaType::SChar},
        {static_cast<short>(-32768), QMetaType::Short},
        {std::numeric_limits<int>::min(), QMetaType::Int},
        {std::numeric_limits<System::Int64>::min(), QMetaType::LongLong},
        {static_cast<unsigned char>(255), QMetaType::UChar},
        {static_cast<unsigned short>(65535), QMetaType::UShort},
        {4294967295U, QMetaType::UInt},
        {std::numeric_limits<System::UInt64>::max(), QMetaType::ULongLong},
        {1.5F, QMetaType::Float},
        {0.1, QMetaType::Double},
        {System::TDateTime(45000.25), QMetaType::QDateTime},
        {u"Ω", QMetaType::QString},
    };
    for (const auto& [value, type] : rows) {
        SCOPED_TRACE(type);
        const QVariant converted = ToQVariant(value);
        EXPECT_EQ(converted.metaType().id(), type);
        const Variant back = FromQVariant(converted);
        EXPECT_EQ(back.Type(), value.Type());
        EXPECT_TRUE(back == value);
    }
    EXPECT_EQ(ToQVariant(System::Currency(12.5)), QVariant(12.5));
    EXPECT_EQ(ToQVariant(System::AnsiString("\xB5")), QVariant(QStringLiteral("µ")));
}

TEST(QtValuesTest, ArraysAreListsAndBytes)
{
    const std::vector<Variant> row = {1, u"b", Variant::Null()};
    const QVariant list = ToQVariant(Variant::ArrayOf(row));
    EXPECT_EQ(list.toList().size(), 3);
    EXPECT_TRUE(FromQVariant(list) == Variant::ArrayOf(row));

    Variant table({1, 2, 5, 7}, System::varInteger);
    table.PutElement(42, 2, 6);
    const QVariantList rows = ToQVariant(table).toList();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[1].toList(), QVariantList({0, 42, 0}));

    const QByteArray bytes("\0\xFF", 2);
    const Variant array = FromQVariant(bytes);
    EXPECT_EQ(array.Type(), System::varArray | System::varByte);
    EXPECT_EQ(ToQVariant(array), QVariant(bytes));
    EXPECT_EQ(ToQVariant(FromQVariant(QByteArray())), QVariant(QByteArray()));
    EXPECT_EQ(FromQVariant(QStringList{QStringLiteral("a")}).GetElement(0).As<UnicodeString>(), u"a");
    EXPECT_TRUE(ToQVariant(FromQVariant(QVariantList())).toList().isEmpty());

    constexpr int last = std::numeric_limits<int>::max();
    const Variant highest({last, last}, System::varInteger);
    EXPECT_EQ(ToQVariant(highest).toList(), QVariantList{0});
}

TEST(QtValuesTest, OtherVariantsOfQt)
{
    EXPECT_EQ(FromQVariant(QDate(2022, 2, 28)).As<System::TDateTime>(), System::TDateTime(2022, 2, 28));
    EXPECT_EQ(FromQVariant(QTime(6, 0)).As<System::TDateTime>(), System::TDateTime(6, 0, 0, 0));
    EXPECT_TRUE(FromQVariant(QVariant(QMetaType(QMetaType::QString))).IsNull());
    EXPECT_THROW(FromQVariant(QUrl(QStringLiteral("file:///a"))), Sysutils::EVariantError);
    EXPECT_TRUE(FromQVariant(QVariant(QString())) == Variant(u""));
    EXPECT_EQ(FromQVariant(QVariant::fromValue('a')).As<int>(), 'a');
    EXPECT_EQ(FromQVariant(QVariant(QChar(u'Ω'))).As<UnicodeString>(), u"Ω");
    EXPECT_EQ(FromQVariant(QVariant::fromValue(-5L)).As<System::Int64>(), -5);
    EXPECT_EQ(FromQVariant(QVariant::fromValue(~0UL)).As<System::UInt64>(), ~System::UInt64{0});
    EXPECT_EQ(FromQVariant(QTime(23, 59, 59, 999)).As<System::TDateTime>(),
              System::TDateTime(23, 59, 59, 999));
    EXPECT_THROW(FromQVariant(QTime()), Sysutils::EConvertError);
    EXPECT_THROW(FromQVariant(QDate()), Sysutils::EConvertError);
    EXPECT_THROW(FromQVariant(QVariantMap()), Sysutils::EVariantError);
    EXPECT_THROW(FromQVariant(QDateTime()), Sysutils::EConvertError);

    QVariant deep = 1;
    for (int i = 0; i < 100'000; ++i) {
        deep = QVariant(QVariantList{deep});
    }
    EXPECT_THROW(FromQVariant(deep), Sysutils::EVariantError);
    // Taken apart from outside, since Qt itself nests as deep to destroy it.
    while (deep.metaType().id() == QMetaType::QVariantList) {
        deep = QVariant(deep.toList().constFirst());
    }
}

} // namespace

// SPDX-License-Identifier: MIT
// Values of all kinds that the debugger shows; expected.txt says how.
#include <TRS8_BTL/foundation/UTL_CVariant.h>
#include <TRS8_BTL/foundation/UTL_CVariants.h>
#include <TRS8_BTL/foundation/UTL_Flags.h>
#include <TRS8_BTL/foundation/UTL_STR_SimpleString.h>
#include <TRS8_BTL/foundation/UTL_STR_String.h>
#include <TRS8_BTL/foundation/vectors/UTL_SV_BoolVector.h>
#include <TRS8_BTL/foundation/vectors/UTL_SV_DoubleVector.h>
#include <TRS8_BTL/foundation/vectors/UTL_SV_GSimpleVector.h>
#include <TRS8_BTL/foundation/vectors/UTL_SV_Int64Vector.h>
#include <TRS8_BTL/foundation/vectors/UTL_SV_IntVector.h>
#include <TRS8_BTL/platform/base/System_DynamicArray.h>
#include <TRS8_BTL/platform/base/System_Set.h>
#include <TRS8_BTL/platform/base/dates/System_DateTime.h>
#include <TRS8_BTL/platform/base/numbers/System_Currency.h>
#include <TRS8_BTL/platform/runtime/classes/Classes_StringList.h>
#include <TRS8_BTL/platform/runtime/variants/Variants.h>
#include <TRS8_BTL/text/editing/BTL_STR_String.h>
#include <TRS8_BTL/text/lists/BTL_STR_I64StrMap.h>
#include <TRS8_BTL/text/lists/BTL_STR_IntSet.h>
#include <TRS8_BTL/text/lists/BTL_STR_StrSet.h>
#include <TRS8_BTL/text/lists/BTL_STR_StrStrMap.h>
#include <TRS8_BTL/text/lists/BTL_STR_StringInt32Map.h>
#include <TRS8_BTL/text/lists/BTL_STR_StringList.h>
#include <TRS8_BTL/text/lists/BTL_STR_StringPairs.h>
#include <TRS8_BTL/text/lists/BTL_STR_StringSet.h>
#include <TRS8_BTL/text/variants/BTL_VARI_CVariants.h>
#include <TRS8_BTL/text/variants/BTL_VARI_Maps.h>
#include <TRS8_BTL/text/variants/BTL_VARI_NameValuePairs.h>

#include <cmath>

namespace
{

enum EColour
{
    Red = 3,
    Green,
    Blue
};

class CReadings : public UTL::CIntVector
{
};

void Stop() {}

struct TTexts
{
    System::UnicodeString wide = u"12,5 k\u03a9";
    System::UnicodeString emptyWide;
    System::UnicodeString withZero = System::UnicodeString(u"a\0b", 3);
    System::AnsiString narrow = "caf\xe9";
    System::UTF8String utf8 = System::UTF8String(u"caf\u00e9");
    System::AnsiString emptyNarrow;
    UTL::CSimpleString simple = "simple";
    UTL::CSimpleString emptySimple;
    UTL::CString standard = "standard";
    BTL::CAnsiString value = System::AnsiString("value");
};

struct TValues
{
    System::TDateTime date{2026, 2, 1};
    System::TDateTime time{static_cast<System::Word>(9), 5, 7, 250};
    System::TDateTime moment = System::TDateTime(2026, 2, 1).Val + 0.5;
    System::TDateTime early = -1.25;
    System::TDateTime lateness = System::TDateTime(2026, 2, 1).Val + 1 - 1e-10;
    System::TDateTime noDate = std::nan("");
    System::Currency price = 12.5;
    System::Currency debt = -0.25;
    System::Set<EColour, Red, Blue> colours = System::Set<EColour, Red, Blue>() << Red << Blue;
    System::Set<int, 1, 200> numbers = System::Set<int, 1, 200>() << 1 << 64 << 130;
    System::Set<EColour, Red, Blue> noColours;
    UTL::CFlags flags = UTL::CFlags(UTL::CFlags(9, true), 11);
    UTL::CFlags noFlags;
};

struct TVariants
{
    System::Variant empty;
    System::Variant null = Variants::Null();
    System::Variant number = 7;
    System::Variant huge = System::UInt64{18446744073709551615U};
    System::Variant ratio = 0.5;
    System::Variant yes = true;
    System::Variant text = System::UnicodeString(u"text");
    System::Variant bytes = System::AnsiString("bytes");
    System::Variant date = System::TDateTime(2026, 2, 1);
    System::Variant money = System::Currency(0.75);
    System::Variant array = Variants::VarArrayCreate({0, 1}, System::varInteger);
    UTL::CVariant smallNull;
    UTL::CVariant smallYes = true;
    UTL::CVariant smallNumber = 7;
    UTL::CVariant smallLong = System::Int64{1} << 40;
    UTL::CVariant smallRatio = 0.5;
    UTL::CVariant smallDate = System::TDateTime(2026, 2, 1);
    UTL::CVariant smallNarrow = "narrow";
    UTL::CVariant smallWide = u"wide";
    UTL::CVariant smallEmpty = u"";
    UTL::CVariants list;
    UTL::CVariant smallArray;
};

struct TRows
{
    UTL::CIntVector ints;
    UTL::CInt64Vector longs;
    UTL::CDoubleVector doubles;
    UTL::CBoolVector bools;
    UTL::GSimpleVector<char> chars;
    UTL::CIntVector noInts;
    CReadings readings;
    System::DynamicArray<int> array{4, 5};
    System::DynamicArray<System::UnicodeString> texts{u"x"};
    System::DynamicArray<int> noItems;
    BTL::CVariants variants;
};

struct TLists
{
    Classes::TStringList lines;
    Classes::TStringList noLines;
    BTL::CStringList list;
    BTL::CSortedStringList sorted{Classes::dupIgnore};
    BTL::CStrSet set;
    BTL::CStringSet stringSet;
    BTL::CIntSet intSet;
    BTL::CStringPairs pairs;
    BTL::CStrStrMap map;
    BTL::CStrStrMapEx orderedMap;
    BTL::CStringInt32Map numberMap;
    BTL::CStringKeyMap keyMap;
    BTL::CI64StrMap textMap;
    BTL::CStrVariantMap variantMap;
    BTL::CIntToVarMap numberVariantMap;
    BTL::CNameValuePairs namedValues;
};

} // namespace

int main()
{
    TTexts texts;
    TValues values;
    TVariants variants;
    variants.array.PutElement(5, 0);
    variants.array.PutElement(6, 1);
    variants.list << 1 << u"a";
    variants.smallArray.SetItems(variants.array);

    TRows rows;
    for (const int item : {1, -2, 3}) {
        rows.ints.push_back(item);
        rows.longs.push_back(System::Int64{item} << 32);
        rows.doubles.push_back(item / 2.0);
        rows.bools.push_back(item > 0);
        rows.chars.push_back(static_cast<char>('b' + item));
        rows.readings.push_back(item);
        rows.variants.push_back(item);
    }

    TLists lists;
    lists.lines.Add(u"first");
    lists.lines.Add(u"second");
    lists.list.Add(u"only");
    lists.sorted.Add(u"b");
    lists.sorted.Add(u"a");
    lists.set.Add(u"member");
    lists.stringSet.insert(u"one");
    lists.intSet.insert(2);
    lists.pairs.Add(u"left", u"right");
    lists.map.Add(u"key", u"text");
    lists.orderedMap.Add(u"key", u"text");
    lists.numberMap.Add(u"key", 5);
    lists.keyMap.Add(u"key", 6);
    lists.textMap.Add(7, u"seven");
    lists.variantMap[u"key"] = 1.5;
    lists.numberVariantMap[3] = System::UnicodeString(u"three");
    lists.namedValues.Add(u"name", 8);
    const Classes::TStrings& strings = lists.lines;
    Classes::TStrings* const pointer = &lists.lines;
    Stop();
    return strings.getCount() == pointer->getCount() && texts.emptyWide.IsEmpty() &&
                   values.noFlags.getCount() == 0
               ? 0
               : 1;
}

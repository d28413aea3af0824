// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"
#include "platform/base/numbers/System_Currency.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Controls_Cursor.h"
#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Font.h"

#include <string>

namespace PropertyValues
{

enum TShape
{
    shBelow = -1,
    shRound,
    shSquare
};

class TColumn : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TColumn, Classes::TCollectionItem)

public:
    explicit TColumn(Classes::TCollection* collection = nullptr) : TCollectionItem(collection) {}

    System::UnicodeString Caption;
    int Width = 0;
};

/// An object with properties of all kinds.
class TGauge : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TGauge, Classes::TPersistent)

public:
    ~TGauge() override { delete Inner; }

    int Value = 0;
    unsigned char Small = 0;
    signed char Short = 0;
    unsigned Large = 0;
    System::Int64 Ticks = 0;
    Graphics::TColor Color = Graphics::clRed;
    Controls::TCursor Cursor = Controls::crDefault;
    char Mark = 'a';
    System::WideChar WideMark = u'a';
    bool Active = false;
    TShape Shape = shRound;
    float Single = 0;
    double Double = 0;
    long double Extended = 0;
    System::Currency Price;
    System::TDateTime Date;
    System::UnicodeString Title;
    System::AnsiString Narrow;
    std::string Utf8;
    System::Variant Any;
    System::Set<TShape, shRound, shSquare> Shapes;
    Classes::TNotifyEvent OnChange;
    TGauge* Inner = nullptr;
    Classes::TStringList List;
    Classes::TCollection Columns{System::ClassOf<TColumn>()};

    Classes::TStrings* getLines() const { return const_cast<Classes::TStringList*>(&List); }
    Classes::TCollection* getColumns() const { return const_cast<Classes::TCollection*>(&Columns); }
    Graphics::TFont* getFont() const { return &mFont; }

private:
    mutable Graphics::TFont mFont;
};

} // namespace PropertyValues

template <>
struct Typinfo::GEnumType<PropertyValues::TShape>
{
    static TTypeInfo Make() { return EnumType(u"TShape", {u"shBelow", u"shRound", u"shSquare"}, -1); }
};

namespace PropertyValues
{

inline System::TMetaClass* TColumn::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TColumn>(u"TColumn")
                                                  .Property(u"Caption", &TColumn::Caption)
                                                  .Property(u"Width", &TColumn::Width)
                                                  .Build();
    return record;
}

inline System::TMetaClass* TGauge::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGauge>(u"TGauge")
                                                  .Property(u"Value", &TGauge::Value)
                                                  .Property(u"Small", &TGauge::Small)
                                                  .Property(u"Short", &TGauge::Short)
                                                  .Property(u"Large", &TGauge::Large)
                                                  .Property(u"Ticks", &TGauge::Ticks)
                                                  .Property(u"Color", &TGauge::Color)
                                                  .Property(u"Cursor", &TGauge::Cursor)
                                                  .Property(u"Mark", &TGauge::Mark)
                                                  .Property(u"WideMark", &TGauge::WideMark)
                                                  .Property(u"Active", &TGauge::Active)
                                                  .Property(u"Shape", &TGauge::Shape)
                                                  .Property(u"Single", &TGauge::Single)
                                                  .Property(u"Double", &TGauge::Double)
                                                  .Property(u"Extended", &TGauge::Extended)
                                                  .Property(u"Price", &TGauge::Price)
                                                  .Property(u"Date", &TGauge::Date)
                                                  .Property(u"Title", &TGauge::Title)
                                                  .Property(u"Narrow", &TGauge::Narrow)
                                                  .Property(u"Utf8", &TGauge::Utf8)
                                                  .Property(u"Any", &TGauge::Any)
                                                  .Property(u"Shapes", &TGauge::Shapes)
                                                  .Property(u"OnChange", &TGauge::OnChange)
                                                  .Property(u"Inner", &TGauge::Inner)
                                                  .Property(u"Lines", &TGauge::getLines)
                                                  .Property(u"Columns", &TGauge::getColumns)
                                                  .Property(u"Font", &TGauge::getFont)
                                                  .Build();
    return record;
}

} // namespace PropertyValues

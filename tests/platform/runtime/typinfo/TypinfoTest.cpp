// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace System;
using namespace Typinfo;

namespace
{

enum class Side
{
    Left,
    Right
};

using Sides = Set<Side, Side::Left, Side::Right>;

} // namespace

template <>
struct Typinfo::GEnumType<Side>
{
    static TTypeInfo Make() { return EnumType(u"Side", {u"sdLeft", u"sdRight"}); }
};

namespace
{

const TTypeInfo* ColorType()
{
    static const TTypeInfo info = [] {
        TTypeInfo color{.Kind = tkInteger, .Name = u"TColor"};
        color.MinValue = INT32_MIN;
        color.MaxValue = INT32_MAX;
        return color;
    }();
    return &info;
}

class Widget : public Classes::TPersistent
{
    TRS8_BTL_CLASS(Widget, Classes::TPersistent)

public:
    int getWidth() const { return mWidth; }
    void setWidth(int width) { mWidth = width; }
    const UnicodeString& getCaption() const { return mCaption; }
    void setCaption(const UnicodeString& caption) { mCaption = caption; }
    Widget* getNext() const { return mNext; }
    void Click(TObject*) { ++clicks; }
    int Other(int value) { return value; }

    Side side = Side::Left;
    Sides sides;
    bool visible = true;
    char letter = 'a';
    Word small = 0;
    int color = 0;
    Int64 big = 0;
    double scale = 1;
    float single = 1;
    AnsiString narrow;
    TDateTime start;
    Currency price;
    Variant content;
    Classes::TStrings* lines = nullptr;
    Widget* next = nullptr;
    Classes::TNotifyEvent onClick;
    int clicks = 0;

private:
    int mWidth = 0;
    UnicodeString mCaption;
    Widget* mNext = nullptr;
};

TMetaClass* Widget::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<Widget>(u"Widget")
            .Property(u"Width", &Widget::getWidth, &Widget::setWidth, {.defaultValue = 7})
            .Property(u"Caption", &Widget::getCaption, &Widget::setCaption)
            .Property(u"Self", &Widget::getNext)
            .Property(u"Side", &Widget::side)
            .Property(u"Sides", &Widget::sides)
            .Property(u"Visible", &Widget::visible)
            .Property(u"Letter", &Widget::letter)
            .Property(u"Small", &Widget::small)
            .Property(u"Color", &Widget::color, {.type = &ColorType})
            .Property(u"Big", &Widget::big)
            .Property(u"Scale", &Widget::scale)
            .Property(u"Single", &Widget::single)
            .Property(u"Narrow", &Widget::narrow)
            .Property(u"Start", &Widget::start)
            .Property(u"Price", &Widget::price)
            .Property(u"Content", &Widget::content)
            .Property(u"Lines", &Widget::lines)
            .Property(u"Next", &Widget::next)
            .Property(u"OnClick", &Widget::onClick)
            .Method(u"Click", &Widget::Click)
            .Method(u"Other", &Widget::Other)
            .Build();
    return record;
}

/// Publishes one more property, and one of its parent's in another way.
class Button : public Widget
{
    TRS8_BTL_CLASS(Button, Widget)

public:
    int getFixed() const { return 9; }
    int down = 0;
};

TMetaClass* Button::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Button>(u"Button")
                                          .Property(u"Down", &Button::down)
                                          .Property(u"WIDTH", &Button::getFixed)
                                          .Build();
    return record;
}

TEST(TypinfoTest, KnowsKindAndTypeOfEachProperty)
{
    struct
    {
        const WideChar* name;
        TTypeKind kind;
        const WideChar* type;
    } const cases[] = {
        {u"width", tkInteger, u"Integer"},
        {u"CAPTION", tkUString, u"string"},
        {u"Self", tkClass, u"Widget"},
        {u"Side", tkEnumeration, u"Side"},
        {u"Sides", tkSet, u"Set"},
        {u"Visible", tkEnumeration, u"Boolean"},
        {u"Letter", tkChar, u"AnsiChar"},
        {u"Small", tkInteger, u"Word"},
        {u"Color", tkInteger, u"TColor"},
        {u"Big", tkInt64, u"Int64"},
        {u"Scale", tkFloat, u"Double"},
        {u"Single", tkFloat, u"Single"},
        {u"Narrow", tkLString, u"AnsiString"},
        {u"Start", tkFloat, u"TDateTime"},
        {u"Price", tkFloat, u"Currency"},
        {u"Content", tkVariant, u"Variant"},
        {u"Lines", tkClass, u"TStrings"},
        {u"OnClick", tkMethod, u"TNotifyEvent"},
    };
    const Widget widget;
    for (const auto& test : cases) {
        const TPropInfo* info = GetPropInfo(&widget, test.name);
        ASSERT_NE(info, nullptr) << UnicodeString(test.name);
        EXPECT_EQ(info->getKind(), test.kind) << UnicodeString(test.name);
        EXPECT_EQ(info->getPropType()->Name, test.type);
    }
    EXPECT_EQ(GetPropInfo(&widget, u"Width")->getDefault(), 7);
    EXPECT_EQ(GetPropInfo(&widget, u"Small")->getDefault(), std::nullopt);
    EXPECT_EQ(PropType(&widget, u"Missing"), tkUnknown);
    EXPECT_FALSE(IsPublishedProp(&widget, u"Missing"));
    EXPECT_FALSE(IsPublishedProp(static_cast<TMetaClass*>(nullptr), u"Width"));
}

TEST(TypinfoTest, KnowsAPropertyAtItsDefault)
{
    Widget widget;
    const TPropInfo* const width = GetPropInfo(&widget, u"Width");
    SetOrdProp(&widget, width, 7);
    EXPECT_TRUE(IsDefaultProp(&widget, width));
    SetOrdProp(&widget, width, 8);
    EXPECT_FALSE(IsDefaultProp(&widget, width));
    EXPECT_FALSE(IsDefaultProp(&widget, GetPropInfo(&widget, u"Small"))) << "it has none";
    EXPECT_FALSE(IsDefaultProp(&widget, nullptr));
}

TEST(TypinfoTest, ListsTheParentsPropertiesFirst)
{
    const auto parents = GetPropList(ClassOf<Widget>());
    const auto list = GetPropList(ClassOf<Button>());
    ASSERT_EQ(list.size(), parents.size() + 1);
    EXPECT_EQ(list.back()->getName(), u"Down");
    // What the class describes again stands where the parent had it.
    EXPECT_EQ(list.front()->getName(), u"WIDTH");
    EXPECT_EQ(GetPropInfo(ClassOf<Button>(), u"width"), list.front());
    EXPECT_FALSE(list.front()->CanWrite());
    EXPECT_EQ(GetPropInfo(ClassOf<Button>(), u"Side"), GetPropInfo(ClassOf<Widget>(), u"Side"));

    const auto sorted = GetPropList(ClassOf<Button>(), true);
    EXPECT_EQ(sorted.front()->getName(), u"Big");
    EXPECT_EQ(sorted.back()->getName(), u"WIDTH");
    EXPECT_TRUE(GetPropList(static_cast<TObject*>(nullptr)).empty());
}

TEST(TypinfoTest, ReadsAndWritesOrdinals)
{
    Widget widget;
    struct
    {
        const WideChar* name;
        Int64 good;
        Int64 bad;
    } const cases[] = {
        {u"Width", -5, Int64{INT32_MAX} + 1},
        {u"Side", 1, -1},
        {u"Sides", 3, 4},
        {u"Visible", 0, 2},
        {u"Letter", 0xE4, 256},
        {u"Small", 65535, -1},
        {u"Color", 0xFF, Int64{1} << 40},
    };
    for (const auto& test : cases) {
        SetOrdProp(&widget, test.name, test.good);
        EXPECT_THROW(SetOrdProp(&widget, test.name, test.bad), EPropertyConvertError);
        EXPECT_EQ(GetOrdProp(&widget, test.name), test.good) << UnicodeString(test.name);
        EXPECT_EQ(GetInt64Prop(&widget, test.name), test.good);
    }
    EXPECT_EQ(widget.side, Side::Right);
    SetOrdProp(&widget, u"Sides", 2);
    EXPECT_EQ(widget.sides, Sides() << Side::Right);
    SetInt64Prop(&widget, u"Big", INT64_MIN);
    EXPECT_EQ(GetInt64Prop(&widget, u"Big"), INT64_MIN);
}

TEST(TypinfoTest, ReadsAndWritesTextsAndFloats)
{
    Widget widget;
    const UnicodeString text = UnicodeString(u"ä") + UnicodeString(u"\0x", 2);
    SetStrProp(&widget, u"Caption", text);
    EXPECT_EQ(GetStrProp(&widget, u"Caption"), text);
    SetStrProp(&widget, u"Narrow", text);
    EXPECT_EQ(widget.narrow.Length(), 3);
    EXPECT_EQ(GetStrProp(&widget, u"Narrow"), text);
    SetFloatProp(&widget, u"Scale", 0.1);
    EXPECT_EQ(static_cast<double>(GetFloatProp(&widget, u"Scale")), 0.1);
    SetFloatProp(&widget, u"Single", NAN);
    EXPECT_TRUE(std::isnan(widget.single));
}

TEST(TypinfoTest, ReadsAndWritesDatesMoneyAndVariants)
{
    Widget widget;
    SetFloatProp(&widget, u"Start", 1.25L);
    EXPECT_EQ(widget.start.Val, 1.25);
    EXPECT_EQ(GetFloatProp(&widget, u"Start"), 1.25L);
    widget.price = Currency::OfUnits(4611686018427387905);
    SetFloatProp(&widget, u"Price", GetFloatProp(&widget, u"Price"));
    EXPECT_EQ(widget.price.Val, 4611686018427387905);
    EXPECT_THROW(SetFloatProp(&widget, u"Price", 1e16L), Sysutils::EIntOverflow);

    SetVariantProp(&widget, u"Content", u"ä");
    EXPECT_EQ(GetVariantProp(&widget, u"Content"), u"ä");
    SetVariantProp(&widget, u"Content", Variant({0, 1}, varByte));
    EXPECT_EQ(widget.content.Type(), varArray | varByte);
    EXPECT_THROW(GetVariantProp(&widget, u"Start"), EPropertyError);
    EXPECT_THROW(GetFloatProp(&widget, u"Content"), EPropertyError);
}

TEST(TypinfoTest, HoldsObjectsToTheirClass)
{
    Widget widget;
    Button button;
    Classes::TStringList list;
    SetObjectProp(&widget, u"Next", &button);
    EXPECT_EQ(GetObjectProp(&widget, u"Next"), &button);
    EXPECT_EQ(GetOrdProp(&widget, u"Next"),
              static_cast<Int64>(reinterpret_cast<std::intptr_t>(static_cast<TObject*>(&button))));
    EXPECT_THROW(SetObjectProp(&widget, u"Next", &list), EPropertyConvertError);
    EXPECT_EQ(widget.next, &button);
    SetObjectProp(&widget, u"Lines", &list);
    EXPECT_EQ(widget.lines, &list);
    SetObjectProp(&widget, u"Lines", nullptr);
    EXPECT_EQ(widget.lines, nullptr);
    EXPECT_THROW(SetOrdProp(&widget, u"Next", 0), EPropertyError);
}

TEST(TypinfoTest, BindsMethodsFoundByName)
{
    Widget widget;
    SetMethodProp(&widget, u"OnClick", TMethod::Of(widget.MethodAddress(u"Click"), &widget));
    widget.onClick(&widget);
    EXPECT_EQ(widget.clicks, 1);
    EXPECT_EQ(widget.MethodName(GetMethodProp(&widget, u"OnClick").Code), u"Click");

    const TMethod other = TMethod::Of(widget.MethodAddress(u"Other"), &widget);
    EXPECT_THROW(SetMethodProp(&widget, u"OnClick", other), EPropertyConvertError);
    SetMethodProp(&widget, u"OnClick", {});
    EXPECT_FALSE(widget.onClick);
}

TEST(TypinfoTest, RaisesWhereKindOrObjectMisfit)
{
    Widget widget;
    Button button;
    EXPECT_THROW(GetOrdProp(&widget, u"Missing"), EPropertyError);
    EXPECT_THROW(GetOrdProp(&widget, u"Caption"), EPropertyError);
    EXPECT_THROW(GetStrProp(&widget, u"Width"), EPropertyError);
    EXPECT_THROW(GetFloatProp(&widget, u"Width"), EPropertyError);
    EXPECT_THROW(GetMethodProp(&widget, u"Width"), EPropertyError);
    EXPECT_THROW(SetOrdProp(&button, u"Width", 1), EPropertyError) << "read-only";
    EXPECT_THROW(GetOrdProp(&widget, static_cast<TPropInfo*>(nullptr)), EPropertyError);
    EXPECT_THROW(GetOrdProp(nullptr, u"Width"), EPropertyError);
    EXPECT_THROW(GetOrdProp(&widget, GetPropInfo(&button, u"Down")), EPropertyError) << "another class";
    EXPECT_THROW(GetOrdProp(nullptr, GetPropInfo(&button, u"Down")), EPropertyError);
}

TEST(TypinfoTest, NamesEnumerations)
{
    const TTypeInfo* side = TypeInfoOf<Side>();
    EXPECT_EQ(GetEnumName(side, 1), u"sdRight");
    EXPECT_EQ(GetEnumName(side, 2), u"");
    EXPECT_EQ(GetEnumName(side, -1), u"");
    EXPECT_EQ(GetEnumValue(side, u"SDRIGHT"), 1);
    EXPECT_EQ(GetEnumValue(side, u"right"), -1);
    EXPECT_EQ(GetEnumName(TypeInfoOf<bool>(), 1), u"True");
    EXPECT_EQ(GetEnumValue(TypeInfoOf<bool>(), u"false"), 0);
    EXPECT_EQ(GetEnumValue(nullptr, u"x"), -1);
}

} // namespace

// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Controls_Cursor.h"

#include <gtest/gtest.h>

namespace
{

using namespace Controls;
using System::UnicodeString;

TEST(ControlsCursorTest, NamesShapes)
{
    for (const auto& [cursor, name] : {std::pair<int, const char16_t*>(0, u"crDefault"),
                                       {-11, u"crHourGlass"},
                                       {-19, u"crAppStart"},
                                       {-21, u"crHandPoint"},
                                       {-22, u"crSizeAll"}}) {
        SCOPED_TRACE(System::ToUtf8(name));
        UnicodeString ident;
        EXPECT_TRUE(CursorToIdent(cursor, ident));
        EXPECT_EQ(ident, name);
        int found = 99;
        EXPECT_TRUE(IdentToCursor(UnicodeString(name).LowerCase(), found));
        EXPECT_EQ(found, cursor);
    }
    UnicodeString ident = u"kept";
    EXPECT_FALSE(CursorToIdent(5, ident));
    EXPECT_EQ(ident, u"kept");
    int cursor = 7;
    EXPECT_FALSE(IdentToCursor(u"crOwn", cursor));
    EXPECT_EQ(cursor, 7);
}

TEST(ControlsCursorTest, ReadsAndWritesNumbers)
{
    EXPECT_EQ(CursorToString(TCursor(5)), u"5");
    EXPECT_EQ(CursorToString(crNo), u"crNo");
    EXPECT_EQ(StringToCursor(u"crSize"), crSizeAll);
    EXPECT_EQ(StringToCursor(u"-20"), crHelp);
    EXPECT_THROW(StringToCursor(u"hand"), Sysutils::EConvertError);
    EXPECT_THROW(StringToCursor(u"70000"), Sysutils::EConvertError);
    EXPECT_EQ(Typinfo::TypeInfoOf<TCursor>()->Name, u"TCursor");
    EXPECT_EQ(Typinfo::TypeInfoOf<TCursor>()->Kind, Typinfo::tkInteger);
}

} // namespace

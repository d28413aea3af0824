// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormFile.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

using namespace Classes;
using namespace FilerTest;
using System::UnicodeString;
using testing::HasSubstr;
using namespace std::string_literals;
using namespace std::string_view_literals;

namespace
{

/// What a resource of the name has in front of a form of `size` bytes.
std::string HeadOf(const std::string& name, std::size_t size)
{
    return "\xFF\x0A\0"s + name + "\0\x30\x10"s + static_cast<char>(size) + "\0\0\0"s;
}

TEST(FormFileTest, AComponentGoesToAStreamAndComesBack)
{
    RegisterClasses();
    const auto sheet =
        SheetOf("object Main: TSheet\n  Width = 5\n  object A: TBox\n    Caption = 'a'\n  end\nend");
    const Support::TempFolder folder;
    TFileStream file(folder.Path() / "forms", fmCreate);
    file.WriteComponent(sheet.get());
    file.WriteComponentRes(u"Main", sheet.get());
    file.WriteBuffer("rest", 4);

    file.setPosition(0);
    TSheet copy;
    EXPECT_EQ(file.ReadComponent(&copy), &copy);
    EXPECT_EQ(copy.Width, 5);
    EXPECT_EQ(static_cast<TBox*>(copy.FindComponent(u"A"))->Caption, u"a");
    const std::unique_ptr<TComponent> made(file.ReadComponentRes(nullptr));
    EXPECT_EQ(made->ClassName(), u"TSheet");
    EXPECT_EQ(made->GetComponentCount(), 1);
    char rest[4];
    file.ReadBuffer(rest, sizeof rest);
    EXPECT_EQ(std::string(rest, sizeof rest), "rest");
}

TEST(FormFileTest, AResourceHasNameAndSizeInFront)
{
    TBox box;
    box.Width = 3;
    TBox ancestor;
    TMemoryStream form;
    form.WriteDescendent(&box, &ancestor);
    TMemoryStream resource;
    resource.WriteDescendentRes(u"Box\u00E4", &box, &ancestor);
    EXPECT_EQ(resource.AsView(), HeadOf("BOX\xC3\x84", form.AsView().size()) + std::string(form.AsView()));
    EXPECT_THAT(Decompiled(form.AsView()), HasSubstr("inherited"));
}

TEST(FormFileTest, BadNamesAndNullsWriteNothing)
{
    TBox box;
    TMemoryStream stream;
    for (const UnicodeString& name :
         {UnicodeString(), UnicodeString(u"A\0B"sv), UnicodeString(std::u16string(256, u'A'))}) {
        EXPECT_THROW(stream.WriteComponentRes(name, &box), EWriteError);
    }
    EXPECT_THROW(stream.WriteComponent(nullptr), EWriteError);
    EXPECT_THROW(stream.WriteComponentRes(u"A", nullptr), EWriteError);
    EXPECT_EQ(stream.getSize(), 0);
    stream.WriteComponentRes(UnicodeString(std::u16string(255, u'A')), &box);
    stream.setPosition(0);
    stream.ReadResHeader();
    EXPECT_EQ(stream.getPosition(), 3 + 255 + 1 + 6);
}

TEST(FormFileTest, WhatIsNoResourceStays)
{
    const std::string head = HeadOf("NAME", 0);
    for (const std::string& bytes :
         {""s, "TPF0"s, head.substr(0, 2), head.substr(0, 6), head.substr(0, head.size() - 1), HeadOf("", 0),
          HeadOf(std::string(256, 'A'), 0), "\xFF\x0A\x01"s + head.substr(3)}) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        const auto stream = StreamOf("12" + bytes);
        stream->setPosition(2);
        EXPECT_THROW(stream->ReadResHeader(), EInvalidImage);
        EXPECT_EQ(stream->getPosition(), 2);
    }
}

} // namespace

// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"

#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using System::UnicodeString;

const UnicodeString Opening =
    u"Ein interner Fehler ist aufgetreten.\nBitte wenden Sie sich an den Hersteller.\n";
const UnicodeString Fault = Opening + u"\nUTL_SV_GSimpleVector.hpp\nLine 386";

void Throw()
{
    UTL::THROW_XAssert("", "UTL_SV_GSimpleVector.hpp", 386);
}

TEST(AssertTest, AsksAndGoesOnAfterNo)
{
    Support::ScriptedBoxes boxes({IDNO});
    EXPECT_NO_THROW(Throw());
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, Fault + u"\n\n Throw Assertion ?");
    EXPECT_EQ(shown[0].box.caption, u"Internal error");
    EXPECT_EQ(shown[0].box.flags, 4U);
}

TEST(AssertTest, RaisesAfterYesWithTheTextWithoutTheQuestion)
{
    Support::ScriptedBoxes boxes({IDYES, IDYES});
    try {
        Throw();
        FAIL() << "nothing was raised";
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.what(), Fault);
        EXPECT_EQ(System::FromUtf8(static_cast<const std::exception&>(fault).what()), Fault);
        EXPECT_EQ(fault.getMessage(), Fault);
        EXPECT_EQ(fault.getFile(), "UTL_SV_GSimpleVector.hpp");
        EXPECT_EQ(fault.getLine(), 386);
        EXPECT_TRUE(fault.getExpression().IsEmpty());
    }
    EXPECT_THROW(UTL::THROW_XAssert(u"x", "f", 1), Sysutils::Exception);
}

TEST(AssertTest, LosesWhatTheCodePageLacks)
{
    const UnicodeString text = UTL::XAssert::Msg(u"größer → 💡", "a.cpp", -1);
    EXPECT_EQ(text, Opening + u"größer ? ?\na.cpp\nLine -1");
    EXPECT_EQ(UTL::XAssert(u"→", "a.cpp", 1).getExpression(), u"→");
    EXPECT_EQ(UTL::XAssert::Msg(static_cast<const char*>(nullptr), nullptr, 7), Opening + u"\n\nLine 7");
}

TEST(AssertTest, WarnsAndReturns)
{
    Support::ScriptedBoxes boxes({IDOK});
    UTL::Warn("", "UTL_SV_GSimpleVector.hpp", 386);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, Fault);
    EXPECT_EQ(shown[0].box.caption, u"Warning");
    EXPECT_EQ(shown[0].box.flags, 0U);
}

TEST(AssertTest, TellsAFaultWithoutAnApplication)
{
    Support::ScriptedBoxes boxes({IDYES});
    Forms::TApplication* const application = std::exchange(Forms::Application, nullptr);
    EXPECT_THROW(Throw(), UTL::XAssert);
    Forms::Application = application;
}

} // namespace

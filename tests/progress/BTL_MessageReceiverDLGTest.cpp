// SPDX-License-Identifier: MIT
#include "progress/BTL_MessageReceiverDLG.h"

#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "progress/BTL_StartOnce.h"
#include "support/ScriptedBoxes.h"
#include "support/Session.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

/// Sends from this process, whose window answers at once.
int Send(const System::WideChar* title, const std::u16string& text)
{
    const COPYDATASTRUCT data{0xFFFFFFFF, (text.size() + 1) * 2, text.c_str()};
    return static_cast<int>(
        SendMessageA(FindWindowW(nullptr, title), WM_COPYDATA, 0, reinterpret_cast<std::intptr_t>(&data)));
}

class MessageReceiverTest : public testing::Test
{
protected:
    Support::Session mSession;
    Support::ScriptedBoxes mBoxes;
};

TEST_F(MessageReceiverTest, IsMadeByItsDesign)
{
    const TBTL_MessageReceiverDLG form;
    EXPECT_EQ(form.getCaption(), u"BTL_MessageReceiverDLG");
    EXPECT_EQ(form.getLeft(), 400);
    EXPECT_EQ(form.getTop(), 157);
    EXPECT_EQ(form.getClientWidth(), 124);
    EXPECT_EQ(form.getClientHeight(), 12);
    EXPECT_EQ(form.getColor(), Graphics::clBtnFace);
    EXPECT_EQ(form.getFont()->getName(), u"Tahoma");
    EXPECT_EQ(form.getFont()->getHeight(), -11);
    EXPECT_EQ(form.GetComponentCount(), 0);
}

TEST_F(MessageReceiverTest, IsFoundByItsCaptionAlone)
{
    TBTL_MessageReceiverDLG form;
    form.setCaption(u"first title");
    EXPECT_EQ(FindWindowW(nullptr, u"first title"), nullptr) << "it doesn't listen yet";
    EXPECT_TRUE(form.Listen());
    EXPECT_EQ(Send(u"first title", u"text"), 0) << "without a handler";
    form.OnMessage = [](const UnicodeString& text) { return text.Length(); };
    EXPECT_EQ(Send(u"first title", u"text"), 4);
    EXPECT_FALSE(form.getVisible());

    form.setCaption(u"second title");
    EXPECT_EQ(FindWindowW(nullptr, u"first title"), nullptr);
    EXPECT_EQ(Send(u"second title", u"other"), 5);
}

/// The text ends with its zero, whatever else the message says.
TEST_F(MessageReceiverTest, DispatchesTheMessage)
{
    TBTL_MessageReceiverDLG form;
    const COPYDATASTRUCT data{1, 4, u"ab\0c"};
    Messages::TWMCopyData message{.CopyDataStruct = &data, .Result = 7};
    form.Dispatch(&message);
    EXPECT_EQ(message.Result, 7) << "without a handler it stays";
    form.OnMessage = [](const UnicodeString& text) { return text == u"ab" ? 1 : 2; };
    form.Dispatch(&message);
    EXPECT_EQ(message.Result, 1);
    message.CopyDataStruct = nullptr;
    form.Dispatch(&message);
    EXPECT_EQ(message.Result, 1);
}

TEST_F(MessageReceiverTest, OneOfATitleIsMadeByTheStart)
{
    BTL::CStartOnce once(u"receiver test");
    once.OnMessage = [&](const UnicodeString&) {
        once.OnMessage = [](const UnicodeString&) { return 2; };
        once.CreateMessageWindow();
        return 1;
    };
    once.CreateMessageWindow();
    const auto* const former = _BTL_MessageReceiverDLG;
    ASSERT_NE(former, nullptr);
    EXPECT_EQ(former->getCaption(), u"receiver test");
    EXPECT_EQ(former->getOwner(), Forms::Application);
    EXPECT_NE(Forms::Application->getMainForm(), former);
    EXPECT_EQ(once.SendMessageToMainProcess(u"replaces the form that handles it"), 1);
    EXPECT_EQ(once.SendMessageToMainProcess(u"text"), 2);
    delete _BTL_MessageReceiverDLG;
    EXPECT_EQ(_BTL_MessageReceiverDLG, nullptr);
}

} // namespace

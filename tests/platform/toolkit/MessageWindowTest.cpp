// SPDX-License-Identifier: MIT
#include "platform/toolkit/MessageWindow.h"

#include "platform/host/Host_Error.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/visual/Forms.h"
#include "support/ScopedVariable.h"
#include "support/SecondProcess.h"
#include "support/Session.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{

using System::UnicodeString;
using Toolkits::MessageWindow;
using TMessage = MessageWindow::TMessage;

constexpr System::WideChar Title[] = u"message window";

std::intptr_t SendBytes(const void* bytes, unsigned long count)
{
    const COPYDATASTRUCT data{5, count, bytes};
    return SendMessageA(FindWindowW(nullptr, Title), WM_COPYDATA, 0, reinterpret_cast<std::intptr_t>(&data));
}

/// Sends from another thread while this one runs its loop, and gives the answer.
std::intptr_t Ask(const void* bytes, unsigned long count)
{
    std::intptr_t answer = 0;
    std::atomic<bool> isAnswered = false;
    std::thread sender([&] {
        answer = SendBytes(bytes, count);
        isAnswered = true;
        Toolkits::CurrentToolkit().Post([] {});
    });
    struct TJoin
    {
        std::thread& thread;
        ~TJoin() { thread.join(); }
    };
    const TJoin join{sender};
    while (!isAnswered) {
        Forms::Application->HandleMessage();
    }
    return answer;
}

TEST(MessageWindowTest, TakesTheTextUpToItsZeroWhateverItsLength)
{
    const Support::Session session;
    UnicodeString got;
    const MessageWindow window(Title, [&](const TMessage& message) {
        got = message.text;
        EXPECT_EQ(message.dwData, 5U);
        return 3;
    });
    ASSERT_TRUE(window.IsOpen());
    const struct
    {
        const char16_t* text;
        unsigned long bytes;
        std::u16string expected;
    } cases[] = {
        {u"abc", 8, u"abc"},
        {u"abc\0def", 16, u"abc"},
        {u"abc", 4, u"ab"},
        {u"abc", 3, u"ab"},
        {u"abc", 1, u"a"},
        {u"abc", 0, u""},
        {u"\xDC00 \xD800", 8, u"\xDC00 \xD800"},
    };
    for (const auto& c : cases) {
        got = u"none";
        EXPECT_EQ(Ask(c.text, c.bytes), 3);
        EXPECT_EQ(got, UnicodeString(c.expected)) << c.bytes;
    }
}

TEST(MessageWindowTest, GivesTheTokenToTheToolkit)
{
    const Support::Session session;
    auto own = std::make_unique<Toolkits::HeadlessToolkit>();
    const Toolkits::HeadlessToolkit& toolkit = *own;
    auto former = Toolkits::ExchangeToolkit(std::move(own));
    {
        const Support::ScopedVariable token("XDG_ACTIVATION_TOKEN", "token-7");
        const MessageWindow window(Title, [&](const TMessage& message) {
            EXPECT_EQ(toolkit.getActivationToken(), u"token-7") << "the handler already needs it";
            return message.token.Length();
        });
        EXPECT_EQ(toolkit.getActivationToken(), u"");
        EXPECT_EQ(Ask(u"a", 4), 7);
    }
    Toolkits::ExchangeToolkit(std::move(former));
}

TEST(MessageWindowTest, AnswersNothingWhereTheHandlerRaises)
{
    const Support::Session session;
    bool isAnswered = false;
    const MessageWindow window(
        Title, [&](const TMessage&) -> std::intptr_t { throw std::runtime_error("handler"); });
    std::thread sender([&] {
        EXPECT_EQ(SendBytes(u"a", 4), 0);
        isAnswered = true;
    });
    EXPECT_THROW(
        {
            for (;;) {
                Forms::Application->HandleMessage();
            }
        },
        std::runtime_error);
    sender.join();
    EXPECT_TRUE(isAnswered);
}

TEST(MessageWindowTest, HandlesOthersWithinItsHandlerAndMayEndInIt)
{
    const Support::Session session;
    std::unique_ptr<MessageWindow> window;
    std::intptr_t inner = 0;
    int depth = 0;
    window = std::make_unique<MessageWindow>(Title, [&](const TMessage& message) -> std::intptr_t {
        if (++depth == 1) {
            inner = Ask(u"b", 4);
            window.reset();
        }
        return message.text[1];
    });
    EXPECT_EQ(Ask(u"a", 4), 'a');
    EXPECT_EQ(inner, 'b');
    EXPECT_EQ(FindWindowW(nullptr, Title), nullptr);
}

TEST(MessageWindowTest, LetsSendersGoWithItself)
{
    const Support::Session session;
    // Before there is a window, so that it has no part of it.
    const Support::SecondProcess sender([](int tell) {
        HWND found = nullptr;
        while (found == nullptr) {
            found = FindWindowW(nullptr, Title);
        }
        Support::SecondProcess::Tell(tell);
        const COPYDATASTRUCT data{0, 4, u"a"};
        if (SendMessageA(found, WM_COPYDATA, 0, reinterpret_cast<std::intptr_t>(&data)) == 0) {
            Support::SecondProcess::Tell(tell);
        }
    });
    auto window = std::make_unique<MessageWindow>(Title, [](const TMessage&) { return 1; });
    ASSERT_TRUE(sender.Await());
    window.reset();
    EXPECT_TRUE(sender.Await());
}

} // namespace

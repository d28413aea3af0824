// SPDX-License-Identifier: MIT
#include "platform/host/messages/Host_Messages.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/messages/internal/Host_MessageFrame.h"
#include "platform/host/messages/internal/Host_MessageServer.h"
#include "platform/host/objects/Host_Handle.h"
#include "support/ScopedVariable.h"
#include "support/SecondProcess.h"
#include "support/Session.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace
{

namespace fs = std::filesystem;
using Host::Descriptor;
using Host::MessageServer;
using Host::TWindowMessage;
using Support::SecondProcess;
using Support::Session;
using System::UnicodeString;

constexpr System::WideChar Title[] = u"a window / of \u00E4 test";

/// Serves what comes until `isEnough`.
template <class Test>
void ServeUntil(MessageServer& server, Test isEnough)
{
    while (!isEnough()) {
        pollfd state{server.getDescriptor(), POLLIN, 0};
        poll(&state, 1, 10);
        server.Serve();
    }
}

/// A process with a window that answers by `handler`, for ever.
class Receiver
{
public:
    explicit Receiver(Host::TWindowHandler handler, const System::WideChar* title = Title)
        : mProcess([handler = std::move(handler), title](int tell) {
              const auto server = MessageServer::Open(title, handler);
              SecondProcess::Tell(tell);
              ServeUntil(*server, [] { return false; });
          })
    {
        EXPECT_TRUE(mProcess.Await());
    }

    void Kill() { mProcess.Kill(); }

private:
    SecondProcess mProcess;
};

/// The text is the caller's.
COPYDATASTRUCT DataOf(const std::u16string& text)
{
    return {0xFFFFFFFF, (text.size() + 1) * 2, text.c_str()};
}

std::intptr_t Send(HWND window, const std::u16string& text)
{
    const COPYDATASTRUCT data = DataOf(text);
    return SendMessageA(window, WM_COPYDATA, 7, reinterpret_cast<std::intptr_t>(&data));
}

bool SendWithin(HWND window, unsigned long milliseconds)
{
    const std::u16string text = u"text";
    const COPYDATASTRUCT data = DataOf(text);
    std::uintptr_t result = 99;
    const bool isSent = SendMessageTimeoutA(window, WM_COPYDATA, 0, reinterpret_cast<std::intptr_t>(&data), 0,
                                            milliseconds, &result);
    EXPECT_TRUE(isSent || result == 0);
    return isSent;
}

/// Tells each bit of the message from every other one.
std::intptr_t SumOf(std::u16string_view units, std::size_t bytes)
{
    return std::accumulate(units.begin(), units.end(), static_cast<std::intptr_t>(bytes),
                           [](std::intptr_t sum, char16_t unit) { return (sum * 31 + unit) % 1'000'003; });
}

std::intptr_t Sum(const TWindowMessage& message)
{
    const auto* const units = static_cast<const char16_t*>(message.data.lpData);
    const bool isAsSent = message.data.dwData == 0xFFFFFFFF && message.wParam == 7;
    return isAsSent ? -SumOf({units, message.data.cbData / 2 - 1}, message.data.cbData) : 0;
}

/// A sender that does as it likes.
Descriptor ConnectRaw(const Session& session)
{
    const Descriptor folder(open(session.Folder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const sockaddr_un address = Host::AddressOf(folder.Get(), Host::WindowFileName(Title));
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return socket;
}

void Write(const Descriptor& socket, const std::string& bytes)
{
    EXPECT_EQ(send(socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL), std::ssize(bytes));
}

std::string HeadBytes(std::uint32_t data)
{
    const Host::TFrameHead head{Host::FrameMark, WM_COPYDATA, data, 0, 0, 0, 0};
    return {reinterpret_cast<const char*>(&head), sizeof head};
}

TEST(HostMessagesTest, CarryAnyBytesAndTheAnswer)
{
    const Session session;
    const Receiver receiver(Sum);
    const HWND window = FindWindowW(nullptr, Title);
    ASSERT_NE(window, nullptr);
    for (const std::u16string& text :
         {std::u16string(u"abc"), std::u16string(), std::u16string(u"\xD800 \xDFFF\xFFFF"),
          std::u16string(300'000, u'x') + u'y', std::u16string(u"a\0b", 3)}) {
        EXPECT_EQ(Send(window, text), -SumOf(text, (text.size() + 1) * 2)) << text.size();
    }
    EXPECT_EQ(FindWindowW(nullptr, Title), window) << "a handle stands for a title";
}

TEST(HostMessagesTest, CarryFolderAndTokenOfTheSender)
{
    const Session session;
    const Receiver receiver([](const TWindowMessage& message) {
        return message.folder == Sysutils::FromHostPath(fs::current_path().native()) ? message.token.Length()
                                                                                     : -1;
    });
    const HWND window = FindWindowW(nullptr, Title);
    const Support::ScopedVariable older("DESKTOP_STARTUP_ID", "1234");
    const Support::ScopedVariable newer("XDG_ACTIVATION_TOKEN", "");
    EXPECT_EQ(Send(window, u"text"), 4);
    newer.Set("123456");
    EXPECT_EQ(Send(window, u"text"), 6);
    newer.Set(std::string(10'000, 'x').c_str());
    EXPECT_EQ(Send(window, u"text"), 0) << "no desktop gives such a token";
}

TEST(HostMessagesTest, FindNothingWithoutAWindow)
{
    const Session session;
    EXPECT_EQ(FindWindowW(nullptr, Title), nullptr);
    EXPECT_EQ(FindWindowW(nullptr, nullptr), nullptr);
    const Receiver receiver(Sum);
    EXPECT_EQ(FindWindowW(u"class", Title), nullptr);
    EXPECT_EQ(FindWindowW(nullptr, u"another"), nullptr);
    const Session other;
    EXPECT_EQ(FindWindowW(nullptr, Title), nullptr) << "of another session";
}

TEST(HostMessagesTest, RefuseWhatCannotBeSent)
{
    const Session session;
    const Receiver receiver(Sum);
    const HWND window = FindWindowW(nullptr, Title);
    const COPYDATASTRUCT tooMuch{0, Host::MaxDataBytes + 1UL, Title};
    const COPYDATASTRUCT nothing{0, 2, nullptr};
    const std::u16string text = Title;
    const COPYDATASTRUCT good = DataOf(text);
    const struct
    {
        HWND window;
        unsigned message;
        const COPYDATASTRUCT* data;
        unsigned long error;
    } cases[] = {
        {nullptr, WM_COPYDATA, &good, ERROR_INVALID_WINDOW_HANDLE},
        {reinterpret_cast<HWND>(1), WM_COPYDATA, &good, ERROR_INVALID_WINDOW_HANDLE},
        {reinterpret_cast<HWND>(4000), WM_COPYDATA, &good, ERROR_INVALID_WINDOW_HANDLE},
        {window, 16, &good, ERROR_NOT_SUPPORTED},
        {window, WM_COPYDATA, nullptr, ERROR_INVALID_PARAMETER},
        {window, WM_COPYDATA, &tooMuch, ERROR_INVALID_PARAMETER},
        {window, WM_COPYDATA, &nothing, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        SetLastError(0);
        EXPECT_EQ(SendMessageA(c.window, c.message, 0, reinterpret_cast<std::intptr_t>(c.data)), 0);
        EXPECT_EQ(GetLastError(), c.error);
    }
}

TEST(HostMessagesTest, EndWithTheReceiver)
{
    const Session session;
    Receiver receiver([](const TWindowMessage&) -> std::intptr_t {
        kill(getpid(), SIGKILL);
        return 1;
    });
    const HWND window = FindWindowW(nullptr, Title);
    EXPECT_EQ(Send(window, u"text"), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    receiver.Kill();
    EXPECT_EQ(FindWindowW(nullptr, Title), nullptr) << "a socket was left";
    EXPECT_EQ(Send(window, u"text"), 0);
    EXPECT_FALSE(SendWithin(window, INFINITE));
    const Receiver next(Sum);
    EXPECT_NE(Send(window, u"text"), 0) << "the handle stands for the next window of the title";
}

TEST(HostMessagesTest, EndWithTheTimeOfTheSender)
{
    const Session session;
    int handled = 0;
    const auto server = MessageServer::Open(Title, [&](const TWindowMessage&) { return ++handled; });
    ASSERT_NE(server, nullptr);
    std::thread([] {
        const HWND window = FindWindowW(nullptr, Title);
        for (const unsigned long limit : {0UL, 20UL}) {
            EXPECT_FALSE(SendWithin(window, limit));
            EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
        }
    }).join();
    std::atomic<bool> isAnswered = false;
    std::thread sender([&] { isAnswered = SendWithin(FindWindowW(nullptr, Title), 60'000); });
    ServeUntil(*server, [&] { return isAnswered.load(); });
    sender.join();
    EXPECT_EQ(handled, 1) << "who gave up was served";
}

TEST(HostMessagesTest, AreHandledAtOnceInTheThreadOfTheWindow)
{
    const Session session;
    const auto server = MessageServer::Open(Title, Sum);
    const std::u16string text = u"to myself";
    EXPECT_EQ(Send(FindWindowW(nullptr, Title), text), -SumOf(text, (text.size() + 1) * 2));
}

TEST(HostMessagesTest, ComeFromManySendersAtOnce)
{
    const Session session;
    const Receiver receiver(Sum);
    std::vector<std::jthread> senders;
    for (char16_t i = 0; i < 20; ++i) {
        senders.emplace_back([i] {
            const std::u16string text(1000U * i, static_cast<char16_t>(u'a' + i));
            for (int k = 0; k < 10; ++k) {
                EXPECT_EQ(Send(FindWindowW(nullptr, Title), text), -SumOf(text, (text.size() + 1) * 2));
            }
        });
    }
}

TEST(HostMessagesTest, SurviveSendersThatDoAsTheyLike)
{
    const Session session;
    const Receiver receiver(Sum);
    const std::string cases[] = {
        "",
        "GET / HTTP/1.1\r\nHost: a machine that takes this for a server\r\n\r\n",
        HeadBytes(0xFFFFFFFF),
        HeadBytes(4) + "abcdef",
        HeadBytes(100'000) + std::string(50'000, 'x'),
        std::string(200'000, '\0'),
    };
    for (const std::string& bytes : cases) {
        const Descriptor socket = ConnectRaw(session);
        static_cast<void>(send(socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL));
        shutdown(socket.Get(), SHUT_WR);
        char byte = 0;
        EXPECT_LE(recv(socket.Get(), &byte, 1, 0), 0) << "answered " << bytes.size() << " bytes";
    }
    // One that begins and doesn't go on, and one that is killed.
    const Descriptor slow = ConnectRaw(session);
    Write(slow, HeadBytes(8) + "ab");
    SecondProcess killed([&](int tell) {
        const Descriptor socket = ConnectRaw(session);
        Write(socket, HeadBytes(1000) + "ab");
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(killed.Await());
    killed.Kill();
    EXPECT_NE(Send(FindWindowW(nullptr, Title), u"text"), 0);
    Write(slow, "cdefgh");
    Host::TFrameReply reply{};
    EXPECT_EQ(recv(slow.Get(), &reply, sizeof reply, MSG_WAITALL),
              std::ssize(std::string(sizeof reply, ' ')));
}

TEST(HostMessagesTest, AreRefusedWhereThereAreNoDescriptors)
{
    const Session session;
    const Receiver receiver([](const TWindowMessage& message) {
        if (message.data.dwData == 0xFFFFFFFF) {
            const rlimit few{30, 30};
            setrlimit(RLIMIT_NOFILE, &few);
        }
        return 1;
    });
    const HWND window = FindWindowW(nullptr, Title);
    EXPECT_EQ(Send(window, u"text"), 1);
    {
        std::vector<Descriptor> idle;
        for (int i = 0; i < 40; ++i) {
            idle.push_back(ConnectRaw(session));
        }
        char byte = 0;
        EXPECT_EQ(recv(idle.back().Get(), &byte, 1, 0), 0) << "there is no end for who can't come in";
    }
    EXPECT_TRUE(Support::WaitUntil([&] { return Send(window, u"text") == 1; }));
}

TEST(HostMessagesTest, TakeTheTitleOverAndLeaveNothing)
{
    const Session session;
    int first = 0;
    int second = 0;
    auto former = MessageServer::Open(Title, [&](const TWindowMessage&) { return ++first; });
    const auto server = MessageServer::Open(Title, [&](const TWindowMessage&) { return ++second; });
    const HWND window = FindWindowW(nullptr, Title);
    EXPECT_EQ(Send(window, u"text"), 1);
    former.reset();
    EXPECT_EQ(Send(window, u"text"), 2) << "the former took the name with it";
    EXPECT_EQ(first, 0);

    // What a process left that was killed on the way.
    const pid_t gone = fork();
    if (gone == 0) {
        _exit(0);
    }
    waitpid(gone, nullptr, 0);
    const fs::path left = session.Folder() / ("t." + std::to_string(gone) + ".1");
    Descriptor(open(left.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    ASSERT_TRUE(fs::exists(left));
    EXPECT_NE(MessageServer::Open(u"next", Sum), nullptr);
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(session.CountNames(), 1);
}

TEST(HostMessagesTest, TakeTheTitleInSpiteOfWhatAProcessOfThisNumberLeft)
{
    const Session session;
    ASSERT_NE(MessageServer::Open(u"makes the folder", Sum), nullptr);
    for (int i = 1; i < 500; ++i) {
        const fs::path left = session.Folder() / ("t." + std::to_string(getpid()) + '.' + std::to_string(i));
        Descriptor(open(left.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }
    EXPECT_NE(MessageServer::Open(Title, Sum), nullptr);
}

TEST(HostMessagesTest, AreNotForAProcessThatWasForkedOff)
{
    const Session session;
    int handled = 0;
    const auto server = MessageServer::Open(Title, [&](const TWindowMessage&) { return ++handled; });
    ASSERT_NE(server, nullptr);
    const SecondProcess forked([&](int tell) {
        SecondProcess::Tell(tell);
        ServeUntil(*server, [] { return false; });
    });
    ASSERT_TRUE(forked.Await());
    std::atomic<bool> isAnswered = false;
    std::thread sender([&] { isAnswered = SendWithin(FindWindowW(nullptr, Title), 60'000); });
    // The other one has its time.
    Sleep(50);
    ServeUntil(*server, [&] { return isAnswered.load(); });
    sender.join();
    EXPECT_EQ(handled, 1);
}

TEST(HostMessagesTest, LeaveNothingBehindAnOrderlyProcess)
{
    const Session session;
    const pid_t process = fork();
    if (process == 0) {
        static_cast<void>(MessageServer::Open(Title, Sum).release());
        std::exit(session.CountNames() == 1 ? 0 : 1);
    }
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(session.CountNames(), 0);
}

TEST(HostMessagesTest, BelongToTheUserAlone)
{
    const Session session;
    ASSERT_NE(MessageServer::Open(Title, Sum), nullptr);
    struct stat status;
    ASSERT_EQ(stat(session.Folder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
    fs::remove(session.Folder());
    fs::create_directory_symlink("/tmp", session.Folder());
    EXPECT_EQ(MessageServer::Open(Title, Sum), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    fs::remove(session.Folder());
    if (geteuid() != 0) {
        GTEST_SKIP() << "Only the administrator can give a folder away.";
    }
    fs::create_directory(session.Folder());
    ASSERT_EQ(chown(session.Folder().c_str(), 12345, 12345), 0);
    EXPECT_EQ(MessageServer::Open(Title, Sum), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(FindWindowW(nullptr, Title), nullptr);
}

TEST(HostMessagesTest, ComeFromTheSameUserAlone)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "Only the administrator can be another user.";
    }
    const Session session;
    const Receiver receiver(Sum);
    const int folder = open(session.Folder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    chmod((session.Folder() / Host::WindowFileName(Title)).c_str(), 0777);
    SecondProcess other([&](int tell) {
        // Comes by a descriptor that it was given, past the folder.
        const sockaddr_un address = Host::AddressOf(folder, Host::WindowFileName(Title));
        chmod(session.Folder().c_str(), 0777);
        const bool isOther = setresuid(12345, 12345, 12345) == 0;
        const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const std::string bytes = HeadBytes(2) + "ab";
        char byte = 0;
        const bool isRefused =
            connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            send(socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) >= -1 &&
            recv(socket.Get(), &byte, 1, 0) <= 0;
        if (isOther && isRefused) {
            SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
    close(folder);
}

} // namespace

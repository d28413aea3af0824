// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StandardStreams.h"

#include "platform/host/Host_Error.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/TempFolder.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

using BTL::CTextReader;
using BTL::CTextWriter;
using System::UnicodeString;

namespace
{

/// Puts a descriptor in the place of a standard stream, for a scope.
class Redirection
{
public:
    Redirection(int stream, int target) : mStream(stream), mFormer(fcntl(stream, F_DUPFD_CLOEXEC, 3))
    {
        std::fflush(stdout);
        dup2(target, stream);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection()
    {
        dup2(mFormer, mStream);
        close(mFormer);
    }

private:
    int mStream;
    int mFormer;
};

class StandardStreamsTest : public testing::Test
{
protected:
    /// A file with a content, its position behind it.
    int FileWith(std::string_view content)
    {
        const int file =
            open((mFolder.Path() / "file").c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        EXPECT_EQ(write(file, content.data(), content.size()), static_cast<ssize_t>(content.size()));
        return file;
    }
    System::AnsiString Content() const
    {
        return BTL::LoadStringFromFile(System::FromUtf8((mFolder.Path() / "file").string()));
    }

private:
    Support::TempFolder mFolder;
};

TEST_F(StandardStreamsTest, InputGoesOnWhereItStands)
{
    const int file = FileWith("first\nsecond \xC3\xA4\nthird");
    lseek(file, 6, SEEK_SET);
    const Redirection redirection(STDIN_FILENO, file);
    close(file);
    CTextReader in = BTL::StandardInput();
    UnicodeString line;
    EXPECT_TRUE(in.ReadLine(line));
    EXPECT_EQ(line, u"second \u00E4");
    EXPECT_TRUE(in.ReadLine(line));
    EXPECT_EQ(line, u"third");
    EXPECT_FALSE(in.ReadLine(line));
}

TEST_F(StandardStreamsTest, InputMayBeAPipeOrASocket)
{
    std::array<int, 2> pipeEnds{};
    std::array<int, 2> socketEnds{};
    ASSERT_EQ(pipe2(pipeEnds.data(), O_CLOEXEC), 0);
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, socketEnds.data()), 0);
    for (const auto& [mine, other] : {std::pair(pipeEnds[0], pipeEnds[1]), {socketEnds[0], socketEnds[1]}}) {
        const Redirection redirection(STDIN_FILENO, mine);
        close(mine);
        ASSERT_EQ(write(other, "a\nb", 3), 3);
        CTextReader in = BTL::StandardInput(Sysutils::TEncoding(1252), BTL::EDecoding::Strict);
        UnicodeString line;
        EXPECT_TRUE(in.ReadLine(line)) << "before the other end closes";
        EXPECT_EQ(line, u"a");
        close(other);
        EXPECT_EQ(in.ReadAll(), u"b");
    }
}

TEST_F(StandardStreamsTest, OutputGoesOnBehindWhatIsThere)
{
    const int file = FileWith("before\n");
    {
        const Redirection redirection(STDOUT_FILENO, file);
        CTextWriter out = BTL::StandardOutput({.lineEnd = BTL::ELineEnd::CRLF});
        out.WriteLine(u"\u00E4");
        EXPECT_EQ(Content(), "before\n") << "gathered";
        out.Flush();
        EXPECT_EQ(Content(), "before\n\xC3\xA4\r\n");
        out.Write(UnicodeString(std::u16string(100'000, u'x')));
        EXPECT_EQ(Content().Length(), 100'011) << "more than is gathered";
        out.Write(u"y");
        out.Close();
        EXPECT_EQ(write(STDOUT_FILENO, "after", 5), 5) << "others go on behind it";
    }
    EXPECT_EQ(Content().Length(), 100'017);
    EXPECT_EQ(Content().SubString(100'012, 6), "yafter");
    close(file);
}

TEST_F(StandardStreamsTest, ErrorOutputIsWrittenAtOnce)
{
    const int file = FileWith("");
    const Redirection redirection(STDERR_FILENO, file);
    close(file);
    CTextWriter out = BTL::StandardError();
    out.Write(u"x");
    EXPECT_EQ(Content(), "x");
}

TEST_F(StandardStreamsTest, ATerminalIsWrittenAtOnce)
{
    const int screen = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(screen, 0);
    ASSERT_EQ(grantpt(screen), 0);
    ASSERT_EQ(unlockpt(screen), 0);
    const int terminal = open(ptsname(screen), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    std::array<char, 10> shown{};
    {
        const Redirection redirection(STDOUT_FILENO, terminal);
        CTextWriter out = BTL::StandardOutput();
        out.Write(u"name? ");
        ASSERT_EQ(fcntl(screen, F_SETFL, O_NONBLOCK), 0);
        EXPECT_EQ(read(screen, shown.data(), shown.size()), 6);
    }
    EXPECT_EQ(std::string_view(shown.data()), "name? ");
    close(terminal);
    close(screen);
}

TEST_F(StandardStreamsTest, WhatIsntTakenIsTold)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    UnicodeString message;
    {
        const Redirection redirection(STDOUT_FILENO, full);
        CTextWriter out = BTL::StandardOutput();
        out.WriteLine(u"x");
        try {
            out.Close();
        } catch (const Classes::EWriteError& fault) {
            message = fault.getMessage();
        }
    }
    close(full);
    EXPECT_EQ(message,
              u"Stream write error in standard output. " + Sysutils::SysErrorMessage(ERROR_DISK_FULL));
}

TEST_F(StandardStreamsTest, AClosedStreamIsNone)
{
    const int file = FileWith("");
    const Redirection input(STDIN_FILENO, file);
    const Redirection output(STDERR_FILENO, file);
    close(file);
    close(STDIN_FILENO);
    close(STDERR_FILENO);
    EXPECT_THROW(static_cast<void>(BTL::StandardInput()), Classes::EFOpenError);
    EXPECT_THROW(static_cast<void>(BTL::StandardError()), Classes::EFCreateError);
}

} // namespace

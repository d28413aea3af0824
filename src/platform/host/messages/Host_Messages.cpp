// SPDX-License-Identifier: MIT
#include "platform/host/messages/Host_Messages.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/internal/Host_SessionFolder.h"
#include "platform/host/messages/internal/Host_MessageFrame.h"
#include "platform/host/messages/internal/Host_MessageServer.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/un.h>

namespace Host
{

namespace
{

/// Which file a name stands for.
struct TFileId
{
    dev_t device = 0;
    ino_t node = 0;

    bool operator==(const TFileId&) const = default;
};

/// A way to a window that is open.
struct TConnection
{
    Descriptor socket = Descriptor();
    TFileId window;
};

/// The titles that were found, whose places are the handles on them.
class WindowTable
{
public:
    static WindowTable& Instance()
    {
        // Never destroyed: a message may be sent while the program's global objects end.
        static auto* const table = new WindowTable;
        return *table;
    }

    HWND Add(const std::string& file)
    {
        const std::lock_guard lock(mGate);
        auto found = std::ranges::find(mWindows, file, &TWindow::file);
        if (found == mWindows.end()) {
            mWindows.push_back({file, {}, 0});
            found = mWindows.end() - 1;
        }
        return HandleOf(static_cast<std::size_t>(found - mWindows.begin()));
    }

    /// Nothing for what is no handle of a window.
    std::optional<std::string> FileOf(HWND window)
    {
        const std::lock_guard lock(mGate);
        const auto index = IndexOf(window);
        return index ? std::optional(mWindows[*index].file) : std::nullopt;
    }

    /// Keeps the connection for the next message.
    void Keep(HWND window, TConnection connection)
    {
        const std::lock_guard lock(mGate);
        TWindow& entry = mWindows[IndexOf(window).value()];
        entry.connection = std::move(connection);
        entry.process = getpid();
    }

    /// The connection that is kept; not open if there is none, or it is one of the process that this one was
    /// forked off.
    TConnection Take(HWND window)
    {
        const std::lock_guard lock(mGate);
        TWindow& entry = mWindows[IndexOf(window).value()];
        TConnection connection = std::exchange(entry.connection, {});
        return entry.process == getpid() ? std::move(connection) : TConnection();
    }

private:
    struct TWindow
    {
        std::string file;
        TConnection connection;
        pid_t process;
    };

    // Small numbers, which no address of an object is.

    // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is a number here
    static HWND HandleOf(std::size_t index) { return reinterpret_cast<HWND>((index + 1) * 4); }
    std::optional<std::size_t> IndexOf(HWND window) const
    {
        const auto number = reinterpret_cast<std::uintptr_t>(window);
        const bool isHandle = number % 4 == 0 && number / 4 >= 1 && number / 4 <= mWindows.size();
        return isHandle ? std::optional<std::size_t>(number / 4 - 1) : std::nullopt;
    }

    std::mutex mGate;
    std::vector<TWindow> mWindows;
};

enum class EConnect
{
    Connected,
    /// The receiver has more senders before its door than the host lets wait.
    Full,
    None,
};

struct TConnecting
{
    EConnect result = EConnect::None;
    TConnection connection;
};

/// What stands under the file name in the folder now.
std::optional<TFileId> FindFile(const TSessionFolder& folder, const std::string& file)
{
    struct stat status;
    const bool isThere = folder.descriptor.IsOpen() &&
                         fstatat(folder.descriptor.Get(), file.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    return isThere ? std::optional(TFileId{status.st_dev, status.st_ino}) : std::nullopt;
}

TConnecting Connect(const TSessionFolder& folder, const std::string& file, const TFileId& window)
{
    const sockaddr_un address = AddressOf(folder.descriptor.Get(), file);
    TConnection connection{Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
                           window};
    const int socket = connection.socket.Get();
    const int result = Uninterrupted(
        [&] { return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address); });
    if (result != 0) {
        return {WouldBlock() ? EConnect::Full : EConnect::None, {}};
    }
    return IsPeerOwn(socket) ? TConnecting{EConnect::Connected, std::move(connection)} : TConnecting();
}

bool IsAlive(const Descriptor& connection)
{
    return connection.IsOpen() && IsPeerWaiting(connection.Get());
}

/// Sets the last error for what the deadline or the end of the receiver broke off; nothing.
std::nullopt_t FailSending(Deadline deadline)
{
    SetLastError(deadline.IsPast() ? ERROR_TIMEOUT : ERROR_INVALID_WINDOW_HANDLE);
    return std::nullopt;
}

/// A connection to the window that has the file name now: the one that is kept, or a new one.
TConnecting Reach(HWND window, const std::string& file)
{
    const TSessionFolder folder = OpenSessionFolder();
    const std::optional<TFileId> id = FindFile(folder, file);
    if (!id) {
        return {};
    }
    TConnection kept = WindowTable::Instance().Take(window);
    if (kept.window == *id && IsAlive(kept.socket)) {
        return {EConnect::Connected, std::move(kept)};
    }
    return Connect(folder, file, *id);
}

/// Not open if there is no receiver or the time is over.
TConnection ReachBefore(Deadline deadline, HWND window, const std::string& file)
{
    // Who has found a window means that one, also if another takes its title.
    TConnection kept = WindowTable::Instance().Take(window);
    if (IsAlive(kept.socket)) {
        return kept;
    }
    for (;;) {
        TConnecting reached = Reach(window, file);
        if (reached.result != EConnect::Full || deadline.IsPast()) {
            return std::move(reached.connection);
        }
        Sleep(1);
    }
}

/// Waits for what the socket is to be ready for; false if the time is over.
bool Await(int socket, short events, Deadline deadline)
{
    while (!deadline.IsPast()) {
        pollfd sockets[1] = {{socket, events, 0}};
        if (deadline.Poll(sockets) > 0) {
            return true;
        }
    }
    return false;
}

/// Drops the first `count` bytes of the pieces.
template <std::size_t N>
void Advance(std::array<iovec, N>& pieces, std::size_t count)
{
    for (iovec& piece : pieces) {
        const std::size_t part = std::min(count, piece.iov_len);
        piece.iov_base = static_cast<char*>(piece.iov_base) + part;
        piece.iov_len -= part;
        count -= part;
    }
}

template <std::size_t N>
bool SendAll(int socket, std::array<iovec, N>& pieces, Deadline deadline)
{
    msghdr message{};
    message.msg_iov = pieces.data();
    message.msg_iovlen = pieces.size();
    std::size_t total = 0;
    for (const iovec& piece : pieces) {
        total += piece.iov_len;
    }
    while (total > 0) {
        const ssize_t count = Uninterrupted([&] { return sendmsg(socket, &message, MSG_NOSIGNAL); });
        if (count >= 0) {
            Advance(pieces, static_cast<std::size_t>(count));
            total -= static_cast<std::size_t>(count);
        } else if (!WouldBlock() || !Await(socket, POLLOUT, deadline)) {
            return false;
        }
    }
    return true;
}

std::optional<std::intptr_t> ReceiveReply(int socket, Deadline deadline)
{
    TFrameReply reply{};
    std::size_t done = 0;
    while (done < sizeof reply) {
        if (!Await(socket, POLLIN, deadline)) {
            return std::nullopt;
        }
        const ssize_t count =
            recv(socket, reinterpret_cast<char*>(&reply) + done, sizeof reply - done, MSG_DONTWAIT);
        if (count == 0 || (count < 0 && !WouldBlock() && errno != EINTR)) {
            return std::nullopt;
        }
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return reply.mark == FrameMark ? std::optional(static_cast<std::intptr_t>(reply.result)) : std::nullopt;
}

/// Empty for a folder that was removed.
std::string CurrentFolder()
{
    std::array<char, PATH_MAX> folder;
    return getcwd(folder.data(), folder.size()) != nullptr && folder[0] == '/' ? folder.data()
                                                                               : std::string();
}

/// What the desktop gave the process that it started, so that a window may come to the front.
std::string ActivationToken()
{
    for (const char* const name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            const std::string token = value;
            return token.size() <= MaxFolderBytes ? token : std::string();
        }
    }
    return {};
}

/// A message in the form in which it travels, over bytes of the caller.
class Outgoing
{
public:
    Outgoing(std::uintptr_t wParam, const COPYDATASTRUCT& data)
        : mFolder(CurrentFolder()),
          mToken(ActivationToken()),
          mHead{FrameMark,
                WM_COPYDATA,
                static_cast<std::uint32_t>(data.cbData),
                wParam,
                data.dwData,
                static_cast<std::uint32_t>(mFolder.size()),
                static_cast<std::uint32_t>(mToken.size())},
          mData(data.lpData)
    {
    }

    std::array<iovec, 4> Pieces()
    {
        return {iovec{&mHead, sizeof mHead}, iovec{const_cast<void*>(mData), mHead.dataBytes},
                iovec{mFolder.data(), mFolder.size()}, iovec{mToken.data(), mToken.size()}};
    }

private:
    std::string mFolder;
    std::string mToken;
    TFrameHead mHead;
    const void* mData;
};

/// What a receiver in another process would get of the message.
MessageFrame FrameOf(Outgoing& message)
{
    MessageFrame frame;
    for (const iovec& piece : message.Pieces()) {
        std::string_view rest(static_cast<const char*>(piece.iov_base), piece.iov_len);
        while (!rest.empty()) {
            const std::span<char> room = frame.Room();
            const std::size_t count = std::min(room.size(), rest.size());
            rest.copy(room.data(), count);
            rest.remove_prefix(count);
            static_cast<void>(frame.Add(count));
        }
    }
    return frame;
}

std::optional<std::intptr_t> Send(HWND window, std::uintptr_t wParam, const COPYDATASTRUCT& data,
                                  Deadline deadline)
{
    const std::optional<std::string> file = WindowTable::Instance().FileOf(window);
    if (!file) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return std::nullopt;
    }
    Outgoing message(wParam, data);
    if (const auto handler = MessageServer::FindOwnHandler(*file)) {
        MessageFrame frame = FrameOf(message);
        return CallHandler(*handler, frame);
    }
    TConnection connection = ReachBefore(deadline, window, *file);
    const int socket = connection.socket.Get();
    if (socket < 0) {
        return FailSending(deadline);
    }
    auto pieces = message.Pieces();
    const auto reply = SendAll(socket, pieces, deadline) ? ReceiveReply(socket, deadline) : std::nullopt;
    if (!reply) {
        return FailSending(deadline);
    }
    WindowTable::Instance().Keep(window, std::move(connection));
    return reply;
}

bool IsGood(unsigned message, const COPYDATASTRUCT* data)
{
    if (message != WM_COPYDATA) {
        return Fail(ERROR_NOT_SUPPORTED);
    }
    const bool isGood =
        data != nullptr && data->cbData <= MaxDataBytes && (data->lpData != nullptr || data->cbData == 0);
    return isGood || Fail(ERROR_INVALID_PARAMETER);
}

} // namespace

constinit FSendToControl SendToControl = nullptr;

} // namespace Host

HWND FindWindowW(const System::WideChar* className, const System::WideChar* title)
{
    if (className != nullptr || title == nullptr) {
        return nullptr;
    }
    const std::string file = Host::WindowFileName(title);
    Host::WindowTable& table = Host::WindowTable::Instance();
    const HWND window = table.Add(file);
    if (Host::MessageServer::IsOwn(file)) {
        return window;
    }
    Host::TConnecting reached = Host::Reach(window, file);
    if (reached.result == Host::EConnect::Connected) {
        table.Keep(window, std::move(reached.connection));
    }
    return reached.result == Host::EConnect::None ? nullptr : window;
}

std::intptr_t SendMessageA(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam)
{
    std::uintptr_t result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, 0, 0xFFFFFFFF, &result);
    return static_cast<std::intptr_t>(result);
}

bool SendMessageTimeoutA(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                         unsigned /*flags*/, unsigned long milliseconds, std::uintptr_t* result)
{
    std::intptr_t answer = 0;
    if (Host::SendToControl != nullptr && Host::SendToControl(window, message, wParam, lParam, answer)) {
        if (result != nullptr) {
            *result = static_cast<std::uintptr_t>(answer);
        }
        return true;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the parameter of the message is an address
    const auto* const data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    const auto reply = Host::IsGood(message, data)
                           ? Host::Send(window, wParam, *data, Host::Deadline::OfWait(milliseconds))
                           : std::nullopt;
    if (result != nullptr) {
        *result = static_cast<std::uintptr_t>(reply.value_or(0));
    }
    return reply.has_value();
}

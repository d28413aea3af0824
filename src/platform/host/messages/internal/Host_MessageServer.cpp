// SPDX-License-Identifier: MIT
#include "platform/host/messages/internal/Host_MessageServer.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_OpenFolder.h"
#include "platform/host/internal/Host_SessionFolder.h"
#include "platform/host/messages/internal/Host_MessageFrame.h"
#include "platform/host/objects/internal/Host_ObjectName.h"

#include <atomic>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <span>
#include <utility>

#include <csignal>
#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace Host
{

using System::UnicodeString;

/// The windows of this process, which lasts as long as it.
class ServerTable
{
public:
    static ServerTable& Instance()
    {
        static auto* const table = new ServerTable;
        return *table;
    }

    void Add(MessageServer* server)
    {
        const std::lock_guard lock(mGate);
        mServers[server->mFile] = server;
    }

    void Remove(const MessageServer* server)
    {
        const std::lock_guard lock(mGate);
        if (const auto found = mServers.find(server->mFile);
            found != mServers.end() && found->second == server) {
            mServers.erase(found);
        }
    }

    /// Null, too, in a process that was forked off the window's.
    template <class Use>
    auto With(const std::string& file, Use use)
    {
        const std::lock_guard lock(mGate);
        const auto found = mServers.find(file);
        return use(found == mServers.end() || found->second->mProcess != getpid() ? nullptr : found->second);
    }

private:
    ServerTable()
    {
        // What a process leaves is found out, but an orderly one leaves nothing.
        static_cast<void>(std::atexit([] {
            ServerTable& table = Instance();
            const std::lock_guard lock(table.mGate);
            for (const auto& [file, server] : table.mServers) {
                server->RemoveName();
            }
        }));
    }

    std::mutex mGate;
    std::map<std::string, MessageServer*> mServers;
};

struct MessageServer::TConnection
{
    Descriptor socket;
    MessageFrame frame;
};

namespace
{

/// Each process makes files of these names on the way to the ones that count.
constexpr std::string_view DraftPrefix = "t.";

std::string DraftName()
{
    static std::atomic<unsigned> count = 0;
    return std::string(DraftPrefix) + std::to_string(getpid()) + '.' + std::to_string(++count);
}

/// Whether the name is a draft of a process that is gone.
bool IsLeftDraft(std::string_view name)
{
    if (!name.starts_with(DraftPrefix)) {
        return false;
    }
    name.remove_prefix(DraftPrefix.size());
    pid_t process = 0;
    const auto result = std::from_chars(name.data(), name.data() + name.size(), process);
    return result.ec == std::errc() && process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}

/// Removes what processes left that were killed while they made a window.
void RemoveLeftDrafts(const Descriptor& folder)
{
    const OpenFolder opened({folder.Get(), "."}, Links::Refuse);
    const auto entries = opened.IsOpen() ? opened.Entries() : std::nullopt;
    if (!entries) {
        return;
    }
    for (const FolderEntry& entry : *entries) {
        if (IsLeftDraft(entry.name)) {
            unlinkat(folder.Get(), entry.name.c_str(), 0);
        }
    }
}

/// Gives the sender its answer at the end, also where the handler raises.
class Reply
{
public:
    explicit Reply(int socket) : mSocket(socket) {}
    Reply(const Reply&) = delete;
    Reply& operator=(const Reply&) = delete;
    ~Reply()
    {
        const TFrameReply reply{FrameMark, result};
        // A sender that is gone wants no answer, and an empty socket has room for this one.
        static_cast<void>(send(mSocket, &reply, sizeof reply, MSG_DONTWAIT | MSG_NOSIGNAL));
    }

    std::int64_t result = 0;

private:
    int mSocket;
};

} // namespace

std::string WindowFileName(const UnicodeString& title)
{
    constexpr std::size_t maxLength = 78;
    return 'w' + ObjectFileName(title, maxLength);
}

sockaddr_un AddressOf(int folder, const std::string& file)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder) + '/' + file;
    std::memcpy(address.sun_path, path.data(), std::min(path.size(), sizeof address.sun_path - 1));
    return address;
}

bool IsPeerOwn(int socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

bool WouldBlock() noexcept
{
    return errno == EAGAIN || errno == EWOULDBLOCK;
}

bool IsPeerWaiting(int socket)
{
    char byte = 0;
    return recv(socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) < 0 && WouldBlock();
}

std::intptr_t CallHandler(const TWindowHandler& handler, MessageFrame& frame)
{
    const TFrameHead& head = frame.getHead();
    TWindowMessage message;
    message.units = frame.TakeUnits();
    message.data = {static_cast<std::uintptr_t>(head.dwData), head.dataBytes, message.units.c_str()};
    message.wParam = static_cast<std::uintptr_t>(head.wParam);
    if (const std::string_view folder = frame.GetFolder(); !folder.empty()) {
        message.folder = Sysutils::FromHostPath(folder);
    }
    message.token = System::FromUtf8(frame.GetToken());
    return handler(message);
}

std::unique_ptr<MessageServer> MessageServer::Open(const UnicodeString& title, TWindowHandler handler)
{
    std::unique_ptr<MessageServer> server(new MessageServer);
    server->mFile = WindowFileName(title);
    server->mProcess = getpid();
    server->mThread = pthread_self();
    server->mHandler = std::make_shared<const TWindowHandler>(std::move(handler));
    if (!server->Listen()) {
        return nullptr;
    }
    ServerTable::Instance().Add(server.get());
    return server;
}

MessageServer::~MessageServer()
{
    ServerTable::Instance().Remove(this);
    RemoveName();
}

bool MessageServer::Listen()
{
    const TSessionFolder folder = OpenSessionFolder();
    if (!folder.descriptor.IsOpen()) {
        return false;
    }
    RemoveLeftDrafts(folder.descriptor);
    mPath = folder.path + '/' + mFile;
    mPoll = Descriptor(epoll_create1(EPOLL_CLOEXEC));
    mSpare = Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
    return (mPoll.IsOpen() || FailErrno()) && TakeName(folder.descriptor) && Watch(mListener.Get());
}

/// The socket gets its name when it listens, so that nobody finds one that refuses, and what a crash left
/// under the name is gone by that.
bool MessageServer::TakeName(const Descriptor& folder)
{
    const std::string draft = DraftName();
    const sockaddr_un address = AddressOf(folder.Get(), draft);
    // One of a process that had our number before.
    unlinkat(folder.Get(), draft.c_str(), 0);
    mListener = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    struct stat status;
    const bool isMade =
        mListener.IsOpen() &&
        bind(mListener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        listen(mListener.Get(), SOMAXCONN) == 0 &&
        fstatat(folder.Get(), draft.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        renameat(folder.Get(), draft.c_str(), folder.Get(), mFile.c_str()) == 0;
    if (!isMade) {
        FailErrno();
        unlinkat(folder.Get(), draft.c_str(), 0);
        return false;
    }
    mDevice = status.st_dev;
    mNode = status.st_ino;
    return true;
}

void MessageServer::RemoveName() const
{
    struct stat status;
    if (mProcess == getpid() && lstat(mPath.c_str(), &status) == 0 && status.st_dev == mDevice &&
        status.st_ino == mNode) {
        unlink(mPath.c_str());
    }
}

bool MessageServer::Watch(int descriptor) const
{
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    return epoll_ctl(mPoll.Get(), EPOLL_CTL_ADD, descriptor, &event) == 0 || FailErrno();
}

void MessageServer::Serve()
{
    // A process that was forked off would take what is sent to the window's.
    if (mProcess != getpid()) {
        return;
    }
    // One at a time: the handler may serve others, and may end this object.
    epoll_event event{};
    if (epoll_wait(mPoll.Get(), &event, 1, 0) != 1) {
        return;
    }
    if (event.data.fd == mListener.Get()) {
        Accept();
    } else {
        Read(event.data.fd);
    }
}

void MessageServer::Accept()
{
    Descriptor socket(accept4(mListener.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!socket.IsOpen()) {
        if (errno == EMFILE || errno == ENFILE) {
            RefuseOne();
        }
        return;
    }
    const int descriptor = socket.Get();
    if (!IsPeerOwn(descriptor)) {
        return;
    }
    auto connection = std::make_unique<TConnection>();
    connection->socket = std::move(socket);
    Keep(std::move(connection));
    // Mostly the message is there already.
    Read(descriptor);
}

void MessageServer::Keep(std::unique_ptr<TConnection> connection)
{
    const int descriptor = connection->socket.Get();
    connection->frame = MessageFrame();
    if (Watch(descriptor)) {
        mConnections[descriptor] = std::move(connection);
    }
}

/// Otherwise the loop would be woken for a sender that can't be let in, over and over.
void MessageServer::RefuseOne()
{
    mSpare = Descriptor();
    static_cast<void>(Descriptor(accept4(mListener.Get(), nullptr, nullptr, SOCK_CLOEXEC)));
    mSpare = Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
}

void MessageServer::Read(int descriptor)
{
    const auto found = mConnections.find(descriptor);
    if (found == mConnections.end()) {
        return;
    }
    bool isGood = false;
    try {
        isGood = ReadPiece(*found->second);
    } catch (const std::bad_alloc&) {
        // A message without memory for it is none.
    } catch (const Sysutils::EOutOfMemory&) {
    }
    if (isGood && !found->second->frame.IsWhole()) {
        return;
    }
    std::unique_ptr<TConnection> connection = std::move(found->second);
    mConnections.erase(found);
    epoll_ctl(mPoll.Get(), EPOLL_CTL_DEL, descriptor, nullptr);
    if (isGood) {
        Deliver(std::move(connection));
    }
}

bool MessageServer::ReadPiece(TConnection& connection)
{
    // Then the others have their turn.
    constexpr std::size_t most = 1U << 22U;
    for (std::size_t done = 0; done < most && !connection.frame.IsWhole();) {
        const std::span<char> room = connection.frame.Room();
        const ssize_t count =
            Uninterrupted([&] { return recv(connection.socket.Get(), room.data(), room.size(), 0); });
        if (count < 0) {
            return WouldBlock();
        }
        if (count == 0 || !connection.frame.Add(static_cast<std::size_t>(count))) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return true;
}

void MessageServer::Deliver(std::unique_ptr<TConnection> connection)
{
    if (!IsPeerWaiting(connection->socket.Get())) {
        return;
    }
    // The handler may end this object.
    const std::shared_ptr<const TWindowHandler> handler = mHandler;
    const std::weak_ptr<const bool> life = mLife;
    {
        Reply reply(connection->socket.Get());
        reply.result = CallHandler(*handler, connection->frame);
    }
    if (!life.expired()) {
        Keep(std::move(connection));
    }
}

std::shared_ptr<const TWindowHandler> MessageServer::FindOwnHandler(const std::string& file)
{
    return ServerTable::Instance().With(file, [](const MessageServer* server) {
        const bool isOfThread = server != nullptr && pthread_equal(server->mThread, pthread_self()) != 0;
        return isOfThread ? server->mHandler : nullptr;
    });
}

bool MessageServer::IsOwn(const std::string& file)
{
    return ServerTable::Instance().With(file, [](const MessageServer* server) { return server != nullptr; });
}

} // namespace Host

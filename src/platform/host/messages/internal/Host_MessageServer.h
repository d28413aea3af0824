// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/messages/Host_Messages.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

#include <pthread.h>
#include <sys/types.h>

struct sockaddr_un;

namespace Host
{

class MessageFrame;

/// A message that has come, as long as it is handled.
struct TWindowMessage
{
    /// The bytes are those of `units`.
    COPYDATASTRUCT data;
    /// The last one is filled up with a zero, and behind them stands a zero. The handler may take them.
    System::UnicodeString units;
    std::uintptr_t wParam = 0;
    /// The current folder of the sender; empty if it is in none.
    System::UnicodeString folder;
    /// By what the desktop lets a window of the receiver come to the front; empty if the sender had nothing.
    System::UnicodeString token;
};

/// What a window does with a message; the result goes back to the sender.
using TWindowHandler = std::function<std::intptr_t(TWindowMessage&)>;

/// The receiving side of a title: a socket of the user's session, and those who send. All belongs to the
/// thread that made it, and so does the handler.
class TRS8_BTL_API MessageServer
{
public:
    /// Takes the title, also from a window that has it. Null with the last error set if the session has no
    /// place for it.
    [[nodiscard]] static std::unique_ptr<MessageServer> Open(const System::UnicodeString& title,
                                                             TWindowHandler handler);
    MessageServer(const MessageServer&) = delete;
    MessageServer& operator=(const MessageServer&) = delete;
    /// Also from within the handler.
    ~MessageServer();

    /// What to watch: there is something to do while it is readable.
    int getDescriptor() const noexcept { return mPoll.Get(); }

    /// Does a piece of what there is to do, and returns at once unless that calls the handler. An exception
    /// of the handler comes out when its sender has got 0. Nothing in a process that was forked off.
    void Serve();

    /// The handler of the window which this process has under the file name, for the thread that owns it;
    /// else null.
    [[nodiscard]] static std::shared_ptr<const TWindowHandler> FindOwnHandler(const std::string& file);
    /// Whether this process has a window under the file name, of whatever thread.
    [[nodiscard]] static bool IsOwn(const std::string& file);

private:
    struct TConnection;

    MessageServer() = default;

    bool Listen();
    bool TakeName(const Descriptor& folder);
    bool Watch(int descriptor) const;
    void Accept();
    void RefuseOne();
    void Read(int descriptor);
    /// Whether the message is whole, or goes on; else the sender is to be dropped.
    static bool ReadPiece(TConnection& connection);
    void Deliver(std::unique_ptr<TConnection> connection);
    /// Waits for another message of the sender.
    void Keep(std::unique_ptr<TConnection> connection);

    friend class ServerTable;
    /// Takes the title's file away if it is still this window's.
    void RemoveName() const;

    std::string mFile;
    /// Where the file was made.
    std::string mPath;
    dev_t mDevice = 0;
    ino_t mNode = 0;
    pid_t mProcess = 0;
    pthread_t mThread{};
    std::shared_ptr<const TWindowHandler> mHandler;
    /// Ends with this object.
    std::shared_ptr<const bool> mLife = std::make_shared<const bool>(true);
    Descriptor mListener;
    Descriptor mPoll;
    /// Kept to refuse a sender when there are no more descriptors.
    Descriptor mSpare;
    std::map<int, std::unique_ptr<TConnection>> mConnections;
};

/// The file name of a title in the folder of the session.
[[nodiscard]] TRS8_BTL_API std::string WindowFileName(const System::UnicodeString& title);

/// The address of a file in the open folder, however long the folder's path is.
[[nodiscard]] TRS8_BTL_API sockaddr_un AddressOf(int folder, const std::string& file);

/// Whether the other end of the connected socket is a process of the same user.
[[nodiscard]] bool IsPeerOwn(int socket);

/// Whether the call that failed just now would have had to wait.
[[nodiscard]] bool WouldBlock() noexcept;

/// Whether nobody has closed the other end of the connected socket, and nothing came from there.
[[nodiscard]] bool IsPeerWaiting(int socket);

/// The message of the caller's own process, as the handler gets it.
[[nodiscard]] std::intptr_t CallHandler(const TWindowHandler& handler, MessageFrame& frame);

} // namespace Host

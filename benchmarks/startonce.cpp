// SPDX-License-Identifier: MIT
#include "platform/visual/Forms.h"
#include "progress/BTL_StartOnce.h"

#include <benchmark/benchmark.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef TRS8_BTL_BENCHMARK_QTNETWORK
#include <QByteArray>
#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#endif

// A text from a later process to the first one and its answer, each in a process of its own. The length
// stands in front of the text where the reference needs one, and each message goes by a connection of its
// own, as between programs that start; the benchmarks named Kept use one for all.

namespace
{

/// The other process, up to the end of the benchmark.
class CPeer
{
public:
    template <class Body>
    explicit CPeer(Body body)
    {
        int ends[2];
        if (pipe(ends) != 0) {
            throw std::runtime_error("No pipe can be made.");
        }
        mProcess = fork();
        if (mProcess == 0) {
            body([&ends] { static_cast<void>(!write(ends[1], "+", 1)); });
            _exit(0);
        }
        close(ends[1]);
        char byte = 0;
        static_cast<void>(!read(ends[0], &byte, 1));
        close(ends[0]);
    }
    CPeer(const CPeer&) = delete;
    CPeer& operator=(const CPeer&) = delete;
    ~CPeer()
    {
        kill(mProcess, SIGKILL);
        waitpid(mProcess, nullptr, 0);
    }

private:
    pid_t mProcess;
};

std::u16string NameOf(const char* reference)
{
    const std::string name = std::string("trs8_btl_bench_") + reference + std::to_string(getpid());
    return {name.begin(), name.end()};
}

std::u16string TextOf(const benchmark::State& state)
{
    return std::u16string(static_cast<std::size_t>(state.range(0)) / 2, u'x');
}

void CountBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void MessageOurs(benchmark::State& state)
{
    const std::u16string name = NameOf("ours");
    const CPeer first([&](auto tell) {
        BTL::CStartOnce once(name.c_str());
        once.OnMessage = [](const System::UnicodeString& text) { return text.Length(); };
        once.CreateMessageWindow();
        tell();
        Forms::Application->Run();
    });
    const BTL::CStartOnce later(name.c_str());
    const std::u16string text = TextOf(state);
    for (auto _ : state) {
        if (later.SendMessageToMainProcess(text.c_str()) != static_cast<int>(text.size())) {
            state.SkipWithError("no answer");
            break;
        }
    }
    CountBytes(state);
}

/// The plain socket, by hand and as bare as it can be: the reader knows the length.
class CPlainSocket
{
public:
    static sockaddr_un Address()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string name = "/tmp/trs8_btl_bench_plain_" + std::to_string(OwnerId());
        std::memcpy(address.sun_path, name.data(), name.size());
        return address;
    }

    static void Serve(std::size_t size, auto tell)
    {
        const sockaddr_un address = Address();
        const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
        unlink(address.sun_path);
        bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        listen(listener, 10);
        tell();
        std::vector<char> buffer(size);
        for (;;) {
            const int connection = accept(listener, nullptr, nullptr);
            std::size_t done = 0;
            while (done < size) {
                const ssize_t count = recv(connection, buffer.data() + done, size - done, 0);
                if (count <= 0) {
                    break;
                }
                done += static_cast<std::size_t>(count);
            }
            static_cast<void>(!write(connection, "+", 1));
            close(connection);
        }
    }

    static bool Ask(const std::u16string& text)
    {
        const sockaddr_un address = Address();
        const int connection = socket(AF_UNIX, SOCK_STREAM, 0);
        char byte = 0;
        const auto size = static_cast<ssize_t>(text.size() * 2);
        const bool isAnswered =
            connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            send(connection, text.data(), static_cast<std::size_t>(size), 0) == size &&
            recv(connection, &byte, 1, 0) == 1;
        close(connection);
        return isAnswered;
    }

    static void Remove() { unlink(Address().sun_path); }

private:
    static pid_t OwnerId()
    {
        static const pid_t owner = getpid();
        return owner;
    }
};

void MessagePlainSocket(benchmark::State& state)
{
    const std::u16string text = TextOf(state);
    static_cast<void>(CPlainSocket::Address());
    const CPeer first([&](auto tell) { CPlainSocket::Serve(text.size() * 2, tell); });
    for (auto _ : state) {
        if (!CPlainSocket::Ask(text)) {
            state.SkipWithError("no answer");
            break;
        }
    }
    CPlainSocket::Remove();
    CountBytes(state);
}

#ifdef TRS8_BTL_BENCHMARK_QTNETWORK

/// Answers each message, whose length stands in front of it.
void ServeQt(const QString& name, auto tell)
{
    int count = 0;
    QCoreApplication application(count, nullptr);
    QLocalServer server;
    server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&server] {
        QLocalSocket* const socket = server.nextPendingConnection();
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [socket] {
            qint64 size = 0;
            if (socket->peek(reinterpret_cast<char*>(&size), sizeof size) < qint64(sizeof size) ||
                socket->bytesAvailable() < size + qint64(sizeof size)) {
                return;
            }
            socket->read(reinterpret_cast<char*>(&size), sizeof size);
            const QByteArray bytes = socket->read(size);
            const QString text(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / 2);
            const qint64 answer = text.size();
            socket->write(reinterpret_cast<const char*>(&answer), sizeof answer);
            socket->flush();
        });
    });
    server.listen(name);
    tell();
    QCoreApplication::exec();
}

bool AskQt(QLocalSocket& socket, const std::u16string& text)
{
    const qint64 size = static_cast<qint64>(text.size()) * 2;
    socket.write(reinterpret_cast<const char*>(&size), sizeof size);
    socket.write(reinterpret_cast<const char*>(text.data()), size);
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(-1)) {
    }
    qint64 answer = 0;
    while (socket.bytesAvailable() < qint64(sizeof answer)) {
        if (!socket.waitForReadyRead(-1)) {
            return false;
        }
    }
    socket.read(reinterpret_cast<char*>(&answer), sizeof answer);
    return answer == size / 2;
}

bool ConnectQt(QLocalSocket& socket, const QString& name)
{
    socket.connectToServer(name);
    return socket.waitForConnected(-1);
}

template <bool IsKept>
void AskQtOften(benchmark::State& state)
{
    const QString name = QString::fromStdU16String(NameOf("qt"));
    const CPeer first([&](auto tell) { ServeQt(name, tell); });
    const std::u16string text = TextOf(state);
    QLocalSocket kept;
    if (IsKept) {
        ConnectQt(kept, name);
    }
    for (auto _ : state) {
        bool isAnswered = false;
        if (IsKept) {
            isAnswered = AskQt(kept, text);
        } else {
            QLocalSocket socket;
            isAnswered = ConnectQt(socket, name) && AskQt(socket, text);
        }
        if (!isAnswered) {
            state.SkipWithError("no answer");
            break;
        }
    }
    QLocalServer::removeServer(name);
    CountBytes(state);
}

void MessageQLocalSocket(benchmark::State& state)
{
    AskQtOften<false>(state);
}

void MessageKeptQLocalSocket(benchmark::State& state)
{
    AskQtOften<true>(state);
}

#endif

constexpr int Short = 200;
constexpr int Long = 10'000'000;

BENCHMARK(MessageOurs)->Name("message/ours")->Arg(Short)->UseRealTime();
BENCHMARK(MessagePlainSocket)->Name("message/plain_socket")->Arg(Short)->UseRealTime();
#ifdef TRS8_BTL_BENCHMARK_QTNETWORK
BENCHMARK(MessageQLocalSocket)->Name("message/QLocalSocket")->Arg(Short)->UseRealTime();
BENCHMARK(MessageKeptQLocalSocket)->Name("message/QLocalSocket_kept")->Arg(Short)->UseRealTime();
#endif
BENCHMARK(MessageOurs)->Name("message_10MB/ours")->Arg(Long)->UseRealTime();
BENCHMARK(MessagePlainSocket)->Name("message_10MB/plain_socket")->Arg(Long)->UseRealTime();
#ifdef TRS8_BTL_BENCHMARK_QTNETWORK
BENCHMARK(MessageQLocalSocket)->Name("message_10MB/QLocalSocket")->Arg(Long)->UseRealTime();
#endif

} // namespace

// SPDX-License-Identifier: MIT
#include "serial/WIN_Com.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#ifdef TRS8_BTL_BENCHMARK_SERIALPORT
#include <libserialport.h>
#endif

namespace
{

constexpr std::size_t BlockSize = 4096;
constexpr std::size_t BlockCount = 256;
constexpr int Number = 71;

/// A pair whose far end takes all that is written, or gives bytes without end.
class Pair
{
public:
    Pair() : mMaster(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (mMaster < 0 || grantpt(mMaster) != 0 || unlockpt(mMaster) != 0) {
            throw std::runtime_error("The host gives no pseudo-terminal.");
        }
        mDevice = ptsname(mMaster);
        setenv(("TRS8_BTL_COM" + std::to_string(Number)).c_str(), mDevice.c_str(), 1);
        mSlave = OpenRaw();
    }
    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;
    ~Pair()
    {
        close(mSlave);
        close(mMaster);
    }

    const std::string& Device() const { return mDevice; }
    int Master() const { return mMaster; }

    int OpenRaw() const
    {
        const int device = open(mDevice.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios line{};
        tcgetattr(device, &line);
        cfmakeraw(&line);
        tcsetattr(device, TCSANOW, &line);
        return device;
    }

    /// Takes 1 MB off the far end, in a thread of its own.
    std::jthread Take() const
    {
        return std::jthread([this] {
            std::vector<char> buffer(BlockSize);
            for (std::size_t left = BlockSize * BlockCount; left > 0;) {
                const ssize_t count = read(mMaster, buffer.data(), buffer.size());
                left -= static_cast<std::size_t>(std::max<ssize_t>(count, 0));
            }
        });
    }

    /// Gives 1 MB at the far end, in a thread of its own.
    std::jthread Give() const
    {
        return std::jthread([this] {
            const std::vector<char> buffer(BlockSize);
            for (std::size_t left = BlockSize * BlockCount; left > 0;) {
                const ssize_t count = write(mMaster, buffer.data(), std::min(left, buffer.size()));
                left -= static_cast<std::size_t>(std::max<ssize_t>(count, 0));
            }
        });
    }

private:
    int mMaster;
    int mSlave = -1;
    std::string mDevice;
};

void SetBytes(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * BlockSize * BlockCount));
}

template <class Send>
void Write(benchmark::State& state, const Pair& pair, Send send)
{
    const std::vector<char> block(BlockSize);
    for (auto _ : state) {
        const std::jthread taker = pair.Take();
        for (std::size_t i = 0; i < BlockCount; ++i) {
            send(block.data(), BlockSize);
        }
    }
    SetBytes(state);
}

template <class Receive>
void Read(benchmark::State& state, const Pair& pair, Receive receive)
{
    std::vector<char> block(BlockSize);
    for (auto _ : state) {
        const std::jthread giver = pair.Give();
        for (std::size_t i = 0; i < BlockCount; ++i) {
            receive(block.data(), BlockSize);
        }
    }
    SetBytes(state);
}

void BM_WritePlain(benchmark::State& state)
{
    const Pair pair;
    const int device = pair.OpenRaw();
    Write(state, pair, [device](const char* data, std::size_t size) {
        for (std::size_t done = 0; done < size;) {
            done += static_cast<std::size_t>(std::max<ssize_t>(write(device, data + done, size - done), 0));
        }
    });
    close(device);
}

void BM_WriteCom(benchmark::State& state)
{
    const Pair pair;
    WIN::CCom port(WIN::Int2Com(Number), 0);
    Write(state, pair, [&](const char* data, std::size_t size) { port.Send(data, size); });
}

void BM_ReadPlain(benchmark::State& state)
{
    const Pair pair;
    const int device = pair.OpenRaw();
    Read(state, pair, [device](char* data, std::size_t size) {
        for (std::size_t done = 0; done < size;) {
            done += static_cast<std::size_t>(std::max<ssize_t>(read(device, data + done, size - done), 0));
        }
    });
    close(device);
}

void BM_ReadCom(benchmark::State& state)
{
    const Pair pair;
    WIN::CCom port(WIN::Int2Com(Number), 0);
    Read(state, pair, [&](char* data, std::size_t size) { port.Receive(data, size); });
}

#ifdef TRS8_BTL_BENCHMARK_SERIALPORT
/// A port of libserialport, open.
class LibPort
{
public:
    explicit LibPort(const Pair& pair)
    {
        mIsOpen = sp_get_port_by_name(pair.Device().c_str(), &mPort) == SP_OK &&
                  sp_open(mPort, SP_MODE_READ_WRITE) == SP_OK;
    }
    LibPort(const LibPort&) = delete;
    LibPort& operator=(const LibPort&) = delete;
    ~LibPort()
    {
        if (mIsOpen) {
            sp_close(mPort);
        }
        sp_free_port(mPort);
    }
    sp_port* Get() const { return mPort; }
    /// Some versions want modem lines, which a pseudo-terminal hasn't.
    bool IsOpenOr(benchmark::State& state) const
    {
        if (!mIsOpen) {
            state.SkipWithError("libserialport opens no pseudo-terminal");
        }
        return mIsOpen;
    }

private:
    sp_port* mPort = nullptr;
    bool mIsOpen = false;
};

void BM_WriteLibserialport(benchmark::State& state)
{
    const Pair pair;
    const LibPort port(pair);
    if (!port.IsOpenOr(state)) {
        return;
    }
    Write(state, pair,
          [&](const char* data, std::size_t size) { sp_blocking_write(port.Get(), data, size, 0); });
}

void BM_ReadLibserialport(benchmark::State& state)
{
    const Pair pair;
    const LibPort port(pair);
    if (!port.IsOpenOr(state)) {
        return;
    }
    Read(state, pair, [&](char* data, std::size_t size) { sp_blocking_read(port.Get(), data, size, 0); });
}
#endif

/// The times of 50 reads that nothing comes to, in seconds, the shortest first.
std::vector<double> TimeOuts()
{
    constexpr std::size_t reads = 50;
    const Pair pair;
    WIN::CCom port(WIN::Int2Com(Number), 0);
    const WIN::CCommTimeouts timeouts(0, 0, 50, 0, 0);
    port.SetTimeouts(&timeouts);
    std::vector<double> times(reads);
    for (double& time : times) {
        const auto start = std::chrono::steady_clock::now();
        char byte = 0;
        port.Receive(&byte, 1);
        time = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    std::sort(times.begin(), times.end());
    return times;
}

void BM_ShortestTimeOut(benchmark::State& state)
{
    for (auto _ : state) {
        state.SetIterationTime(TimeOuts().front());
    }
}

void BM_MedianTimeOut(benchmark::State& state)
{
    for (auto _ : state) {
        const auto times = TimeOuts();
        state.SetIterationTime(times[times.size() / 2]);
    }
}

void BM_AskedTimeOut(benchmark::State& state)
{
    for (auto _ : state) {
        state.SetIterationTime(0.05);
    }
}

BENCHMARK(BM_WriteCom)->Name("write/ours")->UseRealTime();
BENCHMARK(BM_WritePlain)->Name("write/plain")->UseRealTime();
BENCHMARK(BM_ReadCom)->Name("read/ours")->UseRealTime();
BENCHMARK(BM_ReadPlain)->Name("read/plain")->UseRealTime();
#ifdef TRS8_BTL_BENCHMARK_SERIALPORT
BENCHMARK(BM_WriteLibserialport)->Name("write/libserialport")->UseRealTime();
BENCHMARK(BM_ReadLibserialport)->Name("read/libserialport")->UseRealTime();
#endif
BENCHMARK(BM_ShortestTimeOut)->Name("shortest_time_out/ours")->UseManualTime()->Iterations(1);
BENCHMARK(BM_AskedTimeOut)->Name("shortest_time_out/asked")->UseManualTime()->Iterations(1);
BENCHMARK(BM_MedianTimeOut)->Name("median_time_out/ours")->UseManualTime()->Iterations(1);
BENCHMARK(BM_AskedTimeOut)->Name("median_time_out/asked")->UseManualTime()->Iterations(1);

} // namespace

// SPDX-License-Identifier: MIT
#include "serial/WIN_Com.h"

#include "platform/host/Host_Error.h"
#include "platform/host/devices/Host_PortMap.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "serial/WIN_ComTypeNames.h"

#include <algorithm>
#include <array>
#include <exception>
#include <mutex>
#include <string>
#include <utility>

namespace WIN
{

namespace
{

constexpr std::size_t PortCount = 256;
constexpr unsigned long ReadAndWrite = GENERIC_READ | GENERIC_WRITE;

constexpr std::array<std::uint8_t, 4> ByteSizes = {5, 6, 7, 8};
constexpr std::array<std::uint8_t, 4> Parities = {NOPARITY, EVENPARITY, ODDPARITY, MARKPARITY};
constexpr std::array<std::uint8_t, 3> StopBits = {ONESTOPBIT, ONE5STOPBITS, TWOSTOPBITS};

/// The value at `index`, the first for a place that isn't there.
template <std::size_t N>
std::uint8_t At(const std::array<std::uint8_t, N>& table, std::uint32_t index)
{
    return index < N ? table[index] : table[0];
}

/// The place of `value`, 0 for one that isn't in the table.
template <std::size_t N>
std::uint32_t PlaceOf(const std::array<std::uint8_t, N>& table, std::uint8_t value)
{
    const auto found = std::ranges::find(table, value);
    return found == table.end() ? 0 : static_cast<std::uint32_t>(found - table.begin());
}

/// As `PlaceOf`, of a speed: `Int2Baud` has another one for those that aren't in its table.
EBaud BaudOf(std::uint32_t speed)
{
    const EBaud baud = Int2Baud(static_cast<int>(speed));
    return static_cast<std::uint32_t>(Baud2Int(baud)) == speed ? baud : EBaud::Baud110;
}

using TName = std::array<char, 7>;

constexpr std::array<TName, PortCount> MakeNames()
{
    std::array<TName, PortCount> names{};
    for (std::size_t i = 0; i < PortCount; ++i) {
        TName& name = names[i];
        std::size_t length = 0;
        for (const char c : {'C', 'O', 'M'}) {
            name[length++] = c;
        }
        for (const std::size_t place : {100U, 10U, 1U}) {
            if (i + 1 >= place) {
                name[length++] = static_cast<char>('0' + (i + 1) / place % 10);
            }
        }
    }
    return names;
}

constexpr std::array<TName, PortCount> Names = MakeNames();

/// An empty name for a port that can't be.
const char* NameOf(ECom port)
{
    const auto index = static_cast<std::size_t>(port);
    return index < PortCount ? Names[index].data() : "";
}

struct TPortList
{
    std::mutex mutex;
    CComNoList ports;
};

TPortList& KnownPorts()
{
    // Never destroyed: global objects may still ask.
    static auto* const list = new TPortList;
    return *list;
}

void LookForPorts(CComNoList& ports)
{
    ports = {};
    for (const Host::PortInfo& port : Host::ListPorts()) {
        ports.push_back(Int2Com(port.number));
    }
}

} // namespace

CCom::CCom(ECom port, unsigned long flags) : CCom(port, EBaud::Baud9600, flags) {}

CCom::CCom(ECom port, EBaud baud, unsigned long flags)
{
    if (!Init(port, baud, flags)) {
        Close(false);
    }
}

CCom::CCom(ECom port, const CComValues& values, unsigned long flags) : CCom(port, values.baud, flags)
{
    SetValues(values);
}

CCom::~CCom()
{
    Close(false);
}

bool CCom::Init(ECom port, EBaud baud, unsigned long flags)
{
    Close(false);
    mName = NameOf(port);
    mFlags = flags;
    mValues.baud = baud;
    if (!Create()) {
        HandleError();
        return false;
    }
    return Check(::GetCommState(mHandle, &mState)) && Check(::GetCommTimeouts(mHandle, &mTimeouts)) &&
           DoSetValues() && DoSetupComm();
}

bool CCom::Create()
{
    CloseDevice();
    mLastError = 0;
    mShortTransfer = false;
    const std::string path = std::string(R"(\\.\)") + mName;
    mHandle = CreateFileA(path.c_str(), ReadAndWrite, 0, nullptr, OPEN_EXISTING, mFlags, nullptr);
    return valid();
}

bool CCom::Open()
{
    mParked = false;
    if (!Create()) {
        HandleError();
        return false;
    }
    return DoSetValues() && DoSetupComm() && DoSetTimeouts();
}

bool CCom::Close(bool parked)
{
    const bool wasParked = std::exchange(mParked, parked) && !IsOpen();
    if (!IsOpen()) {
        if (wasParked && !parked) {
            Host::EndParking(mName);
        }
        return false;
    }
    if (parked) {
        Host::ParkPort(mHandle);
    }
    return CloseDevice();
}

bool CCom::CloseDevice()
{
    return IsOpen() && CloseHandle(std::exchange(mHandle, INVALID_HANDLE_VALUE));
}

bool CCom::valid() const
{
    return IsOpen() || mParked;
}

bool CCom::Exists() const
{
    COMMCONFIG config;
    unsigned long size = sizeof config;
    return GetDefaultCommConfigA(mName, &config, &size);
}

System::AnsiString CCom::GetTypeName(bool withNumber) const
{
    return GetComTypeName(Int2Com(Host::PortNumber(mName)), withNumber);
}

void CCom::GetExistingPorts(CComNoList& list)
{
    TPortList& known = KnownPorts();
    const std::lock_guard lock(known.mutex);
    if (known.ports.empty()) {
        LookForPorts(known.ports);
    }
    list = known.ports;
}

void CCom::RefreshExistingPorts(CComNoList& list)
{
    TPortList& known = KnownPorts();
    const std::lock_guard lock(known.mutex);
    LookForPorts(known.ports);
    list = known.ports;
}

/// Keeps the reason of a call that failed.
bool CCom::Check(bool isDone)
{
    if (!isDone) {
        HandleError();
    }
    return isDone;
}

/// Whether the port is open or parked; else a reason is kept, that of a failed opening if there is one.
bool CCom::CheckValid()
{
    if (!valid() && mLastError == 0) {
        mLastError = ERROR_INVALID_HANDLE;
    }
    return valid();
}

bool CCom::SetValues(const CComValues& values)
{
    mValues = values;
    return CheckValid() && DoSetValues();
}

bool CCom::GetValues(CComValues& values)
{
    DCB state{};
    const bool isDone = CheckValid() && Check(::GetCommState(mHandle, &state));
    if (isDone) {
        mValues = {BaudOf(state.BaudRate), PlaceOf(ByteSizes, state.ByteSize),
                   PlaceOf(Parities, state.Parity), PlaceOf(StopBits, state.StopBits)};
    }
    values = mValues;
    return isDone;
}

bool CCom::SetupComm(const CComBufferSize& sizes)
{
    mSizes = sizes;
    return CheckValid() && DoSetupComm();
}

bool CCom::SetDCB(const DCB& state)
{
    mState = state;
    mState.DCBlength = sizeof mState;
    return CheckValid() && DoSetDCB();
}

bool CCom::SetDCB(EDCB change)
{
    DCB state{};
    if (!Check(::GetCommState(mHandle, &state))) {
        return false;
    }
    switch (change) {
    case EDCB::RtsDisable:
        state.fRtsControl = RTS_CONTROL_DISABLE;
        break;
    case EDCB::RtsEnable:
        state.fRtsControl = RTS_CONTROL_ENABLE;
        break;
    case EDCB::RtsToggle:
        state.fRtsControl = RTS_CONTROL_TOGGLE;
        break;
    case EDCB::RtsHandshake:
        state.fRtsControl = RTS_CONTROL_HANDSHAKE;
        break;
    case EDCB::DtrDisable:
        state.fDtrControl = DTR_CONTROL_DISABLE;
        break;
    case EDCB::DtrEnable:
        state.fDtrControl = DTR_CONTROL_ENABLE;
        break;
    case EDCB::DtrHandshake:
        state.fDtrControl = DTR_CONTROL_HANDSHAKE;
        break;
    case EDCB::Nothing:
        break;
    }
    return Check(::SetCommState(mHandle, &state));
}

bool CCom::GetDCB(DCB& state)
{
    const bool isDone = CheckValid() && Check(::GetCommState(mHandle, &mState));
    state = mState;
    return isDone;
}

bool CCom::SetTimeouts(const COMMTIMEOUTS* timeouts)
{
    if (timeouts == nullptr) {
        return false;
    }
    mTimeouts = *timeouts;
    return CheckValid() && DoSetTimeouts();
}

bool CCom::GetTimeouts(COMMTIMEOUTS* timeouts)
{
    if (timeouts == nullptr) {
        return false;
    }
    const bool isDone = CheckValid() && Check(::GetCommTimeouts(mHandle, &mTimeouts));
    *timeouts = mTimeouts;
    return isDone;
}

bool CCom::DoSetValues()
{
    DCB state{};
    if (!Check(::GetCommState(mHandle, &state))) {
        return false;
    }
    state.BaudRate = static_cast<std::uint32_t>(Baud2Int(mValues.baud));
    state.ByteSize = At(ByteSizes, mValues.byteSize);
    state.Parity = At(Parities, mValues.parity);
    state.StopBits = At(StopBits, mValues.stopBits);
    state.fParity = 0;
    return Check(::SetCommState(mHandle, &state));
}

bool CCom::DoSetupComm()
{
    return Check(::SetupComm(mHandle, mSizes.in, mSizes.out));
}

bool CCom::DoSetDCB()
{
    return Check(::SetCommState(mHandle, &mState));
}

bool CCom::DoSetTimeouts()
{
    return Check(::SetCommTimeouts(mHandle, &mTimeouts));
}

bool CCom::UpdateStatus()
{
    unsigned long errors = 0;
    return CheckValid() && Check(::ClearCommError(mHandle, &errors, &mStatus));
}

bool CCom::GetComStat(COMSTAT& status)
{
    const bool isDone = UpdateStatus();
    status = mStatus;
    return isDone;
}

bool CCom::GetComProp(COMMPROP& properties)
{
    return Check(::GetCommProperties(mHandle, &properties));
}

bool CCom::GetModemStatus(unsigned long& status)
{
    return Check(::GetCommModemStatus(mHandle, &status));
}

bool CCom::IsCTSOn()
{
    unsigned long status = 0;
    return GetModemStatus(status) && (status & MS_CTS_ON) != 0;
}

bool CCom::IsDSROn()
{
    unsigned long status = 0;
    return GetModemStatus(status) && (status & MS_DSR_ON) != 0;
}

bool CCom::IsRLSDOn()
{
    unsigned long status = 0;
    return GetModemStatus(status) && (status & MS_RLSD_ON) != 0;
}

bool CCom::EscapeCommFunction(unsigned long function)
{
    return Check(::EscapeCommFunction(mHandle, function));
}

bool CCom::SetDTR(bool on)
{
    return EscapeCommFunction(on ? SETDTR : CLRDTR);
}

bool CCom::SetRTS(bool on)
{
    return EscapeCommFunction(on ? SETRTS : CLRRTS);
}

bool CCom::SetEvent(unsigned long mask)
{
    return Check(::SetCommMask(mHandle, mask));
}

bool CCom::ResetEvent()
{
    // Called beside a wait of another thread, so that it leaves the fields alone.
    return ::SetCommMask(mHandle, 0);
}

bool CCom::WaitEvent()
{
    unsigned long mask = 0;
    return WaitEvent(mask);
}

bool CCom::WaitEvent(unsigned long& mask)
{
    mask = 0;
    const bool isOverlapped = (mFlags & FILE_FLAG_OVERLAPPED) != 0;
    return Check(::WaitCommEvent(mHandle, &mask, isOverlapped ? &mOverlapped : nullptr));
}

template <class Call>
bool CCom::Transfer(unsigned long& count, Call call)
{
    const CComOpener opener(this);
    const unsigned long wanted = std::exchange(count, 0);
    if (!CheckValid()) {
        return false;
    }
    ClearCommError();
    if (!Check(call(wanted, count))) {
        return false;
    }
    mShortTransfer = count < wanted;
    return true;
}

bool CCom::Write(const char* buffer, unsigned long& count)
{
    return Transfer(count, [&](unsigned long wanted, unsigned long& done) {
        return ::WriteFile(mHandle, buffer, wanted, &done, nullptr);
    });
}

bool CCom::Read(char* buffer, unsigned long& count)
{
    return Transfer(count, [&](unsigned long wanted, unsigned long& done) {
        return ::ReadFile(mHandle, buffer, wanted, &done, nullptr);
    });
}

bool CCom::Send(const char* buffer, unsigned long count)
{
    return Write(buffer, count);
}

bool CCom::Receive(char* buffer, unsigned long count)
{
    return Read(buffer, count);
}

bool CCom::WriteString(const System::AnsiString& text)
{
    return Send(text.c_str(), static_cast<unsigned long>(text.Length()));
}

bool CCom::ReadString(System::AnsiString& text, unsigned long count)
{
    try {
        std::string bytes(count, '\0');
        const bool isDone = Receive(bytes.data(), count);
        text = System::AnsiString(std::string_view(bytes));
        return isDone;
    } catch (const std::exception&) {
        // More than there is memory for, or than a text can hold.
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return Check(false);
    }
}

bool CCom::BytesInQueues(unsigned long& in, unsigned long& out)
{
    if (!UpdateStatus()) {
        return false;
    }
    in = mStatus.cbInQue;
    out = mStatus.cbOutQue;
    return true;
}

unsigned long CCom::BytesInInQueue()
{
    return UpdateStatus() ? mStatus.cbInQue : 0;
}

unsigned long CCom::BytesInOutQueue()
{
    return UpdateStatus() ? mStatus.cbOutQue : 0;
}

bool CCom::ClearInQueue()
{
    // A device that floods never ends by itself.
    constexpr int most = 1 << 16;
    char dropped = 0;
    for (int i = 0; i < most && BytesInInQueue() != 0; ++i) {
        if (!Receive(&dropped, 1)) {
            return false;
        }
    }
    return valid();
}

bool CCom::ClearCommError()
{
    if (mState.fAbortOnError == 0) {
        return true;
    }
    mLastError = 0;
    mShortTransfer = false;
    return UpdateStatus();
}

bool CCom::ClearCommError(unsigned long& errors, COMSTAT* status)
{
    return Check(::ClearCommError(mHandle, &errors, status));
}

void CCom::ClearLastError()
{
    if (::GetLastError() != 0) {
        ::ClearCommError(mHandle, nullptr, nullptr);
        mLastError = 0;
        mShortTransfer = false;
    }
}

void CCom::HandleError()
{
    const unsigned long error = ::GetLastError();
    if (error == 0 && !valid()) {
        mLastError = ERROR_INVALID_HANDLE;
        return;
    }
    mLastError = error;
    ::ClearCommError(mHandle, nullptr, nullptr);
    // The caller may look at the thread's error, too.
    ::SetLastError(error);
}

CComOpener::CComOpener(CCom* port)
{
    if (port != nullptr && !port->IsOpen() && port->mParked) {
        mPort = port;
        mPort->Open();
    }
}

CComOpener::~CComOpener()
{
    if (mPort != nullptr) {
        mPort->Close(true);
    }
}

void AddComNamesTo(Classes::TStrings* list)
{
    if (list == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < PortCount; ++i) {
        // The number is what the pointer is for.
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        list->AddObject(Names[i].data(), reinterpret_cast<System::TObject*>(i));
    }
}

} // namespace WIN

// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVector.h"
#include "platform/base/System_String.h"
#include "platform/host/devices/Host_Comm.h"
#include "serial/WIN_ComValues.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace WIN
{

/// The ports of a machine.
using CComNoList = UTL::GSimpleVector<ECom>;

/// A serial port. It blocks, keeps its settings, and can let go of the device between transfers: a port that
/// is closed as parked opens itself for each of them, so that several programs share a device. Nothing
/// raises: calls answer by `bool`, and `getLastError` tells the reason. Belongs to one thread at a time, but
/// for `ResetEvent`.
///
///     WIN::CCom port(WIN::Int2Com(7), WIN::EBaud::Baud19200, 0);
///     WIN::CCommTimeouts timeouts(WIN::EBaud::Baud19200, 500, 500);
///     port.SetTimeouts(&timeouts);
///     port.Close(true);                                           // parked
///     System::AnsiString answer;
///     if (port.WriteString("U?\n") && port.ReadString(answer, 12)) { ... }
///
/// The host raises DTR and RTS as a device is opened. Lines that were asked off are lowered right behind
/// that, and closing a parked port moves none.
class TRS8_BTL_API CCom
{
public:
    /// Opens the port with the default frame and 9600 baud. `flags` are those of `CreateFileA`. After a
    /// failure `valid` is false.
    CCom(ECom port, unsigned long flags);
    CCom(ECom port, EBaud baud, unsigned long flags);
    /// Also sets the frame.
    CCom(ECom port, const CComValues& values, unsigned long flags);
    CCom(const CCom&) = delete;
    CCom& operator=(const CCom&) = delete;
    /// Closes the port and sets the device as it was before, also a parked one.
    ~CCom();

    /// As the constructors; an open port is closed first.
    bool Init(ECom port, EBaud baud, unsigned long flags);
    /// Opens the device alone, with what it is set to; one that is open is closed first. Gives `valid`.
    bool Create();
    /// Opens the device again with all settings of this object.
    bool Open();
    /// True only if the device was open.
    bool Close(bool parked);
    /// Whether the port is open or parked.
    bool valid() const;
    /// Whether there is such a port, whoever holds it.
    bool Exists() const;
    /// "COM7".
    const char* GetComName() const { return mName; }
    /// The kind of the device behind the port, with its number ("Serial0") or without ("Serial"); empty for a
    /// port that isn't listed.
    System::AnsiString GetTypeName(bool withNumber) const;

    /// The ports that are there. The list is made once, and again while it is empty; see
    /// `RefreshExistingPorts`.
    static void GetExistingPorts(CComNoList& list);
    /// As `GetExistingPorts`, but looks anew.
    static void RefreshExistingPorts(CComNoList& list);

    // Settings are kept in any case; false if the port isn't valid or the device refuses them. What is got
    // is what was kept, with false, where the device can't be asked.

    bool SetValues(const CComValues& values);
    /// What the device is set to; a field is 0 (`EBaud::Baud110`, 5 bits) if its table lacks that.
    bool GetValues(CComValues& values);
    bool SetupComm(const CComBufferSize& sizes);
    bool SetDCB(const DCB& state);
    bool SetDCB(EDCB change);
    bool GetDCB(DCB& state);
    /// False for null.
    bool SetTimeouts(const COMMTIMEOUTS* timeouts);
    /// False for null.
    bool GetTimeouts(COMMTIMEOUTS* timeouts);
    /// Sets the device to what is kept.
    bool DoSetValues();
    bool DoSetupComm();
    bool DoSetDCB();
    bool DoSetTimeouts();

    /// What holds the port, and how many bytes wait.
    bool GetComStat(COMSTAT& status);
    /// What the port can do.
    bool GetComProp(COMMPROP& properties);
    /// The lines that are on, a sum of `MS_...`.
    bool GetModemStatus(unsigned long& status);
    bool IsCTSOn();
    bool IsDSROn();
    bool IsRLSDOn();
    /// See the platform's call of this name.
    bool EscapeCommFunction(unsigned long function);
    bool SetDTR(bool on);
    bool SetRTS(bool on);

    /// What `WaitEvent` waits for, a sum of `EV_...`.
    bool SetEvent(unsigned long mask);
    /// Ends a wait that another thread is in; it gets the mask 0.
    bool ResetEvent();
    /// Waits for an event. With `FILE_FLAG_OVERLAPPED` among the flags it only looks, and is false with
    /// the last error 997 if there is none yet.
    bool WaitEvent();
    bool WaitEvent(unsigned long& mask);

    /// Moves up to `count` bytes and tells in `count` how many went. A time-out is a success with fewer
    /// bytes, which `IsShortTransfer` tells.
    bool Write(const char* buffer, unsigned long& count);
    bool Read(char* buffer, unsigned long& count);
    bool Send(const char* buffer, unsigned long count);
    bool Receive(char* buffer, unsigned long count);
    bool WriteString(const System::AnsiString& text);
    /// `text` has the length `count`, also if fewer bytes came; for more than there is memory for it is left
    /// alone, and the last error is 8.
    bool ReadString(System::AnsiString& text, unsigned long count);

    /// The bytes that came and aren't read, and those that are written and not sent.
    bool BytesInQueues(unsigned long& in, unsigned long& out);
    /// 0 on a failure.
    unsigned long BytesInInQueue();
    unsigned long BytesInOutQueue();
    /// Reads and drops what came, byte by byte; at most 65,536 bytes of a device that floods. A parked port
    /// has nothing.
    bool ClearInQueue();

    /// Takes errors of the line back, if the settings say that they stop transfers.
    bool ClearCommError();
    bool ClearCommError(unsigned long& errors, COMSTAT* status);
    void ClearLastError();
    /// Keeps the thread's last error as that of the port.
    void HandleError();

    /// The code of the last failure, 0 for none.
    unsigned long getLastError() const noexcept { return mLastError; }
    bool IsShortTransfer() const noexcept { return mShortTransfer; }
    bool IsParked() const noexcept { return mParked; }
    /// Invalid while the port is closed or parked.
    HANDLE getHandle() const noexcept { return mHandle; }

private:
    friend class CComOpener;

    bool Check(bool isDone);
    bool CheckValid();
    bool CloseDevice();
    bool IsOpen() const { return mHandle != INVALID_HANDLE_VALUE; }
    template <class Call>
    bool Transfer(unsigned long& count, Call call);
    bool UpdateStatus();

    unsigned long mLastError = 0;
    bool mShortTransfer = false;
    bool mParked = false;
    const char* mName = "";
    HANDLE mHandle = INVALID_HANDLE_VALUE;
    COverlapped mOverlapped;
    unsigned long mFlags = 0;
    CComValues mValues;
    CComBufferSize mSizes;
    DCB mState{};
    CCommTimeouts mTimeouts;
    COMSTAT mStatus{};
};

/// Holds a parked port open for a scope. A port that is open or closed stays as it is.
class TRS8_BTL_API CComOpener
{
public:
    /// Null does nothing.
    explicit CComOpener(CCom* port);
    CComOpener(const CComOpener&) = delete;
    CComOpener& operator=(const CComOpener&) = delete;
    ~CComOpener();

private:
    CCom* mPort = nullptr;
};

/// Adds the names of all 256 ports, each with its `ECom` as the number that its object pointer is.
TRS8_BTL_API void AddComNamesTo(Classes::TStrings* list);

} // namespace WIN

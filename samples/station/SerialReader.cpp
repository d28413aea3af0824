// SPDX-License-Identifier: MIT
#include "SerialReader.h"

#include <TRS8_BTL/foundation/logs/UTL_LOG_Log.h>
#include <TRS8_BTL/platform/host/Host_Error.h>
#include <TRS8_BTL/platform/host/Host_TickCount.h>
#include <TRS8_BTL/platform/host/devices/Host_PortMap.h>
#include <TRS8_BTL/progress/BTL_THRD_Timer.h>

#include <algorithm>
#include <utility>

namespace Station
{

namespace
{

using System::UnicodeString;

// All times are in milliseconds.
constexpr int AnswerTime = 200;
constexpr int DropTime = 100;
/// A read gives what is there, or the first bytes that come in this time.
constexpr std::uint32_t ReadTime = 50;
constexpr std::uint32_t WriteTime = 100;
/// No line of an answer is longer.
constexpr std::size_t MaxLine = 1000;

} // namespace

CSerialReader::CSerialReader(int port) : mNumber(port), mName(u"COM" + UnicodeString(port)) {}

void CSerialReader::Open()
{
    mPort = std::make_unique<WIN::CCom>(WIN::Int2Com(mNumber), WIN::EBaud::Baud9600, 0);
    const WIN::CCommTimeouts timeouts(MAXDWORD, MAXDWORD, ReadTime, 0, WriteTime);
    if (!mPort->SetTimeouts(&timeouts)) {
        UnicodeString reason = Host::GetPortRefusal(mNumber);
        if (reason.IsEmpty()) {
            reason = PortFault();
        }
        throw XBadAnswer(mName + u" can't be opened: " + reason);
    }
}

void CSerialReader::Ask()
{
    const UnicodeString faultBefore = std::exchange(mFault, {});
    mReadings.clear();
    try {
        if (!mPort->valid() && !mPort->Open()) {
            throw XBadAnswer(PortFault());
        }
        DropOld();
        if (!mPort->WriteString(Request)) {
            throw XBadAnswer(PortFault());
        }
        mReadings = ReadAnswer(ReadLine());
    } catch (const XBadAnswer& fault) {
        AddFault(fault.getMessage());
        if (mPort->getLastError() == ERROR_DEVICE_REMOVED) {
            // To be found again in a later turn, wherever it is plugged in.
            mPort->Close(false);
        }
    }
    mFaultCount += mFault.IsEmpty() ? 0 : 1;
    if (mFault != faultBefore) {
        BTL::Log(mName + u": " + (mFault.IsEmpty() ? UnicodeString(u"answers well again") : mFault));
    }
}

TSourceMaker CSerialReader::GetSourceMaker()
{
    return [this](const UnicodeString& name, const UnicodeString& unit) {
        return TSource{u"serial." + name, unit, [this, name, unit] { return Read(name, unit); }};
    };
}

UnicodeString CSerialReader::getFaultText() const
{
    return mName + u": " + UnicodeString(mFaultCount) + u" turns with a fault; the last: " + mLastFault;
}

std::optional<double> CSerialReader::Read(const UnicodeString& name, const UnicodeString& unit)
{
    const auto reading = mReadings.find(name);
    if (reading == mReadings.end()) {
        return std::nullopt;
    }
    if (reading->second.unit != unit) {
        BTL::Log(mName + u": " + name + u" is in '" + reading->second.unit + u"', not in '" + unit + u"'");
        return std::nullopt;
    }
    return reading->second.value;
}

/// Drops what came since the last turn: an answer that was late, or more of it than was asked for.
void CSerialReader::DropOld()
{
    unsigned long dropped = 0;
    BTL::CTimer timer(DropTime);
    char buffer[4096];
    while (mPort->BytesInInQueue() != 0) {
        if (!timer) {
            throw XBadAnswer(u"floods");
        }
        unsigned long count = sizeof buffer;
        if (!mPort->Read(buffer, count)) {
            throw XBadAnswer(PortFault());
        }
        dropped += count;
        // More may be on its way.
        Sleep(1);
    }
    if (dropped != 0) {
        AddFault(UnicodeString(dropped) + u" bytes came that nobody asked for");
    }
}

std::string CSerialReader::ReadLine()
{
    std::string line;
    BTL::CTimer timer(AnswerTime);
    while (timer) {
        char buffer[256];
        unsigned long count = sizeof buffer;
        if (!mPort->Read(buffer, count)) {
            throw XBadAnswer(PortFault());
        }
        line.append(buffer, count);
        const std::size_t end = line.find('\n');
        if (end != std::string::npos) {
            line.resize(end);
            return line;
        }
        if (line.size() > MaxLine) {
            throw XBadAnswer(u"the answer has no end");
        }
    }
    throw XBadAnswer(line.empty() ? UnicodeString(u"no answer")
                                  : u"the answer '" + ShowBytes(line) + u"' is cut");
}

void CSerialReader::AddFault(const UnicodeString& fault)
{
    mFault = mFault.IsEmpty() ? fault : mFault + u"; " + fault;
    mLastFault = mFault;
}

UnicodeString CSerialReader::PortFault() const
{
    switch (mPort->getLastError()) {
    case ERROR_DEVICE_REMOVED:
        return u"unplugged";
    case ERROR_FILE_NOT_FOUND:
        return u"there is no device";
    default:
        return u"error " + UnicodeString(mPort->getLastError());
    }
}

} // namespace Station

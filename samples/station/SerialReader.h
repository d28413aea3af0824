// SPDX-License-Identifier: MIT
#pragma once

#include "Answer.h"
#include "Sources.h"

#include <TRS8_BTL/serial/WIN_Com.h>

#include <map>
#include <memory>
#include <string>

namespace Station
{

/// Reads an instrument on a serial port. One that is late, talks nonsense or is unplugged costs no more than
/// half a second a turn, and is asked again in the next one.
class CSerialReader
{
public:
    explicit CSerialReader(int port);

    /// `Sysutils::Exception` if the port can't be opened.
    void Open();
    /// Asks for all values. What is wrong is logged when it begins and when it ends.
    void Ask();
    /// For quantities of this instrument, which must outlive the sources.
    TSourceMaker GetSourceMaker();

    /// How many turns had a fault.
    int getFaultCount() const { return mFaultCount; }
    /// How many faults there were, and which was the last one.
    System::UnicodeString getFaultText() const;

private:
    std::optional<double> Read(const System::UnicodeString& name, const System::UnicodeString& unit);
    void DropOld();
    std::string ReadLine();
    void AddFault(const System::UnicodeString& fault);
    System::UnicodeString PortFault() const;

    const int mNumber;
    const System::UnicodeString mName;
    std::unique_ptr<WIN::CCom> mPort;
    std::map<System::UnicodeString, TReading> mReadings;
    /// Of this turn; empty for none.
    System::UnicodeString mFault;
    System::UnicodeString mLastFault;
    int mFaultCount = 0;
};

} // namespace Station

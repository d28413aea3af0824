// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_LineSettings.h"

#include <algorithm>
#include <array>

// The kernel's own header has the record with speeds of any number; that of the C library can't stand beside
// it.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace Host
{

namespace
{

struct SizeFlag
{
    std::uint8_t bits;
    tcflag_t flag;
};
constexpr std::array<SizeFlag, 4> SizeFlags = {{{5, CS5}, {6, CS6}, {7, CS7}, {8, CS8}}};

struct ParityFlags
{
    std::uint8_t parity;
    tcflag_t flags;
};
constexpr std::array<ParityFlags, 5> Parities = {{{NOPARITY, 0},
                                                  {ODDPARITY, PARENB | PARODD},
                                                  {EVENPARITY, PARENB},
                                                  {MARKPARITY, PARENB | PARODD | CMSPAR},
                                                  {SPACEPARITY, PARENB | CMSPAR}}};
constexpr tcflag_t ParityMask = PARENB | PARODD | CMSPAR;

struct SpeedFlag
{
    std::uint32_t speed;
    tcflag_t flag;
};
constexpr std::array<SpeedFlag, 11> SpeedFlags = {{{110, B110},
                                                   {300, B300},
                                                   {600, B600},
                                                   {1200, B1200},
                                                   {2400, B2400},
                                                   {4800, B4800},
                                                   {9600, B9600},
                                                   {19200, B19200},
                                                   {38400, B38400},
                                                   {57600, B57600},
                                                   {115200, B115200}}};

/// Other programs know the usual speeds by their flags alone.
tcflag_t FlagOf(std::uint32_t speed)
{
    const auto found = std::ranges::find(SpeedFlags, speed, &SpeedFlag::speed);
    return found == SpeedFlags.end() ? BOTHER : found->flag;
}

/// The flags of the frame: data bits, parity, stop bits.
tcflag_t FrameFlags(const DCB& state)
{
    const auto size = std::ranges::find(SizeFlags, state.ByteSize, &SizeFlag::bits);
    const auto parity = std::ranges::find(Parities, state.Parity, &ParityFlags::parity);
    tcflag_t flags = size == SizeFlags.end() ? CS8 : size->flag;
    flags |= parity == Parities.end() ? 0 : parity->flags;
    return state.StopBits == ONESTOPBIT ? flags : flags | CSTOPB;
}

/// A driver may take the nearest speed that its clock gives; a frame of ten bits bears that.
bool IsNear(std::uint32_t speed, std::uint32_t wanted)
{
    constexpr std::uint64_t percent = 100;
    constexpr std::uint64_t bearable = 3;
    const std::uint64_t distance = speed > wanted ? speed - wanted : wanted - speed;
    return distance * percent <= std::uint64_t{wanted} * bearable;
}

void SetFlag(tcflag_t& flags, tcflag_t flag, bool isOn)
{
    flags = isOn ? flags | flag : flags & ~flag;
}

} // namespace

struct LineSettings::Record : termios2
{
};

LineSettings::LineSettings() : mRecord(std::make_unique<Record>()) {}
LineSettings::LineSettings(const LineSettings& other) : mRecord(std::make_unique<Record>(*other.mRecord)) {}
LineSettings& LineSettings::operator=(const LineSettings& other)
{
    *mRecord = *other.mRecord;
    return *this;
}
LineSettings::~LineSettings() = default;

bool LineSettings::Read(int device)
{
    return ioctl(device, TCGETS2, static_cast<termios2*>(mRecord.get())) == 0;
}

bool LineSettings::Write(int device) const
{
    return ioctl(device, TCSETS2, static_cast<const termios2*>(mRecord.get())) == 0;
}

void LineSettings::Take(const DCB& state)
{
    Record& line = *mRecord;
    line.c_iflag = 0;
    SetFlag(line.c_iflag, INPCK, state.fParity != 0);
    SetFlag(line.c_iflag, IXON, state.fOutX != 0);
    SetFlag(line.c_iflag, IXOFF, state.fInX != 0);
    line.c_oflag = 0;
    line.c_lflag = 0;
    line.c_cflag &= ~(CBAUD | CSIZE | ParityMask | CSTOPB | CRTSCTS | HUPCL | (CBAUD << IBSHIFT));
    line.c_cflag |= CREAD | CLOCAL | FlagOf(state.BaudRate) | FrameFlags(state);
    SetFlag(line.c_cflag, CRTSCTS, state.fOutxCtsFlow != 0 || state.fRtsControl == RTS_CONTROL_HANDSHAKE);
    line.c_ispeed = line.c_ospeed = state.BaudRate;
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
    line.c_cc[VSTART] = static_cast<cc_t>(state.XonChar);
    line.c_cc[VSTOP] = static_cast<cc_t>(state.XoffChar);
}

DCB LineSettings::State() const
{
    const Record& line = *mRecord;
    DCB state{};
    state.DCBlength = sizeof state;
    state.BaudRate = line.c_ospeed;
    state.fBinary = 1;
    const bool byLines = (line.c_cflag & CRTSCTS) != 0;
    state.fOutxCtsFlow = byLines ? 1 : 0;
    state.fRtsControl = (byLines ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE) & 3U;
    state.fDtrControl = DTR_CONTROL_ENABLE;
    state.ByteSize = std::ranges::find(SizeFlags, line.c_cflag & CSIZE, &SizeFlag::flag)->bits;
    const tcflag_t parity = (line.c_cflag & PARENB) != 0 ? line.c_cflag & ParityMask : 0;
    state.Parity = std::ranges::find(Parities, parity, &ParityFlags::flags)->parity;
    const bool hasMoreStopBits = (line.c_cflag & CSTOPB) != 0;
    state.StopBits = !hasMoreStopBits ? ONESTOPBIT : state.ByteSize == 5 ? ONE5STOPBITS : TWOSTOPBITS;
    // What a terminal of people is set to, which most devices are before somebody sets them, isn't meant for
    // an instrument: XON and XOFF stay off.
    constexpr char xon = 17;
    constexpr char xoff = 19;
    state.XonChar = xon;
    state.XoffChar = xoff;
    constexpr std::uint16_t limit = 2048;
    constexpr std::uint16_t limitOff = 512;
    state.XonLim = limit;
    state.XoffLim = limitOff;
    return state;
}

bool LineSettings::HasTaken(const DCB& wanted, bool isPseudoTerminal) const
{
    const Record& line = *mRecord;
    constexpr tcflag_t frame = CSIZE | ParityMask | CSTOPB;
    // A pseudo-terminal moves bytes, not frames, and says so by 8 bits without parity.
    return IsNear(line.c_ospeed, wanted.BaudRate) &&
           (isPseudoTerminal || (line.c_cflag & frame) == FrameFlags(wanted));
}

bool IsPossible(const DCB& state)
{
    constexpr std::uint8_t least = 5;
    constexpr std::uint8_t most = 8;
    const bool isShort = state.ByteSize == least;
    return state.BaudRate != 0 && state.ByteSize >= least && state.ByteSize <= most &&
           state.Parity <= SPACEPARITY && state.StopBits <= TWOSTOPBITS &&
           (state.StopBits == ONESTOPBIT || isShort == (state.StopBits == ONE5STOPBITS)) &&
           state.fRtsControl != RTS_CONTROL_TOGGLE && state.fDtrControl <= DTR_CONTROL_HANDSHAKE;
}

} // namespace Host

// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_LogFile.h"

#include "foundation/logs/internal/UTL_LOG_Lines.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_Shell.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <iostream>

namespace UTL
{

namespace
{

using System::UnicodeString;
using System::WideChar;

/// Create, overwriting what exists; others may read but not write.
constexpr unsigned CreateDenyWrite = 65312;
constexpr int ShowDefault = 10;
constexpr const char* LineEnd = "\r\n";

/// What all objects share.
struct TPlace
{
    UnicodeString path;
    UnicodeString fileName;
};

/// Never destroyed: the global objects of a program may log while they end.
TPlace& Place()
{
    static TPlace& place = *new TPlace;
    return place;
}

UnicodeString FullName()
{
    return Place().path + Place().fileName;
}

} // namespace

CLogFile::CLogFile() = default;

CLogFile::CLogFile(const char* path, const char* fileName)
{
    Init(path, fileName);
}

CLogFile::CLogFile(const WideChar* path, const WideChar* fileName)
{
    Init(path, fileName);
}

CLogFile::~CLogFile()
{
    Clear();
}

void CLogFile::Init(const UnicodeString& path, const UnicodeString& fileName)
{
    Clear();
    if (fileName.IsEmpty()) {
        return;
    }
    Place() = {path, fileName};
    Create(CreateDenyWrite);
}

void CLogFile::Init(const char* fileName)
{
    Init(Place().path, fileName);
}

void CLogFile::SetPath(const char* path)
{
    Place().path = path;
}

void CLogFile::SetPath(const WideChar* path)
{
    Place().path = path;
}

void CLogFile::setForm(const TLogForm& form)
{
    WriteUnfinished();
    mForm = form;
    mPieces = form == TLogForm() ? nullptr : std::make_unique<Detail::CLogPieces>();
}

void CLogFile::On()
{
    if (!mOn) {
        Create(std::nullopt);
    }
}

void CLogFile::Off()
{
    WriteUnfinished();
    if (mFile > 0) {
        Sysutils::FileClose(mFile);
    }
    mFile = 0;
    mOn = false;
}

void CLogFile::Clear()
{
    Off();
}

void CLogFile::Log(UnicodeString text, bool newLine)
{
    if (!mOn) {
        return;
    }
    const std::string bytes = Detail::LogBytes(text, mForm.encoding) + (newLine ? LineEnd : "");
    if (mPieces == nullptr) {
        Write(bytes);
        return;
    }
    mPieces->Add(bytes, mForm.time, [this](const std::string& lines) { Write(lines); });
}

void CLogFile::Write(std::string_view bytes) const
{
    if (mFile > 0) {
        Sysutils::FileWrite(mFile, bytes.data(), static_cast<unsigned>(bytes.size()));
    }
}

/// Ends the lines that have no end yet.
void CLogFile::WriteUnfinished()
{
    if (mPieces != nullptr) {
        mPieces->Finish(mForm.time, LineEnd, [this](const std::string& lines) { Write(lines); });
    }
}

void CLogFile::View()
{
    ShellExecuteW(nullptr, u"open", FullName().c_str(), u"", u"", ShowDefault);
}

void CLogFile::Create(std::optional<unsigned> mode)
{
    const UnicodeString name = FullName();
    mFile = mode ? Sysutils::FileCreate(name, *mode, 0) : Sysutils::FileCreate(name);
    mOn = true;
}

CCoutToFile::CCoutToFile(const char* fileName, bool activate)
{
    if (fileName == nullptr) {
        return;
    }
    mFile.open(Sysutils::HostPath(fileName), std::ios::out);
    if (activate) {
        mPrevious = std::cout.rdbuf(mFile.rdbuf());
    }
}

CCoutToFile::~CCoutToFile()
{
    if (mPrevious != nullptr) {
        std::cout.rdbuf(mPrevious);
    }
}

} // namespace UTL

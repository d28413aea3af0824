// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/logs/UTL_LOG_Form.h"
#include "platform/base/System_String.h"

#include <fstream>
#include <memory>
#include <optional>
#include <streambuf>
#include <string_view>

namespace UTL
{

namespace Detail
{
class CLogPieces;
} // namespace Detail

// Take this log for a file that tells of the last run alone and that its owner switches on and off; the logs
// of `UTL_LOG_LogStream.h` and `UTL_LOG_Log.h` go on behind what former runs wrote.
//
//     UTL::CLogFile log;
//     log.setForm({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
//     log.Init(u"C:\\data\\", u"run.txt");
//     log.Log(u"started", true);

/// A log file that is created anew at each start of logging. Path and file name are shared by all objects,
/// the open file is the object's own. Nothing reports an error: where the file can't be created, what is
/// logged is lost.
class TRS8_BTL_API CLogFile
{
public:
    /// No file, off.
    CLogFile();
    /// As `Init(path, fileName)`.
    CLogFile(const char* path, const char* fileName);
    CLogFile(const System::WideChar* path, const System::WideChar* fileName);
    CLogFile(const CLogFile&) = delete;
    CLogFile& operator=(const CLogFile&) = delete;
    ~CLogFile();

    /// Ends logging, then stores both names for all objects and starts to log into a new file, which others
    /// may read. With an empty `fileName` logging only ends. The file is `path` + `fileName` as they stand.
    void Init(const System::UnicodeString& path, const System::UnicodeString& fileName);
    /// As `Init(path, fileName)`, but with the path stored last.
    void Init(const char* fileName);

    /// Stores the path for the forms of `Init` without one.
    static void SetPath(const char* path);
    static void SetPath(const System::WideChar* path);

    /// How the lines of this object look from now on; at start without times, in the system's code page. The
    /// file stays as it is.
    void setForm(const TLogForm& form);
    const TLogForm& getForm() const noexcept { return mForm; }

    /// Starts to log into a new file, unless this object logs already.
    void On();
    /// Closes the file and ends logging.
    void Off();
    /// Closes the file and ends logging, as `Off`.
    void Clear();

    /// Writes `text`, with CR LF behind it if `newLine`. With a form other than the usual one threads may
    /// call it at once; a line that has no end yet is written when it comes, or when logging ends.
    void Log(System::UnicodeString text, bool newLine);

    /// Shows the file in the program that the user reads such files with.
    void View();

private:
    void Create(std::optional<unsigned> mode);
    void Write(std::string_view bytes) const;
    void WriteUnfinished();

    System::NativeInt mFile = 0;
    bool mOn = false;
    TLogForm mForm;
    /// Null with the usual form.
    std::unique_ptr<Detail::CLogPieces> mPieces;
};

/// Sends `std::cout` to a file for the life of the object.
class TRS8_BTL_API CCoutToFile
{
public:
    /// Empties the file. `std::cout` goes there only with `activate` and a name that isn't null.
    CCoutToFile(const char* fileName, bool activate);
    CCoutToFile(const CCoutToFile&) = delete;
    CCoutToFile& operator=(const CCoutToFile&) = delete;
    ~CCoutToFile();

private:
    std::ofstream mFile;
    std::streambuf* mPrevious = nullptr;
};

} // namespace UTL

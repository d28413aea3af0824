// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <fstream>
#include <optional>
#include <streambuf>

namespace UTL
{

// Take this log for a file that tells of the last run alone and that its owner switches on and off; the logs
// of `UTL_LOG_LogStream.h` and `UTL_LOG_Log.h` go on behind what former runs wrote.

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

    /// Starts to log into a new file, unless this object logs already.
    void On();
    /// Closes the file and ends logging.
    void Off();
    /// Closes the file and ends logging, as `Off`.
    void Clear();

    /// Writes `text` in the system's code page, with CR LF behind it if `newLine`.
    void Log(System::UnicodeString text, bool newLine);

    /// Shows the file in the program that the user reads such files with.
    void View();

private:
    void Create(std::optional<unsigned> mode);

    static System::UnicodeString smPath;
    static System::UnicodeString smFileName;

    System::NativeInt mFile = 0;
    bool mOn = false;
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

// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_LogStream.h"

#include "foundation/logs/internal/UTL_LOG_Folder.h"
#include "foundation/logs/internal/UTL_LOG_Lines.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/host/Host_Path.h"

#include <fstream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

using System::UnicodeString;

namespace UTL
{

namespace
{

/// What the streams of all threads write to: the file gets whole lines.
class CLineBuffer : public std::streambuf
{
public:
    CLineBuffer(std::ofstream& file, ELogTime time) : mFile(file), mTime(time) {}

    /// Ends the line that this thread began.
    void EndLine()
    {
        if (mPieces.HasUnfinished()) {
            Add("\n");
        }
    }
    void EndAllLines()
    {
        mPieces.Finish(mTime, "\n", [this](const std::string& lines) { mFile << lines; });
    }

protected:
    int_type overflow(int_type c) override
    {
        if (!traits_type::eq_int_type(c, traits_type::eof())) {
            const char byte = traits_type::to_char_type(c);
            Add({&byte, 1});
        }
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char* bytes, std::streamsize count) override
    {
        Add({bytes, static_cast<std::size_t>(count)});
        return count;
    }
    int sync() override
    {
        mPieces.Alone([this] { mFile.flush(); });
        return 0;
    }

private:
    void Add(std::string_view bytes)
    {
        mPieces.Add(bytes, mTime, [this](const std::string& lines) { mFile << lines; });
    }

    std::ofstream& mFile;
    ELogTime mTime;
    Detail::CLogPieces mPieces;
};

/// The state of the log stream; the file is opened on first use.
struct TLogStream
{
    UnicodeString fileName;
    bool on = true;
    bool startLineDue = true;
    TLogForm form;
    std::optional<std::ofstream> file;

    // For a form of which several threads may make use, each with a stream of its own.

    std::mutex gate;
    std::optional<CLineBuffer> lines;
    std::vector<std::unique_ptr<std::ostream>> streams;
    /// Those whose thread is over. They are never destroyed: the program may still have a pointer.
    std::vector<std::ostream*> idle;
};

/// Never destroyed: the global objects of a program may log while they end.
TLogStream& LogStream()
{
    static TLogStream& log = *new TLogStream;
    return log;
}

/// What must be written at the end. It was made before the global objects of the program, and so ends behind
/// them.
struct TWriteAtEnd
{
    ~TWriteAtEnd()
    {
        TLogStream& log = LogStream();
        if (log.lines) {
            log.lines->EndAllLines();
        }
        if (log.file) {
            log.file->flush();
        }
    }
};

const TWriteAtEnd writeAtEnd{};

/// The stream of this thread. Both have no destructor, so that they are there for what ends after the
/// thread's objects.
constinit thread_local std::ostream* ownStream = nullptr;
constinit thread_local bool threadHasEnded = false;

struct TThreadEnd
{
    ~TThreadEnd()
    {
        threadHasEnded = true;
        TLogStream& log = LogStream();
        log.lines->EndLine();
        const std::lock_guard lock(log.gate);
        log.idle.push_back(std::exchange(ownStream, nullptr));
    }
};

/// A stream that no thread uses, as it was when it was new.
std::ostream* FreeStream(TLogStream& log)
{
    if (log.idle.empty()) {
        return log.streams.emplace_back(std::make_unique<std::ostream>(&*log.lines)).get();
    }
    std::ostream* const stream = log.idle.back();
    log.idle.pop_back();
    stream->copyfmt(std::ios(nullptr));
    return stream;
}

std::ostream* StreamOfThread(TLogStream& log)
{
    if (ownStream == nullptr) {
        ownStream = FreeStream(log);
        ownStream->clear(log.file->rdstate());
        if (!threadHasEnded) {
            thread_local const TThreadEnd end;
        }
    }
    return ownStream;
}

void Open(TLogStream& log)
{
    if (log.fileName.IsEmpty()) {
        log.fileName = Detail::InProgramFolder(u"TRS_Log.txt");
    }
    log.file.emplace(Sysutils::HostPath(log.fileName), std::ios::out | std::ios::app);
    if (log.form != TLogForm()) {
        log.lines.emplace(*log.file, log.form.time);
    }
}

void WriteStartLine(std::ostream& stream, const TLogForm& form)
{
    const std::string time = form.time == ELogTime::None
                                 ? Detail::LogBytes(Sysutils::DateTimeToStr(Sysutils::Now()), form.encoding)
                                 : Detail::LogTime();
    stream << '\n' << time << ' ' << std::string(52, '-') << std::endl;
}

} // namespace

void set_log_file(const UnicodeString& name)
{
    LogStream().fileName = name;
}

void set_log_form(const TLogForm& form)
{
    LogStream().form = form;
}

void set_logging(bool on)
{
    LogStream().on = on;
}

std::ostream* get_log_stream()
{
    TLogStream& log = LogStream();
    if (!log.on) {
        return nullptr;
    }
    const std::lock_guard lock(log.gate);
    if (!log.file) {
        Open(log);
    }
    if (std::exchange(log.startLineDue, false)) {
        WriteStartLine(*log.file, log.form);
    }
    return log.lines ? StreamOfThread(log) : &*log.file;
}

} // namespace UTL

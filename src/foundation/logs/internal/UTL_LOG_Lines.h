// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/logs/UTL_LOG_Form.h"
#include "platform/base/System_String.h"

#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace UTL::Detail
{

/// The bytes of a text in a log.
[[nodiscard]] std::string LogBytes(const System::UnicodeString& text, ELogEncoding encoding);

/// The present time as it stands in front of a line, without the blank.
[[nodiscard]] std::string LogTime();

/// Takes the whole lines out of `text`, with the time in front of each. What stays has no end yet.
[[nodiscard]] std::string TakeLogLines(std::string& text, ELogTime time);

/// Gathers what several threads log in pieces. A `write` gets whole lines, for one thread at a time.
class CLogPieces
{
public:
    template <class Write>
    void Add(std::string_view bytes, ELogTime time, Write write)
    {
        const std::lock_guard lock(mGate);
        const auto thread = mUnfinished.try_emplace(std::this_thread::get_id()).first;
        thread->second += bytes;
        if (bytes.find('\n') == std::string_view::npos) {
            return;
        }
        write(TakeLogLines(thread->second, time));
        if (thread->second.empty()) {
            mUnfinished.erase(thread);
        }
    }

    /// Ends the lines of all threads that have none yet.
    template <class Write>
    void Finish(ELogTime time, std::string_view lineEnd, Write write)
    {
        const std::lock_guard lock(mGate);
        for (auto& [thread, text] : mUnfinished) {
            text += lineEnd;
            write(TakeLogLines(text, time));
        }
        mUnfinished.clear();
    }

    /// Whether this thread began a line.
    bool HasUnfinished()
    {
        const std::lock_guard lock(mGate);
        return mUnfinished.contains(std::this_thread::get_id());
    }

    /// Runs what must not happen while a thread writes.
    template <class Call>
    void Alone(Call call)
    {
        const std::lock_guard lock(mGate);
        call();
    }

private:
    std::mutex mGate;
    /// Texts without a line feed.
    std::map<std::thread::id, std::string> mUnfinished;
};

} // namespace UTL::Detail

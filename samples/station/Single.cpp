// SPDX-License-Identifier: MIT
#include "Single.h"

#include "Options.h"

#include <TRS8_BTL/platform/host/Host_Shell.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_FileName.h>

#include <string>
#include <utility>
#include <vector>

namespace Station
{

using System::UnicodeString;

namespace
{

/// An answer of 0 is that of nobody.
constexpr int FirstAnswer = 1;

} // namespace

bool CRunEnd::PutOff(double seconds)
{
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    auto former = mEnd.load();
    while (former < end && !mEnd.compare_exchange_weak(former, end)) {
    }
    return former != Never;
}

bool CRunEnd::EndsBefore(Clock::time_point time)
{
    auto end = mEnd.load();
    return end < time && mEnd.compare_exchange_strong(end, Never);
}

std::int64_t CRunEnd::GetTurnsFrom(Clock::time_point time, Clock::duration interval) const
{
    const auto end = mEnd.load();
    return end < time ? 0 : (end - time) / interval + 1;
}

CSingleStation::CSingleStation(const UnicodeString& samplesFile)
    : mName(u"TRS8_BTL station " + Sysutils::ExpandFileName(samplesFile)), mOnce(std::in_place, mName.c_str())
{
}

std::optional<int> CSingleStation::HandOver(const UnicodeString& commandLine)
{
    // The one that is asked may fail before it can answer.
    constexpr unsigned long patience = 1000;
    while (!IsFirst()) {
        const int answer = mOnce->SendMessageToMainProcess(commandLine.c_str(), patience);
        if (answer >= FirstAnswer) {
            return answer - FirstAnswer;
        }
    }
    return std::nullopt;
}

bool CSingleStation::IsFirst()
{
    // Where the session has no place for names, nobody is in front, and nobody can be the first one.
    constexpr int attempts = 3;
    for (int i = 0; i < attempts && !mOnce->IsMainProcess(); ++i) {
        if (mOnce->ExistsMainProcess()) {
            return false;
        }
        mOnce.emplace(mName.c_str());
    }
    return true;
}

void CSingleStation::Serve(std::function<std::optional<int>(const UnicodeString&)> obey)
{
    mOnce->OnMessage = [obey = std::move(obey)](const UnicodeString& line) {
        const std::optional<int> answer = obey(line);
        return answer ? FirstAnswer + *answer : 0;
    };
    mOnce->CreateMessageWindow();
}

TOptions ReadHandedOver(const UnicodeString& commandLine, EStationKind kind)
{
    std::vector<std::string> texts;
    for (const UnicodeString& word : Host::SplitArguments(commandLine)) {
        texts.push_back(System::ToUtf8(word));
    }
    std::vector<const char*> arguments;
    for (const std::string& text : texts) {
        arguments.push_back(text.c_str());
    }
    const TOptions options = ReadOptions(static_cast<int>(arguments.size()), arguments.data());
    TOptions rest = options;
    rest.window = options.window && kind == EStationKind::Terminal;
    if (!IsForRunUnderWay(rest)) {
        throw BTL::XCommandLine(u"a run under way takes --seconds alone");
    }
    return options;
}

} // namespace Station

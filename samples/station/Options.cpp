// SPDX-License-Identifier: MIT
#include "Options.h"

#include <TRS8_BTL/text/BTL_NUM_Numbers.h>

#include <functional>
#include <map>
#include <string>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr double MaxSeconds = 24 * 3600;

double ReadSeconds(const std::string& text)
{
    double seconds = 0;
    if (!BTL::ToDouble(System::FromUtf8(text), seconds) || seconds <= 0 || seconds > MaxSeconds) {
        throw XBadOption(u"--seconds: '" + System::FromUtf8(text) +
                         u"' is not a time above 0 and up to a day");
    }
    return seconds;
}

char ReadDecimal(const std::string& text)
{
    if (text != "." && text != ",") {
        throw XBadOption(u"--decimal: '" + System::FromUtf8(text) + u"' is neither '.' nor ','");
    }
    return text[0];
}

} // namespace

const char* const HelpText = R"(Samples channels of this machine for some seconds and prints their statistics.

Usage: station [options]

  --seconds N      how long to sample; default 5
  --channels FILE  the channels with their units and limits; default channels.txt
  --decimal C      the decimal separator of the table, '.' or ','; default: that of the locale
  --log FILE       where to log; default Log.txt beside the program
  --help           this text

Numbers may be written with either decimal separator. Exit code 0: the table was printed;
1: something failed; 2: the command line or the channel file is bad.
)";

TOptions ReadOptions(std::span<char* const> words)
{
    TOptions options;
    const std::map<std::string, std::function<void(const std::string&)>> actions = {
        {"--seconds", [&](const std::string& value) { options.seconds = ReadSeconds(value); }},
        {"--channels", [&](const std::string& value) { options.channels = value; }},
        {"--decimal", [&](const std::string& value) { options.decimal = ReadDecimal(value); }},
        {"--log", [&](const std::string& value) { options.log = value; }},
    };
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string word = words[i];
        if (word == "--help") {
            options.help = true;
            continue;
        }
        const auto action = actions.find(word);
        if (action == actions.end()) {
            throw XBadOption(u"unknown option '" + System::FromUtf8(word) + u"'; --help tells all");
        }
        if (++i == words.size()) {
            throw XBadOption(System::FromUtf8(word) + u": the value is missing");
        }
        action->second(words[i]);
    }
    return options;
}

} // namespace Station

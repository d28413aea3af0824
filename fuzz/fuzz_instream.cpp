// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/Fuzz.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace
{

using Classes::TMemoryStream;
using Classes::TStream;
using Fuzz::Require;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

/// Gives its bytes only through `Read`, and few at a time.
class SlowStream : public TMemoryStream
{
public:
    ~SlowStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        return TMemoryStream::Read(buffer, std::min<Int64>(count, 3));
    }
};

// Simple forms of what the streams do.

bool IsBlank(char c)
{
    return static_cast<signed char>(c) <= 32;
}

/// The text from `position` on up to the first byte that ends it; moves `position` there.
template <class IsEnd>
std::string_view Take(std::string_view content, std::size_t& position, IsEnd isEnd)
{
    const std::size_t start = position;
    while (position < content.size() && !isEnd(content[position])) {
        ++position;
    }
    return content.substr(start, position - start);
}

std::string_view TakeNumber(std::string_view content, std::size_t& position)
{
    Take(content, position, [](char c) { return !IsBlank(c); });
    return Take(content, position,
                [](char c) { return std::string_view("0123456789+-.eE").find(c) == std::string_view::npos; });
}

void CheckNumbers(TStream& bytes, std::string_view content)
{
    BTL::CInStream stream(&bytes, BTL::ssRewind);
    std::size_t position = 0;
    for (int kind = 0; stream.good(); kind = (kind + 1) % 3) {
        const UnicodeString text{AnsiString(TakeNumber(content, position))};
        const auto check = [&](auto value, auto convert) {
            auto expected = value;
            const bool fits = convert(expected);
            stream >> value;
            Require(value == (fits ? expected : 0));
            Require(stream.fail() == !fits);
        };
        const auto toFloat = [&](auto& value) { return Sysutils::BufferToFloat(text.AsView(), u'.', value); };
        switch (kind) {
        case 0:
            check(Int64{0}, [&](Int64& value) { return Sysutils::TryStrToInt64(text, value); });
            break;
        case 1:
            check(0.0, toFloat);
            break;
        default:
            check(0.0L, toFloat);
        }
        Require(stream.eof() == (position == content.size()));
        Require(stream.tellg() == static_cast<Int64>(position));
    }
}

void CheckWords(TStream& bytes, std::string_view content)
{
    BTL::CInStream stream(&bytes, BTL::ssRewind);
    std::size_t position = 0;
    while (stream.good()) {
        Take(content, position, [](char c) { return !IsBlank(c); });
        const AnsiString expected(Take(content, position, IsBlank));
        AnsiString word;
        stream >> word;
        Require(word == expected && stream.tellg() == static_cast<Int64>(position));
    }
    Require(position == content.size());
}

void CheckBinaryWords(TStream& bytes, std::string_view content)
{
    const auto fits = [](const unsigned char* table) {
        return [table](char c) { return table[static_cast<unsigned char>(c)] != 0; };
    };
    const auto starts = fits(UTL::GetWordCharsA());
    const auto continues = fits(UTL::GetWordChars2A());
    bytes.setPosition(0);
    BTL::MStream stream(&bytes);
    std::size_t position = 0;
    while (position < content.size()) {
        Take(content, position, starts);
        const std::size_t start = position;
        std::size_t end = position;
        if (end < content.size()) {
            Take(content, ++end, [&](char c) { return !continues(c); });
        }
        int place = -1;
        Require(stream.ReadWord(place) == AnsiString(content.substr(start, end - start)));
        Require(place == (start < content.size() ? static_cast<int>(start) : -1));
        position = std::min(end + 1, content.size());
        Require(bytes.getPosition() == static_cast<Int64>(position));
    }
}

void CheckLines(TStream& bytes, std::string_view content, char delimiter)
{
    bytes.setPosition(0);
    BTL::MStream stream(&bytes);
    std::size_t position = 0;
    while (position < content.size()) {
        std::string line(Take(content, position, [&](char c) { return c == '\n' || c == delimiter; }));
        line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
        const bool isLineFeed = position < content.size() && content[position] == '\n';
        bool newLine = !isLineFeed;
        Require(stream.ReadLineUntil(delimiter, newLine) == AnsiString(std::string_view(line)));
        Require(newLine == isLineFeed);
        position = std::min(position + 1, content.size());
        Require(bytes.getPosition() == static_cast<Int64>(position));
    }
}

void CheckSearch(TStream& bytes, std::string_view content, std::string_view pattern)
{
    const AnsiString text(pattern);
    const std::size_t found = pattern.empty() ? std::string_view::npos : content.find(pattern);
    const bool isThere = found != std::string_view::npos;
    Require(BTL::Search(text, &bytes, 0) == (isThere ? static_cast<Int64>(found) : -1));
    bytes.setPosition(0);
    Require(BTL::ReadStringUntil(&bytes, text) == AnsiString(content.substr(0, found)));
    const std::size_t end = isThere ? found + pattern.size() : content.size();
    Require(bytes.getPosition() == static_cast<Int64>(end));
}

/// Gets texts into a buffer, where nothing may be written behind its end.
void CheckBuffers(TStream& bytes, char delimiter)
{
    BTL::CInStream stream(&bytes, BTL::ssRewind);
    while (stream.good()) {
        char* const buffer = new char[7];
        if (stream.tellg() % 2 == 0) {
            stream.get(buffer, 7, delimiter);
        } else {
            stream.getline(buffer, 7, delimiter);
        }
        Require(stream.gcount() < 7);
        delete[] buffer;
    }
}

/// Reads and seeks through a standard stream as on the bytes themselves.
void CheckStandardStream(TStream& bytes, std::string_view content)
{
    BTL::CStdInStream stream(&bytes, BTL::ssRewind);
    std::size_t position = 0;
    for (std::size_t i = 0; i < content.size() && i < 200; ++i) {
        const auto step = static_cast<unsigned char>(content[i]);
        if (step % 3 == 0) {
            position = content.size() * step / 256;
            stream.seekg(static_cast<std::streamoff>(position));
        } else if (step % 3 == 1) {
            std::string block(step, ' ');
            stream.read(block.data(), step);
            block.resize(static_cast<std::size_t>(stream.gcount()));
            Require(block == content.substr(position, step));
            position += block.size();
            stream.clear();
        } else if (position > 0 && stream.unget()) {
            --position;
            Require(stream.peek() == static_cast<unsigned char>(content[position]));
        }
        stream.clear();
        Require(stream.tellg() == static_cast<std::streamoff>(position));
    }
}

void CheckAll(TStream& bytes, std::string_view content, std::string_view pattern)
{
    bytes.WriteBuffer(content.data(), static_cast<Int64>(content.size()));
    const char delimiter = pattern.empty() ? ';' : pattern.front();
    CheckNumbers(bytes, content);
    CheckWords(bytes, content);
    CheckBinaryWords(bytes, content);
    CheckLines(bytes, content, delimiter);
    CheckLines(bytes, content, '\n');
    CheckSearch(bytes, content, pattern);
    CheckBuffers(bytes, delimiter);
    CheckStandardStream(bytes, content);
    bytes.setPosition(0);
    // Most bytes are no string.
    Fuzz::Try<Classes::EReadError>([&] { BTL::MStream(&bytes).ReadString(); });
}

} // namespace

/// Reads any bytes as numbers, words and lines, and searches them for a pattern, the first line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::Input input(data, size);
    const std::string_view pattern = input.Take(std::min<std::size_t>(input.getText().find('\n'), 40));
    TMemoryStream memory;
    CheckAll(memory, input.getText(), pattern);
    SlowStream slow;
    CheckAll(slow, input.getText(), pattern);
    return 0;
}

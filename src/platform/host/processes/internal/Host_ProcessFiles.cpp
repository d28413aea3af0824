// SPDX-License-Identifier: MIT
#include "platform/host/processes/internal/Host_ProcessFiles.h"

#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

namespace Host
{

namespace
{

/// The fields that are parted by a blank each.
class CFields
{
public:
    explicit CFields(std::string_view text) : mText(text) {}

    std::string_view Next()
    {
        const std::size_t end = std::min(mText.find(' '), mText.size());
        const std::string_view field = mText.substr(0, end);
        mText.remove_prefix(std::min(end + 1, mText.size()));
        return field;
    }

    void Skip(int count)
    {
        for (int i = 0; i < count; ++i) {
            Next();
        }
    }

    template <class T>
    T Number()
    {
        T value = 0;
        const std::string_view field = Next();
        std::from_chars(field.data(), field.data() + field.size(), value);
        return value;
    }

private:
    std::string_view mText;
};

} // namespace

std::optional<std::string> ReadProcessFile(int folder, pid_t process, std::string_view file)
{
    const std::string path = std::to_string(process).append("/").append(file);
    const Descriptor descriptor(openat(folder, path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor.IsOpen()) {
        return std::nullopt;
    }
    constexpr std::size_t most = 4096;
    char buffer[most];
    const ssize_t length = Uninterrupted([&] { return read(descriptor.Get(), buffer, most); });
    return length < 0 ? std::nullopt : std::optional<std::string>(std::in_place, buffer, length);
}

std::optional<TProcessStat> ParseProcessStat(std::string_view text)
{
    // The name may hold anything, parentheses and blanks too.
    const std::size_t begin = text.find('(');
    const std::size_t end = text.rfind(')');
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin ||
        end + 2 >= text.size()) {
        return std::nullopt;
    }
    TProcessStat stat;
    stat.name = text.substr(begin + 1, end - begin - 1);
    CFields fields(text.substr(end + 2));
    stat.state = fields.Next().front();
    stat.parent = fields.Number<pid_t>();
    fields.Skip(5);
    stat.pageFaults = fields.Number<unsigned long>();
    fields.Skip(1);
    stat.pageFaults += fields.Number<unsigned long>();
    fields.Skip(6);
    stat.nice = fields.Number<int>();
    stat.threads = fields.Number<unsigned>();
    fields.Skip(1);
    stat.start = fields.Number<std::uint64_t>();
    return stat;
}

std::optional<TProcessStart> ReadProcessStart(unsigned long process)
{
    constexpr unsigned long most = std::numeric_limits<pid_t>::max();
    const Descriptor folder(open("/proc", O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (process == 0 || process > most || !folder.IsOpen()) {
        return std::nullopt;
    }
    const auto text = ReadProcessFile(folder.Get(), static_cast<pid_t>(process), "stat");
    const auto stat = text ? ParseProcessStat(*text) : std::nullopt;
    if (!stat || !IsAlive(*stat)) {
        return std::nullopt;
    }
    constexpr double billion = 1e9;
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double uptime = static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / billion;
    return TProcessStart{stat->start, uptime - static_cast<double>(stat->start) /
                                                   static_cast<double>(sysconf(_SC_CLK_TCK))};
}

} // namespace Host

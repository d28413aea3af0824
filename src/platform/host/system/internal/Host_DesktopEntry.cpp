// SPDX-License-Identifier: MIT
#include "platform/host/system/internal/Host_DesktopEntry.h"

#include <algorithm>
#include <optional>

namespace Host
{

namespace
{

constexpr std::string_view Blanks = " \t\r";

std::string_view Trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(Blanks), text.size());
    const std::size_t last = text.find_last_not_of(Blanks);
    return last == std::string_view::npos ? std::string_view() : text.substr(begin, last + 1 - begin);
}

/// The value of the key in the section that tells of the program itself.
std::optional<std::string_view> FindKey(std::string_view text, std::string_view key)
{
    bool isInside = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            isInside = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInside && equals != std::string_view::npos && Trimmed(line.substr(0, equals)) == key) {
            return Trimmed(line.substr(equals + 1));
        }
    }
    return std::nullopt;
}

/// All texts of such a file have these escapes.
std::string WithoutEscapes(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        constexpr std::string_view letters = "sntr\\";
        constexpr std::string_view meanings = " \n\t\r\\";
        const std::size_t at = letters.find(text[++i]);
        result += at == std::string_view::npos ? std::string{'\\', text[i]} : std::string{meanings[at]};
    }
    return result;
}

/// The first argument of a command; in quotes a backslash takes the sense from what follows.
std::string FirstArgument(std::string_view command)
{
    if (!command.starts_with('"')) {
        return std::string(command.substr(0, command.find_first_of(Blanks)));
    }
    std::string result;
    for (std::size_t i = 1; i < command.size() && command[i] != '"'; ++i) {
        if (command[i] == '\\' && i + 1 < command.size()) {
            ++i;
        }
        result += command[i];
    }
    return result;
}

} // namespace

std::string ProgramOfEntry(std::string_view text)
{
    const auto command = FindKey(text, "Exec");
    return command ? FirstArgument(WithoutEscapes(*command)) : std::string();
}

std::string IconOfEntry(std::string_view text)
{
    const auto icon = FindKey(text, "Icon");
    return icon ? WithoutEscapes(*icon) : std::string();
}

std::vector<std::string> PathsOfEntry(std::string_view id)
{
    constexpr std::size_t longest = 255;
    if (id.empty() || id.size() > longest || id.starts_with('.') || id.find('/') != std::string_view::npos ||
        id.find("-.") != std::string_view::npos) {
        return {};
    }
    std::vector<std::string> paths{std::string(id)};
    for (std::size_t at = id.find('-'); at != std::string_view::npos; at = id.find('-', at + 1)) {
        std::string path = paths.back();
        path[at] = '/';
        paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace Host

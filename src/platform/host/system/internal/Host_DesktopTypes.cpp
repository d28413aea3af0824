// SPDX-License-Identifier: MIT
#include "platform/host/system/internal/Host_DesktopTypes.h"

#include "platform/host/Host_Path.h"
#include "platform/host/Host_UserFiles.h"
#include "platform/host/internal/Host_Spawn.h"
#include "platform/host/system/internal/Host_DesktopEntry.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace Host
{

namespace
{

/// The first line of what the desktop's register of types answers.
std::string AskTypes(const char* question, const std::string& subject)
{
    const std::string program = FindProgram("xdg-mime");
    if (program.empty()) {
        return {};
    }
    const auto answer =
        ReadOutput({program, {program, "query", question, subject}, "/", ESession::Own, true});
    return answer ? answer->substr(0, answer->find('\n')) : std::string();
}

} // namespace

std::vector<std::string> DataFolders()
{
    const char* const own = std::getenv("XDG_DATA_HOME");
    const char* const shared = std::getenv("XDG_DATA_DIRS");
    std::string all =
        own != nullptr && *own == '/' ? own : Sysutils::HostPath(HomeFolder()) + "/.local/share";
    all.append(":").append(shared != nullptr && *shared != 0 ? shared : "/usr/local/share:/usr/share");
    std::vector<std::string> folders;
    for (std::size_t begin = 0; begin < all.size();) {
        const std::size_t end = std::min(all.find(':', begin), all.size());
        if (all[begin] == '/') {
            folders.push_back(all.substr(begin, end - begin) + "/");
        }
        begin = end + 1;
    }
    return folders;
}

std::string TypeOf(const std::string& path)
{
    return AskTypes("filetype", path);
}

std::string ReadEntryOf(const std::string& type)
{
    if (type.empty() || type.starts_with('-')) {
        return {};
    }
    const auto paths = PathsOfEntry(AskTypes("default", type));
    for (const std::string& folder : DataFolders()) {
        for (const std::string& path : paths) {
            if (std::ifstream stream(folder + "applications/" + path); stream) {
                return {std::istreambuf_iterator<char>(stream), {}};
            }
        }
    }
    return {};
}

} // namespace Host

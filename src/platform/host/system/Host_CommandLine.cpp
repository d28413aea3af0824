// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_CommandLine.h"

#include "platform/base/internal/System_CommandLineWord.h"
#include "platform/host/Host_Shell.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

System::UnicodeString ReadCommandLine()
{
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    const std::string all(std::istreambuf_iterator<char>(file), {});
    std::vector<System::UnicodeString> arguments;
    for (std::size_t begin = 0; begin < all.size();) {
        const std::string argument(all.c_str() + begin);
        arguments.push_back(System::Detail::CommandLineWord(argument.c_str()));
        begin += argument.size() + 1;
    }
    return Host::JoinArguments(arguments);
}

} // namespace

const System::WideChar* GetCommandLineW()
{
    // Never destroyed, so that it is there for the last global object.
    static const auto& line = *new System::UnicodeString(ReadCommandLine());
    return line.c_str();
}

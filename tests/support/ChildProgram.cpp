// SPDX-License-Identifier: MIT
#include "support/ChildProgram.h"

#include <array>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace Support
{

namespace
{

constexpr std::string_view Begin = "<<<result\n";
constexpr std::string_view End = "\nresult>>>";

std::string Quoted(const std::string& text)
{
    return "'" + text + "'";
}

std::string ReadAll(FILE* stream)
{
    std::string output;
    std::array<char, 4096> buffer;
    for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), stream)) > 0;) {
        output.append(buffer.data(), count);
    }
    return output;
}

std::string Run(const std::string& test, const std::filesystem::path& program)
{
    const std::string command =
        Quoted(program.string()) + " --gtest_also_run_disabled_tests --gtest_filter=" + Quoted(test);
    FILE* const stream = popen(command.c_str(), "r");
    if (stream == nullptr) {
        throw std::runtime_error("The child can't be started.");
    }
    const std::string output = ReadAll(stream);
    const int status = pclose(stream);
    const auto begin = output.find(Begin);
    const auto end = output.find(End);
    if (status != 0 || begin == std::string::npos || end == std::string::npos) {
        throw std::runtime_error("The child failed:\n" + output);
    }
    return output.substr(begin + Begin.size(), end - begin - Begin.size());
}

} // namespace

std::string RunChildTest(const std::string& test)
{
    return Run(test, std::filesystem::read_symlink("/proc/self/exe"));
}

std::string RunChildTest(const std::string& test, const std::filesystem::path& program)
{
    std::filesystem::copy_file("/proc/self/exe", program, std::filesystem::copy_options::overwrite_existing);
    return Run(test, program);
}

void PrintResult(const std::string& text)
{
    std::cout << Begin << text << End << std::endl;
}

} // namespace Support

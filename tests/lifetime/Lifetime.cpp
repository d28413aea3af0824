// SPDX-License-Identifier: MIT
#include "support/TempFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace
{

using testing::UnorderedElementsAreArray;

/// What stands in front of and behind the bar of each line that a witness wrote.
struct TLog
{
    std::vector<std::string> names;
    std::vector<std::string> evidence;
};

TLog ReadLog(const std::filesystem::path& path)
{
    TLog log;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t bar = line.find('|');
        if (bar != std::string::npos) {
            log.names.push_back(line.substr(0, bar));
            log.evidence.push_back(line.substr(bar));
        }
    }
    return log;
}

/// Each line that is written until the process is gone is in its file, and says what it said in `main`.
TEST(Lifetime, AllIsThereToTheEndOfTheProgram)
{
    const std::vector<std::string> all = {"global", "atexit",      "add-in",
                                          "main",   "main thread", "second thread"};
    for (const std::string way : {"return", "exit", "unload", "exit in thread"}) {
        SCOPED_TRACE(way);
        const Support::TempFolder folder;
        const std::string command = std::string(LIFETIME_PROGRAM " '") + way + "' " + folder.Path().string() +
                                    " " LIFETIME_ADD_IN " 2> " + (folder.Path() / "errors.txt").string();
        ASSERT_EQ(std::system(command.c_str()), 0) << std::ifstream(folder.Path() / "errors.txt").rdbuf();

        // A thread that ends the program from within doesn't end the other one, whose own objects stay.
        std::vector<std::string> names = all;
        if (way == "exit in thread") {
            std::erase(names, "main thread");
        }
        for (const char* const file : {"log.txt", "stream.txt"}) {
            SCOPED_TRACE(file);
            const TLog log = ReadLog(folder.Path() / file);
            EXPECT_THAT(log.names, UnorderedElementsAreArray(names));
            EXPECT_THAT(log.evidence,
                        testing::Each(testing::Eq(log.evidence.empty() ? "" : log.evidence[0])));
        }
    }
}

} // namespace

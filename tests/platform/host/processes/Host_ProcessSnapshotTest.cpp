// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessSnapshot.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_CreateProcess.h"
#include "platform/host/processes/Host_Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <optional>

#include <sys/resource.h>
#include <unistd.h>

namespace
{

using System::UnicodeString;

std::optional<tagPROCESSENTRY32W> Find(unsigned long id)
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    tagPROCESSENTRY32W entry;
    bool more = Process32FirstW(snapshot, &entry);
    while (more && entry.th32ProcessID != id) {
        more = Process32NextW(snapshot, &entry);
    }
    EXPECT_TRUE(CloseHandle(snapshot));
    return more ? std::optional(entry) : std::nullopt;
}

TEST(ProcessSnapshotTest, NamesProgramsByTheirFiles)
{
    const Support::TempFolder folder;
    const auto own = Find(static_cast<unsigned long>(getpid()));
    ASSERT_TRUE(own);
    if (getpriority(PRIO_PROCESS, 0) == 0) {
        EXPECT_EQ(own->pcPriClassBase, 8);
    }
    for (const UnicodeString name : {u"A longer name than the host's short one", u"ä b", u"x (deleted)"}) {
        SCOPED_TRACE(System::ToUtf8(name));
        const auto program = folder.Path() / System::ToUtf8(name);
        std::filesystem::copy_file("/bin/sleep", program);
        PROCESS_INFORMATION info;
        const UnicodeString command = u'"' + UnicodeString(program) + u"\" 100";
        ASSERT_TRUE(CreateProcessW(nullptr, command.c_str(), nullptr, nullptr, false, 0, nullptr, nullptr,
                                   nullptr, &info));
        const auto entry = Find(info.dwProcessId);
        ASSERT_TRUE(entry);
        EXPECT_EQ(UnicodeString(entry->szExeFile), name);
        EXPECT_EQ(entry->th32ParentProcessID, static_cast<unsigned long>(getpid()));
        EXPECT_EQ(entry->cntThreads, 1U);
        EXPECT_EQ(entry->pcPriClassBase, own->pcPriClassBase) << "it is handed down";
        std::filesystem::remove(program);
        EXPECT_EQ(UnicodeString(Find(info.dwProcessId)->szExeFile), name);
        EXPECT_TRUE(TerminateProcess(info.hProcess, 0));
        usleep(50'000);
        EXPECT_FALSE(Find(info.dwProcessId)) << "it ended, though nobody awaited it";
        EXPECT_TRUE(CloseHandle(info.hProcess));
        EXPECT_TRUE(CloseHandle(info.hThread));
    }
}

TEST(ProcessSnapshotTest, RefusesWhatIsNoWalk)
{
    EXPECT_EQ(CreateToolhelp32Snapshot(0, 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    tagPROCESSENTRY32W entry;
    entry.dwSize = 500;
    EXPECT_FALSE(Process32FirstW(snapshot, &entry));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    entry.dwSize = 556;
    ASSERT_TRUE(Process32FirstW(snapshot, &entry));
    while (Process32NextW(snapshot, &entry)) {
    }
    EXPECT_EQ(GetLastError(), ERROR_NO_MORE_FILES);
    EXPECT_TRUE(CloseHandle(snapshot));
    EXPECT_FALSE(Process32NextW(snapshot, &entry));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

} // namespace

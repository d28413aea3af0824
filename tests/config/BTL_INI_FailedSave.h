// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Texts.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "support/FailingCall.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

namespace Support
{

inline std::string ContentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Fails each call of the host in turn while `save` opens a store and saves it to `file`, which is alone in
/// its folder. It must be the old one or the new one then, with nothing beside it but an old one that
/// couldn't be read, and the store must have told a failure by its text.
template <class Save>
void ExpectOldOrNew(const std::filesystem::path& file, const std::string& old, Save save)
{
    enum EOutcome
    {
        Saved,
        Told,
        ToldOtherwise
    };
    const auto outcome = [&] {
        try {
            save();
        } catch (const Sysutils::Exception& fault) {
            const auto text = System::Printf(BTL::GetIniText(BTL::EIniText::CannotWrite),
                                             Sysutils::FromHostPath(file.string()));
            return fault.getMessage() == text ? Told : ToldOtherwise;
        }
        return Saved;
    };
    const auto kept = file.string() + ".unreadable1";
    const auto begin = [&] {
        std::filesystem::remove(kept);
        std::ofstream(file, std::ios::binary) << old;
    };
    begin();
    // What a sanitizer and the library ask the host for at the first time, the text of a failure too.
    ASSERT_FALSE(BTL::GetIniText(BTL::EIniText::CannotWrite).IsEmpty());
    ASSERT_EQ(outcome(), Saved);
    const std::string saved = ContentOf(file);
    ASSERT_NE(saved, old);
    for (const int error : {ENOSPC, EIO, EACCES, EMFILE}) {
        for (int number = 0;; ++number) {
            begin();
            const auto run = RunWithFailingCall(number, error, outcome);
            if (!run.isReached) {
                EXPECT_EQ(run.exit, Saved);
                EXPECT_GT(number, 8);
                break;
            }
            SCOPED_TRACE(testing::Message()
                         << "call " << run.call << ", the " << number << "th, error " << error);
            EXPECT_TRUE(run.exit == Saved || run.exit == Told) << run.exit;
            const bool isKept = std::filesystem::exists(kept);
            if (isKept) {
                EXPECT_EQ(ContentOf(kept), old);
            } else {
                EXPECT_TRUE(ContentOf(file) == saved || (run.exit == Told && ContentOf(file) == old))
                    << ContentOf(file);
            }
            const auto folder = std::filesystem::directory_iterator(file.parent_path());
            EXPECT_EQ(std::distance(folder, {}), isKept ? 2 : 1);
        }
    }
}

} // namespace Support

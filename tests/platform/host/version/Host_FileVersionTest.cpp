// SPDX-License-Identifier: MIT
#include "platform/host/version/Host_FileVersion.h"

#include "platform/Version.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Module.h"
#include "platform/host/Host_Path.h"
#include "support/ProgramImage.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>
#include <vector>

#include <sys/stat.h>

using namespace std::string_literals;
using Support::ProgramImage;
using System::UnicodeString;

namespace
{

const std::string Texts =
    "Translation=040704E4\0FileVersion=1.2.3.4\0CompanyName=M\xC3\xBCller & \xE2\x82\xAC\0"s;

/// The version data of a file as a caller gets them.
class CBlock
{
public:
    explicit CBlock(const UnicodeString& file)
    {
        unsigned long handle = 1;
        mSize = GetFileVersionInfoSizeW(file.c_str(), &handle);
        EXPECT_EQ(handle, 0);
        mBuffer.resize(mSize / 4 + 1);
        if (mSize > 0 && !GetFileVersionInfoW(file.c_str(), 0, mSize, mBuffer.data())) {
            mSize = 0;
        }
    }

    bool IsRead() const { return mSize > 0; }

    std::optional<std::string> Find(const std::string& path) const
    {
        const void* value = nullptr;
        unsigned length = 0;
        if (!VerQueryValueA(mBuffer.data(), path.c_str(), &value, &length)) {
            EXPECT_EQ(value, nullptr);
            return std::nullopt;
        }
        return std::string(static_cast<const char*>(value), length);
    }

private:
    unsigned long mSize = 0;
    std::vector<std::uint32_t> mBuffer;
};

class HostFileVersionTest : public testing::Test
{
protected:
    UnicodeString Write(const std::string& bytes) const
    {
        std::ofstream(mFolder.Path() / "program", std::ios::binary) << bytes;
        return File();
    }
    UnicodeString File() const { return Sysutils::FromHostPath((mFolder.Path() / "program").string()); }

    Support::TempFolder mFolder;
};

TEST_F(HostFileVersionTest, FindsTextsByTheirKeys)
{
    const CBlock block(Write(ProgramImage(Texts).getBytes()));
    ASSERT_TRUE(block.IsRead());
    EXPECT_EQ(block.Find("VarFileInfo\\Translation"), "\x07\x04\xE4\x04"s);
    EXPECT_EQ(block.Find("StringFileInfo\\040704E4\\FileVersion"), "1.2.3.4\0"s);
    EXPECT_EQ(block.Find("\\STRINGFILEINFO\\040704e4\\companyname"), "M\xFCller & \x80\0"s);
    for (const char* path : {"", "\\", "StringFileInfo", "StringFileInfo\\", "StringFileInfo\\040704E4",
                             "StringFileInfo\\040704E4\\", "StringFileInfo\\040904E4\\FileVersion",
                             "StringFileInfo\\040704E4FileVersion", "StringFileInfo\\040704E4\\FileVersio",
                             "StringFileInfo\\040704E4\\FileVersion=1.2.3.4", "VarFileInfo\\Translation\\"}) {
        EXPECT_EQ(block.Find(path), std::nullopt) << path;
    }
    EXPECT_FALSE(VerQueryValueA(nullptr, "VarFileInfo\\Translation", nullptr, nullptr));
}

TEST_F(HostFileVersionTest, TheLibraryCarriesItsOwn)
{
    System::WideChar path[4096];
    ASSERT_GT(GetModuleFileNameW(reinterpret_cast<const void*>(&System::LibraryVersion), path, 4096), 0);
    const CBlock block(path);
    ASSERT_TRUE(block.IsRead());
    EXPECT_EQ(block.Find("StringFileInfo\\000004E4\\FileVersion"), System::LibraryVersion() + "\0"s);
    EXPECT_EQ(block.Find("StringFileInfo\\000004E4\\OriginalFilename"), "libTRS8_BTL.so\0"s);
}

TEST_F(HostFileVersionTest, ABufferThatIsTooSmallStaysAsItIs)
{
    const UnicodeString file = Write(ProgramImage(Texts).getBytes());
    const unsigned long size = GetFileVersionInfoSizeW(file.c_str(), nullptr);
    std::vector<std::uint32_t> buffer(size / 4 + 1, 7);
    EXPECT_FALSE(GetFileVersionInfoW(file.c_str(), 0, size - 1, buffer.data()));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(buffer, std::vector<std::uint32_t>(buffer.size(), 7));
    EXPECT_FALSE(GetFileVersionInfoW(file.c_str(), 0, size, nullptr));
}

TEST_F(HostFileVersionTest, DamagedFilesHaveNone)
{
    const struct
    {
        const char* name;
        std::function<void(ProgramImage&)> damage;
        unsigned long error;
    } cases[] = {
        {"no magic", [](auto& image) { image.header.e_ident[0] = 0; }, ERROR_BAD_FORMAT},
        {"no class", [](auto& image) { image.header.e_ident[EI_CLASS] = 9; }, ERROR_BAD_FORMAT},
        {"no sections", [](auto& image) { image.header.e_shnum = 0; }, ERROR_BAD_FORMAT},
        {"sections outside", [](auto& image) { image.header.e_shoff = ~0ULL - 8; }, ERROR_NOT_FOUND},
        {"many sections", [](auto& image) { image.header.e_shnum = 0xFEFF; }, ERROR_NOT_FOUND},
        {"another kind", [](auto& image) { image.section.sh_type = SHT_PROGBITS; }, ERROR_NOT_FOUND},
        {"another owner", [](auto& image) { image.name[0] = 'X'; }, ERROR_NOT_FOUND},
        {"a longer owner", [](auto& image) { image.note.n_namesz = 12; }, ERROR_NOT_FOUND},
        {"another type", [](auto& image) { image.note.n_type = 2; }, ERROR_NOT_FOUND},
        {"a name without end", [](auto& image) { image.note.n_namesz = ~0U; }, ERROR_NOT_FOUND},
        {"texts without end", [](auto& image) { image.note.n_descsz = ~0U; }, ERROR_NOT_FOUND},
        {"texts that are cut", [](auto& image) { image.section.sh_size -= 8; }, ERROR_NOT_FOUND},
        {"a note that is cut", [](auto& image) { image.section.sh_size = 11; }, ERROR_NOT_FOUND},
        {"a note outside", [](auto& image) { image.section.sh_offset = 1ULL << 40; }, ERROR_NOT_FOUND},
        {"a huge note", [](auto& image) { image.section.sh_size = 1ULL << 40; }, ERROR_NOT_FOUND},
        {"texts that are too long",
         [](auto& image) { image = ProgramImage(Texts + std::string(1 << 20, 'x')); }, ERROR_NOT_FOUND}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ProgramImage image(Texts);
        test.damage(image);
        const UnicodeString file = Write(image.getBytes());
        SetLastError(0);
        EXPECT_EQ(GetFileVersionInfoSizeW(file.c_str(), nullptr), 0);
        EXPECT_EQ(GetLastError(), test.error);
    }
}

TEST_F(HostFileVersionTest, CutFilesHaveAllOrNothing)
{
    const std::string whole = ProgramImage(Texts).getBytes();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(CBlock(Write(whole.substr(0, size))).IsRead()) << size;
    }
    EXPECT_TRUE(CBlock(Write(whole)).IsRead());
}

TEST_F(HostFileVersionTest, OddTextsAreReadAsFarAsTheyGo)
{
    const struct
    {
        std::string texts;
        bool isTranslated;
        std::optional<std::string> version;
    } cases[] = {{"", false, {}},
                 {"FileVersion=1", false, {}},
                 {"Translation=000004E\0FileVersion=1"s, false, {}},
                 {"Translation=000004E4 \0FileVersion=1"s, false, {}},
                 {"Translation=000004EX\0FileVersion=1"s, false, {}},
                 {"Translation=000004E4\0FileVersion=1"s, true, "1\0"s},
                 {"\0\0=\0FileVersion\0FileVersion=\0FileVersion=2\0translation=000004e4"s, true, "\0"s},
                 {"Translation=000004E4\0FileVersion=\xFF\xC3"s, true, "\?\?\0"s}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.texts);
        const CBlock block(Write(ProgramImage(test.texts).getBytes()));
        ASSERT_TRUE(block.IsRead());
        EXPECT_EQ(block.Find("VarFileInfo\\Translation").has_value(), test.isTranslated);
        EXPECT_EQ(block.Find("StringFileInfo\\000004E4\\FileVersion"), test.version);
    }
}

TEST_F(HostFileVersionTest, OtherFilesHaveNone)
{
    const struct
    {
        UnicodeString file;
        unsigned long error;
    } cases[] = {{u"", ERROR_FILE_NOT_FOUND},
                 {File(), ERROR_FILE_NOT_FOUND},
                 {File() + u"\\x", ERROR_PATH_NOT_FOUND},
                 {Sysutils::FromHostPath(mFolder.Path().string()), ERROR_BAD_FORMAT},
                 {u"\\dev\\zero", ERROR_BAD_FORMAT},
                 {u"\\dev\\null", ERROR_BAD_FORMAT}};
    for (const auto& test : cases) {
        SCOPED_TRACE(System::ToUtf8(test.file));
        EXPECT_EQ(GetFileVersionInfoSizeW(test.file.c_str(), nullptr), 0);
        EXPECT_EQ(GetLastError(), test.error);
    }
    EXPECT_EQ(GetFileVersionInfoSizeW(nullptr, nullptr), 0);
    ASSERT_EQ(mkfifo((mFolder.Path() / "program").c_str(), 0600), 0);
    EXPECT_EQ(GetFileVersionInfoSizeW(File().c_str(), nullptr), 0) << "a pipe without a writer";
}

} // namespace

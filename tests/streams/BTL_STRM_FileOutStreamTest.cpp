// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileOutStream.h"
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <memory>

using System::AnsiString;
using System::UnicodeString;

namespace
{

TEST(FileStreamsTest, WriteAndReadLines)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    {
        BTL::CFileOutStream out(path);
        out.WriteLine("x");
        out.WriteLine(u"ä");
        out.WriteLine(AnsiString("z"));
        out.WriteLine(UnicodeString(u"w"));
        EXPECT_EQ(BTL::LoadStringFromStream(std::make_unique<Classes::TFileStream>(path, 64).get()),
                  "x\r\n\xE4\r\nz\r\nw\r\n");
    }
    BTL::CFileOutStream(path, Classes::fmOpenWrite | Classes::fmShareDenyNone) << "12 ";
    BTL::CFileOutStreamEx(path).WriteLine("12 3");
    BTL::CFileInStream in(path);
    int value = 0;
    in >> value;
    EXPECT_EQ(value, 12);
    EXPECT_EQ(in.getFileStream()->getFileName(), path);
}

} // namespace

// SPDX-License-Identifier: MIT
#include "platform/host/Mapi.h"

#include "support/DesktopHelpers.h"

#include <gtest/gtest.h>

#include <fstream>
#include <unistd.h>

using namespace Mapi;

namespace
{

using Arguments = std::vector<std::string>;

TEST(MapiTest, EachTextIsAnArgumentOfItsOwn)
{
    const Support::DesktopHelpers helpers;
    const std::string file = (helpers.Folder() / "a b.txt").string();
    std::ofstream(file) << "x";
    const MapiFileDesc attached{.lpszPathName = file.c_str()};
    const MapiRecipDesc to[] = {{.ulRecipClass = MAPI_TO, .lpszName = "A", .lpszAddress = "a@b"},
                                {.ulRecipClass = MAPI_TO, .lpszAddress = "smtp:\"x $(y)\n\"@b"},
                                {.ulRecipClass = MAPI_CC, .lpszAddress = "c@d"},
                                {.ulRecipClass = MAPI_BCC, .lpszAddress = "-e"},
                                {.ulRecipClass = MAPI_TO, .lpszAddress = "--attach@b"},
                                {.ulRecipClass = MAPI_TO, .lpszAddress = "nobody"},
                                {.ulRecipClass = MAPI_TO, .lpszName = "only a name"}};
    const MapiMessage message{.lpszSubject = "\xDC'\"$(touch x)`y`\\",
                              .lpszNoteText = "-- \xE4\r\n\n$HOME \x80\n",
                              .lpOriginator = to,
                              .nRecipCount = 7,
                              .lpRecips = to,
                              .nFileCount = 1,
                              .lpFiles = &attached};
    EXPECT_EQ(MapiSendMail(0, nullptr, &message, 0, 0), SUCCESS_SUCCESS);
    EXPECT_EQ(helpers.Await(),
              (Arguments{"xdg-email", "--utf8", "--subject", "\u00DC'\"$(touch x)`y`\\", "--body",
                         "-- \u00E4\r\n\n$HOME \u20AC\n", "--attach", file, "a@b", "\"x $(y)\n\"@b", "--cc",
                         "c@d", "--bcc", "-e", "--to", "--attach@b", "--to", "nobody"}));
    const MapiMessage empty;
    EXPECT_EQ(MapiSendMail(0, nullptr, &empty, MAPI_LOGON_UI | MAPI_DIALOG, 0), SUCCESS_SUCCESS);
    EXPECT_EQ(helpers.Await(), (Arguments{"xdg-email", "--utf8"}));
    EXPECT_TRUE(Support::WaitUntil(Support::DesktopHelpers::HasNoChild));
}

TEST(MapiTest, TellsWhatIsWrong)
{
    const Support::DesktopHelpers helpers;
    EXPECT_EQ(MapiSendMail(0, nullptr, nullptr, 0, 0), MAPI_E_FAILURE);
    for (const unsigned long kind : {MAPI_ORIG, 4UL}) {
        const MapiRecipDesc to{.ulRecipClass = kind, .lpszAddress = "a@b"};
        const MapiMessage message{.nRecipCount = 1, .lpRecips = &to};
        EXPECT_EQ(MapiSendMail(0, nullptr, &message, 0, 0), MAPI_E_BAD_RECIPTYPE);
    }
    const std::string file = (helpers.Folder() / "file").string();
    const MapiFileDesc attached{.lpszPathName = file.c_str()};
    const MapiMessage withFile{.nFileCount = 1, .lpFiles = &attached};
    EXPECT_EQ(MapiSendMail(0, nullptr, &withFile, 0, 0), MAPI_E_ATTACHMENT_NOT_FOUND);
    std::ofstream(file) << "x";
    std::filesystem::permissions(file, std::filesystem::perms::none);
    if (geteuid() != 0) {
        EXPECT_EQ(MapiSendMail(0, nullptr, &withFile, 0, 0), MAPI_E_ATTACHMENT_OPEN_FAILURE);
    }
    const std::string text(200'000, 'x');
    const MapiMessage tooLong{.lpszNoteText = text.c_str()};
    EXPECT_EQ(MapiSendMail(0, nullptr, &tooLong, 0, 0), MAPI_E_TEXT_TOO_LARGE);
    std::filesystem::remove(helpers.Folder() / "xdg-email");
    const MapiMessage empty;
    EXPECT_EQ(MapiSendMail(0, nullptr, &empty, 0, 0), MAPI_E_FAILURE);
    EXPECT_TRUE(helpers.IsSilent());
}

} // namespace

// SPDX-License-Identifier: MIT
#include "forms/files/BTL_SYS_FilesProgressed.h"

#include "forms/progress/BTL_ProgressDLG.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{

/// What the dialog shows, seen from the message loop.
struct TSeen
{
    System::UnicodeString caption;
    System::UnicodeString text;
    System::UnicodeString folder;
    int max = 0;
    bool canBeCancelled = true;
};

std::optional<TSeen> Look()
{
    for (int i = 0; i < Forms::Screen->getFormCount(); ++i) {
        const auto* const dialog = dynamic_cast<TProgressDLG*>(Forms::Screen->getForms(i));
        if (dialog != nullptr && dialog->getVisible()) {
            return TSeen{dialog->getCaption(), dialog->GetText1(), dialog->GetText2(), dialog->GetMax(),
                         dialog->GetShowCancel()};
        }
    }
    return std::nullopt;
}

using FilesProgressedTest = Support::FolderTest;

TEST_F(FilesProgressedTest, ShowWhatTheyDo)
{
    const Support::ScriptedBoxes toolkit;
    MakeFolder("source/below");
    for (const char* const name : {"source/a.txt", "source/b.txt", "source/below/c.txt"}) {
        Write(name, "text");
    }
    const System::UnicodeString source = Name(u"source");
    std::optional<TSeen> seen;
    Forms::Screen->OnActiveFormChange = [&](System::TObject*) {
        if (Forms::Screen->getActiveForm() != nullptr) {
            Toolkits::CurrentToolkit().Post([&] { seen = Look(); });
        }
    };
    EXPECT_TRUE(BTL::CopyPathProgressed(source, Name(u"target"), u""));
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->text, u"Kopiere Verzeichnis ...");
    EXPECT_EQ(seen->caption, Forms::Application->getTitle());
    EXPECT_EQ(seen->max, 3);
    EXPECT_FALSE(seen->canBeCancelled);
    EXPECT_EQ(Read("target/below/c.txt"), "text");
    EXPECT_FALSE(Look());

    Classes::TStringList files;
    EXPECT_TRUE(BTL::SearchDirForFilesProgressed(source, u"*.txt", &files, u"Look ..."));
    EXPECT_EQ(seen->text, u"Look ...");
    EXPECT_EQ(files.getCount(), 3);

    BTL::CFileList list;
    BTL::GetFileDescriptionsProgressed(source, u"*.txt", list, 1, u"");
    EXPECT_EQ(seen->text, u"Suche Versionsinformationen ...");
    EXPECT_TRUE(list.empty());
    Forms::Screen->OnActiveFormChange = nullptr;
}

} // namespace

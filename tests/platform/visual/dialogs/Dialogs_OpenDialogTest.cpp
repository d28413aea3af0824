// SPDX-License-Identifier: MIT
#include "platform/visual/dialogs/Dialogs_OpenDialog.h"

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/filer/FilerSupport.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace
{

using namespace Dialogs;
using System::TObject;
using System::UnicodeString;
using Toolkits::TFileAnswer;

class OpenDialogTest : public testing::Test
{
protected:
    OpenDialogTest() { std::ofstream(mFolder.Path() / "there.csv") << "1"; }

    /// A file of the test's folder.
    UnicodeString In(const char* name) const
    {
        return Sysutils::FromHostPath((mFolder.Path() / name).string());
    }
    void Answer(std::vector<UnicodeString> files, std::size_t filter = 0)
    {
        mToolkit.AnswerFiles({.files = std::move(files), .filterIndex = filter});
    }
    Toolkits::TFileQuestion Asked() { return mToolkit.TakeAskedFiles().back().question; }

    Support::TempFolder mFolder;
    Support::ScriptedBoxes mToolkit;
};

TEST_F(OpenDialogTest, AsksByItsPropertiesAndTakesTheAnswer)
{
    TOpenDialog dialog;
    dialog.setFilter(u"Values (*.csv;*.txt)|*.csv; *.txt|All|*.*");
    dialog.setFilterIndex(2);
    dialog.setInitialDir(u"\\data");
    dialog.setFileName(u"a.csv");
    dialog.setOptions({ofAllowMultiSelect, ofForceShowHidden});
    Answer({In("x.csv"), In("y.txt")});
    EXPECT_TRUE(dialog.Execute());
    const Toolkits::TFileQuestion question = Asked();
    EXPECT_EQ(question.kind, Toolkits::EFileQuestion::Open);
    EXPECT_EQ(question.caption, u"Open");
    EXPECT_EQ(question.folder, u"\\data");
    EXPECT_EQ(question.fileName, u"a.csv");
    ASSERT_EQ(question.filters.size(), 2U);
    EXPECT_EQ(question.filters[0].name, u"Values (*.csv;*.txt)");
    EXPECT_EQ(question.filters[0].masks, (std::vector<UnicodeString>{u"*.csv", u"*.txt"}));
    EXPECT_EQ(question.filters[1].masks, std::vector<UnicodeString>{u"*"});
    EXPECT_EQ(question.filterIndex, 1U);
    EXPECT_TRUE(question.isMultiple);
    EXPECT_TRUE(question.showsHidden);
    EXPECT_EQ(dialog.getFileName(), In("x.csv"));
    EXPECT_EQ(dialog.getFiles()->getCount(), 2);
    EXPECT_EQ(dialog.getFilterIndex(), 1);

    // The name that it has now tells where to begin; what is cancelled changes nothing.
    dialog.setTitle(u"Messung");
    dialog.setFilterIndex(9);
    Answer({});
    EXPECT_FALSE(dialog.Execute());
    const Toolkits::TFileQuestion next = Asked();
    EXPECT_EQ(next.caption, u"Messung");
    EXPECT_EQ(next.folder + u"\\", In(""));
    EXPECT_EQ(next.fileName, u"x.csv");
    EXPECT_EQ(next.filterIndex, 0U);
    EXPECT_EQ(dialog.getFileName(), In("x.csv"));
    EXPECT_EQ(dialog.getFiles()->getCount(), 2);
}

TEST_F(OpenDialogTest, CompletesNamesWithoutAnExtension)
{
    TSaveDialog dialog;
    for (const char16_t* extension : {u"csv", u".csv"}) {
        dialog.setDefaultExt(extension);
        Answer({In("new")});
        EXPECT_TRUE(dialog.Execute());
        EXPECT_EQ(dialog.getFileName(), In("new.csv"));
        EXPECT_FALSE(dialog.getOptions().Contains(ofExtensionDifferent));
        Answer({In("new.txt")});
        EXPECT_TRUE(dialog.Execute());
        EXPECT_EQ(dialog.getFileName(), In("new.txt"));
        EXPECT_TRUE(dialog.getOptions().Contains(ofExtensionDifferent));
    }
    EXPECT_EQ(Asked().kind, Toolkits::EFileQuestion::Save);
}

TEST_F(OpenDialogTest, TestsWhatIsChosen)
{
    const struct
    {
        const char* name;
        TOpenOptions options;
        const char* file;
        std::initializer_list<int> boxes;
        bool isTaken;
    } cases[] = {
        {"any name", {}, "no/new.csv", {}, true},
        {"must be there", {ofFileMustExist}, "new.csv", {IDOK}, false},
        {"is there", {ofFileMustExist}, "there.csv", {}, true},
        {"folder must be there", {ofPathMustExist}, "no/new.csv", {IDOK}, false},
        {"file may be missing", {ofPathMustExist}, "new.csv", {}, true},
        {"to be made", {ofCreatePrompt}, "new.csv", {IDYES}, true},
        {"not to be made", {ofCreatePrompt}, "new.csv", {IDNO}, false},
        {"to be replaced", {ofOverwritePrompt}, "there.csv", {IDYES}, true},
        {"not to be replaced", {ofOverwritePrompt}, "there.csv", {IDNO}, false},
        {"nothing to replace", {ofOverwritePrompt}, "new.csv", {}, true},
        {"untested", {ofFileMustExist, ofNoValidate}, "new.csv", {}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Support::ScriptedBoxes toolkit(c.boxes);
        toolkit.AnswerFiles({.files = {In(c.file)}, .filterIndex = 0});
        toolkit.AnswerFiles({});
        TSaveDialog dialog;
        dialog.setOptions(c.options);
        EXPECT_EQ(dialog.Execute(), c.isTaken);
        EXPECT_EQ(dialog.getFileName(), c.isTaken ? In(c.file) : UnicodeString());
        EXPECT_EQ(toolkit.TakeShown().size(), c.boxes.size());
        // Refused, it asks again, from where the user was.
        const auto asked = toolkit.TakeAskedFiles();
        ASSERT_EQ(asked.size(), c.isTaken ? 1U : 2U);
        EXPECT_TRUE(c.isTaken || !asked[1].question.fileName.IsEmpty());
    }
}

TEST_F(OpenDialogTest, CallsItsEvents)
{
    TOpenDialog dialog;
    UnicodeString log;
    dialog.OnShow = [&](TObject*) { log += u"show "; };
    dialog.OnClose = [&](TObject*) { log += u"close"; };
    dialog.OnCanClose = [&](TObject*, bool& canClose) {
        canClose = dialog.getFileName() == In("b");
        log += canClose ? u"yes " : u"no ";
    };
    Answer({In("a")});
    Answer({In("b")});
    EXPECT_TRUE(dialog.Execute());
    EXPECT_EQ(log, u"show no yes close");

    dialog.OnCanClose = [](TObject*, bool&) { throw std::runtime_error("no"); };
    Answer({In("c")});
    EXPECT_THROW(dialog.Execute(), std::runtime_error);
    EXPECT_EQ(dialog.getFileName(), In("b"));

    auto* const other = new TOpenDialog;
    other->OnCanClose = [](TObject* sender, bool&) { delete sender; };
    Answer({In("a")});
    EXPECT_FALSE(other->Execute());
}

TEST_F(OpenDialogTest, IsCancelledWhereNobodyAttends)
{
    TSaveDialog dialog;
    dialog.setFileName(u"\\tmp\\a.csv");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(dialog.Execute());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Save As: \\tmp [a.csv]\n[Cancel]\n");
}

TEST_F(OpenDialogTest, IsWrittenByWhatDiffers)
{
    TSaveDialog dialog;
    dialog.setName(u"Save");
    EXPECT_EQ(FilerTest::WrittenText(dialog).find("Options"), std::string::npos);
    dialog.setOptions({ofOverwritePrompt, ofPathMustExist});
    const std::string written = FilerTest::WrittenText(dialog);
    EXPECT_NE(written.find("Options = [ofOverwritePrompt, ofPathMustExist]"), std::string::npos) << written;
}

} // namespace

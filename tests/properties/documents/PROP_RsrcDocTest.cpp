// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_RsrcDoc.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_Path.h"
#include "properties/documents/SampleForm.h"
#include "properties/objects/Gauges.h"
#include "properties/values/PROP_Filter.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace
{

namespace fs = std::filesystem;
using Gauges::Lines;
using PROP::CRsrcDoc;
using PROP::CRsrcDoc_OnlyText;
using PROP::ERsrcDocSetMode;
using Sample::Body;
using System::UnicodeString;

class ChangesTest : public testing::Test
{
protected:
    fs::path Path() const { return mTemp.Path() / "form.txt"; }
    UnicodeString File() const { return Sysutils::FromHostPath(Path().string()); }
    void Save(CRsrcDoc& document) const
    {
        document.SetChanges();
        document.SaveToFile(File());
    }

    Support::TempFolder mTemp;
    Sample::TForm mForm;
};

TEST_F(ChangesTest, AreWhatDiffersFromTheDesign)
{
    CRsrcDoc document(mForm.form, ERsrcDocSetMode::Original);
    mForm.start->SetBounds(11, 20, 80, 25);
    mForm.start->setVisible(false);
    mForm.start->setEnabled(false);
    mForm.form->setVisible(true);
    mForm.limit->setText(u"\u4F60");
    mForm.save->setCaption(u"&Sichern");
    mForm.save->setShortCut(Classes::scNone);
    Save(document);
    EXPECT_EQ(Body(Path()), "[BtnStart]\nLeft=11\nWidth=80\nVisible=False\n"
                            "[FormMain.Frame1.EdLimit]\nText=\xE4\xBD\xA0\n"
                            "[mnSave]\nCaption=&Sichern\nShortCut=0\n");
    mForm.form->setVisible(false);
}

TEST_F(ChangesTest, ComeBackAtTheNextStart)
{
    {
        CRsrcDoc document(mForm.form, ERsrcDocSetMode::Original);
        mForm.start->setLeft(123);
        mForm.notes->getLines()->setCommaText(u"new");
        mForm.file->setCaption(u"&Datei");
        Save(document);
    }
    Sample::TForm next;
    CRsrcDoc document(next.form, ERsrcDocSetMode::Original);
    document.ReadAndApply(File());
    EXPECT_EQ(next.start->getLeft(), 123);
    EXPECT_EQ(next.notes->getLines()->getCommaText(), u"new");
    EXPECT_EQ(next.file->getCaption(), u"&Datei");
    // The same comes out again.
    const std::string former = Body(Path());
    Save(document);
    EXPECT_EQ(Body(Path()), former);
}

TEST_F(ChangesTest, HaveNoFileInTheDesignedState)
{
    CRsrcDoc document(mForm.form, true);
    const int left = mForm.start->getLeft();
    mForm.start->setLeft(left + 1);
    Save(document);
    EXPECT_TRUE(fs::exists(Path()));
    mForm.start->setLeft(left);
    Save(document);
    EXPECT_FALSE(fs::exists(Path()));
    Save(document);
    EXPECT_FALSE(fs::exists(Path()));
    EXPECT_TRUE(document.getObjects().empty());
}

TEST_F(ChangesTest, AreNoneWithoutADesign)
{
    Sample::Put(Path(), "[BtnStart]\nLeft=3\n");
    CRsrcDoc document(mForm.form, false);
    document.LoadFromFile(File());
    EXPECT_EQ(document.getOriginalObjects(), nullptr);
    Save(document);
    EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(ChangesTest, ThatCantBeDeletedAreTold)
{
    fs::create_directory(mTemp.Path() / "fixed");
    const fs::path path = mTemp.Path() / "fixed/form.txt";
    Sample::Put(path, "[BtnStart]\nLeft=3\n");
    fs::permissions(path.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    CRsrcDoc document(mForm.form, false);
    if (::geteuid() != 0) {
        EXPECT_THROW(document.SaveToFile(Sysutils::FromHostPath(path.string())), Sysutils::Exception);
    }
    fs::permissions(path.parent_path(), fs::perms::owner_all);
    document.SaveToFile(Sysutils::FromHostPath(path.string()));
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(ChangesTest, AreAllInACurrentState)
{
    CRsrcDoc document(mForm.form, ERsrcDocSetMode::Current);
    document.SetCurrent();
    EXPECT_EQ(Lines(document.getObjects().Find(u"BtnStart")->getProperties()),
              "Left=10\nTop=20\nWidth=75\nHeight=25\nHint=\nVisible=True\nCaption=&Start\n");
    EXPECT_EQ(document.getObjects().Find(u"FormMain")->getProperties().FindProperty(u"Visible"), nullptr);
    EXPECT_EQ(document.getOriginalObjects(), nullptr);
    document.SaveToFile(File());
    EXPECT_NE(Body(Path()).find("[Notes]\n"), std::string::npos);
    EXPECT_THROW(CRsrcDoc(nullptr, true), UTL::XAssert);
}

TEST_F(ChangesTest, OfAComponentThatIsNoFormHaveNoVisibilityOfItsOwn)
{
    CRsrcDoc document(mForm.start, ERsrcDocSetMode::Original);
    const PROP::CObject* const design = document.getOriginalObjects()->Find(u"BtnStart");
    EXPECT_EQ(design->getProperties().FindProperty(u"Visible"), nullptr);
    EXPECT_NE(design->getProperties().FindProperty(u"Left"), nullptr);
}

TEST_F(ChangesTest, OfTextsAreTextsAlone)
{
    CRsrcDoc_OnlyText document(mForm.form, ERsrcDocSetMode::Original);
    mForm.start->setLeft(99);
    mForm.start->setCaption(u"\u958B\u59CB");
    mForm.save->setShortCut(Classes::scNone);
    Save(document);
    EXPECT_EQ(Body(Path()), "[BtnStart]\nCaption=\xE9\x96\x8B\xE5\xA7\x8B\n");
    const CRsrcDoc_OnlyText current(mForm.form, ERsrcDocSetMode::Current);
    EXPECT_EQ(Lines(current.getObjects().Find(u"BtnStart")->getProperties()),
              "Hint=\nCaption=\u958B\u59CB\n");
}

TEST_F(ChangesTest, AreOfWhatBothFiltersTake)
{
    PROP::CFilter filter;
    filter.getProperties().setCommaText(u"Caption,Enabled");
    CRsrcDoc document(mForm.form, ERsrcDocSetMode::None);
    document.SetOriginalObjects(&filter);
    mForm.start->setCaption(u"x");
    mForm.start->setEnabled(false);
    mForm.start->setLeft(99);
    document.SetChanges();
    EXPECT_EQ(Lines(document.getObjects().Find(u"BtnStart")->getProperties()), "Caption=x\n");
    document.SetOriginalObjects(nullptr);
    document.SetChanges();
    EXPECT_TRUE(document.getObjects().empty());
}

TEST_F(ChangesTest, HaveAllPropertiesWithANullFilter)
{
    CRsrcDoc document(mForm.form, ERsrcDocSetMode::None);
    document.SetAndWrite(File(), nullptr);
    const std::string body = Body(Path());
    EXPECT_NE(body.find("TabOrder="), std::string::npos);
    EXPECT_NE(body.find("Font.Size="), std::string::npos);
}

} // namespace

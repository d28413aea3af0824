// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_Document.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "properties/documents/SampleForm.h"
#include "properties/objects/Gauges.h"
#include "properties/values/PROP_Filter.h"
#include "support/ChildProgram.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

namespace fs = std::filesystem;
using Gauges::Lines;
using PROP::CFilter;
using PROP::CFormDoc;
using Sample::Body;
using System::UnicodeString;

CFilter Filter(const char16_t* properties)
{
    CFilter filter;
    filter.getProperties().setCommaText(properties);
    return filter;
}

class DocumentTest : public testing::Test
{
protected:
    fs::path Path() const { return mTemp.Path() / "i18n" / "Form.txt"; }
    UnicodeString File() const { return Sysutils::FromHostPath(Path().string()); }

    Support::TempFolder mTemp;
    Sample::TForm mForm;
};

TEST_F(DocumentTest, IsNamedAfterComponentAndOwner)
{
    EXPECT_EQ(CFormDoc(mForm.form).GetDocName(), u"FormMain");
    EXPECT_EQ(PROP::CComponentDoc(mForm.frame).GetDocName(), u"FormMain_Frame1.txt");
    EXPECT_EQ(PROP::CMenuDoc(mForm.mainMenu).GetDocName(), u"FormMain_MainMenu1.txt");
    EXPECT_EQ(PROP::CDocument().GetDocName(), u"");
    CFormDoc document(mForm.form);
    EXPECT_EQ(document.GetPath(), BTL::GetUserDataPath() + u"i18n\\");
    EXPECT_EQ(document.GetFileName(), document.GetPath() + u"FormMain");
    EXPECT_EQ(document.getForm(), mForm.form);
}

TEST_F(DocumentTest, NeedsAComponent)
{
    EXPECT_THROW(PROP::CComponentDoc(nullptr), UTL::XAssert);
    EXPECT_THROW(CFormDoc(nullptr), UTL::XAssert);
    Support::ScriptedBoxes boxes({IDNO});
    PROP::CComponentDoc document(nullptr);
    document.SetProperties(nullptr);
    document.ApplyProperties();
    EXPECT_TRUE(document.getObjects().empty());
}

TEST_F(DocumentTest, HasASectionForEachComponent)
{
    const CFilter filter = Filter(u"Caption,Text,Lines");
    CFormDoc document(mForm.form);
    document.SetAndWrite(File(), &filter);
    EXPECT_EQ(Body(Path()), "[BtnStart]\nCaption=&Start\n"
                            "[FormMain]\nCaption=Station\n"
                            "[FormMain.Frame1.EdLimit]\nText=5 \xB5m\n"
                            "[Notes]\nLines=[one,\"two words\"]\n"
                            "[mnFile]\nCaption=&File\n"
                            "[mnHelp]\nCaption=&Help, \"now\"\n"
                            "[mnSave]\nCaption=&Save\n");
    EXPECT_TRUE(document.Exists(File()));
    EXPECT_FALSE(document.Exists(File() + u"x"));
}

TEST_F(DocumentTest, IsLaidOverTheFormAsItWasEdited)
{
    const CFilter filter = Filter(u"Caption,Text,Lines,Left");
    CFormDoc(mForm.form).SetAndWrite(File(), &filter);
    std::ofstream(Path(), std::ios::binary)
        << "\xEF\xBB\xBF[BtnStart]\nCaption=\xE9\x96\x8B\xE5\xA7\x8B\nLeft=300\n[FormMain]\nCaption="
           "Messplatz\n"
           "[FormMain.Frame1.EdLimit]\nText=\"  7 \xC2\xB5m\"\n[Notes]\nLines=\n[Nobody]\nCaption=x\n";
    CFormDoc(mForm.form).ReadAndApply(File());
    EXPECT_EQ(mForm.start->getCaption(), u"\u958B\u59CB");
    EXPECT_EQ(mForm.start->getLeft(), 300);
    EXPECT_EQ(mForm.form->getCaption(), u"Messplatz");
    EXPECT_EQ(mForm.limit->getText(), u"  7 µm");
    EXPECT_EQ(mForm.notes->getLines()->getCount(), 0);
}

TEST_F(DocumentTest, AppliesNothingWithoutAFile)
{
    PROP::CFormDoc document(mForm.form);
    document.InsertNewObject(u"BtnStart")->AddProperty(u"Caption", u"x");
    document.ReadAndApply(File());
    EXPECT_EQ(mForm.start->getCaption(), u"&Start");
    document.Apply();
    EXPECT_EQ(mForm.start->getCaption(), u"x");
}

TEST_F(DocumentTest, RoundTripsWhateverATextCanHold)
{
    const CFilter filter =
        Filter(u"Caption,Text,Lines,Left,Top,Width,Height,Hint,Visible,Enabled,Color,Cursor,Font,Name,"
               u"Size,TabOrder,WordWrap,Alignment,ReadOnly,MaxLength");
    mForm.start->setHint(u" a=b; [c] 'd' \"e\" \u20AC \u4F60 \U0001F600 ");
    mForm.notes->getLines()->setText(u"first\r\n\r\n  \"third\", a tab\t\r\n");
    mForm.limit->setText(u"'quoted'");
    mForm.start->setVisible(false);
    CFormDoc former(mForm.form);
    former.SetAndWrite(File(), &filter);

    CFormDoc read(mForm.form);
    read.LoadFromFile(File());
    ASSERT_EQ(read.getObjects().size(), former.getObjects().size());
    for (const auto& object : former.getObjects()) {
        SCOPED_TRACE(object->getName());
        ASSERT_NE(read.getObjects().Find(object->getName()), nullptr);
        EXPECT_EQ(Lines(read.getObjects().Find(object->getName())->getProperties()),
                  Lines(object->getProperties()));
    }
    read.Apply();
    CFormDoc again(mForm.form);
    again.SetProperties(&filter);
    PROP::CObjects difference;
    former.getObjects().GetDifferenceOf(again.getObjects(), difference);
    EXPECT_TRUE(difference.empty());
}

TEST_F(DocumentTest, BringsEachComponentOfTheLibraryBack)
{
    for (const char16_t* const name :
         {u"TBevel",       u"TBitBtn",    u"TButton",      u"TCheckBox",    u"TCheckListBox", u"TComboBox",
          u"TEdit",        u"TGroupBox",  u"TImage",       u"TImageList",   u"TLabel",        u"TListBox",
          u"TMainMenu",    u"TMaskEdit",  u"TMemo",        u"TMenuItem",    u"TOpenDialog",   u"TPageControl",
          u"TPanel",       u"TPopupMenu", u"TProgressBar", u"TRadioButton", u"TRadioGroup",   u"TRichEdit",
          u"TSpeedButton", u"TTimer"}) {
        SCOPED_TRACE(UnicodeString(name));
        Sample::TForm sample;
        Classes::TComponent* const component = Classes::FindClass(name)->Create(sample.form);
        component->setName(u"Probe1");
        if (auto* const control = dynamic_cast<Controls::TControl*>(component); control != nullptr) {
            control->setParent(sample.form);
        }
        const PROP::CObject former(component, nullptr);
        former.ApplyProperties(component);
        PROP::CProperties difference;
        former.GetDifferenceOf(PROP::CObject(component, nullptr), difference);
        EXPECT_EQ(Lines(difference), "");
    }
}

/// A list of choices is laid over the box before the one that is chosen.
TEST_F(DocumentTest, ChoosesAmongTheTextsOfTheDocument)
{
    auto* const box = Sample::Made<Stdctrls::TComboBox>(mForm.form, u"Range");
    box->setParent(mForm.form);
    const CFilter filter = Filter(u"Text,Items");
    for (const Stdctrls::TComboBoxStyle style : {Stdctrls::csDropDown, Stdctrls::csDropDownList}) {
        box->setStyle(style);
        box->getItems()->setCommaText(u"klein,gross");
        box->setItemIndex(1);
        CFormDoc german(mForm.form);
        german.SetProperties(&filter);
        box->getItems()->setCommaText(u"small,large");
        box->setItemIndex(0);
        german.Apply();
        EXPECT_EQ(box->getText(), u"gross");
        EXPECT_EQ(box->getItems()->getCommaText(), u"klein,gross");
    }
}

TEST_F(DocumentTest, TakesAllOfAFormWithoutAFilter)
{
    CFormDoc document(mForm.form);
    document.SetAndWrite(File(), nullptr);
    const std::string body = Body(Path());
    for (const char* const line : {"Caption=Station\n", "Font.Name=", "OnClick=\n", "ActiveControl"}) {
        EXPECT_EQ(body.find(line) != std::string::npos, std::string_view(line) != "ActiveControl") << line;
    }
}

TEST_F(DocumentTest, IsReadOnce)
{
    const CFilter filter = Filter(u"Caption");
    CFormDoc document(mForm.form);
    document.SetAndWrite(File(), &filter);
    EXPECT_THROW(document.LoadFromFile(File()), UTL::XAssert);
    // Let pass, the former objects get the values too.
    Support::ScriptedBoxes boxes({IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO, IDNO});
    document.LoadFromFile(File());
    EXPECT_EQ(Lines(document.getObjects().Find(u"BtnStart")->getProperties()),
              "Caption=&Start\nCaption=&Start\n");
    EXPECT_EQ(document.InsertNewObject(u""), nullptr);
}

TEST_F(DocumentTest, LeavesTheFormUsableWhereApplyingEnds)
{
    Sample::Put(Path().parent_path().parent_path() / "Form.txt",
                "[BtnStart]\nCaption=new\nLeft=wide\nTop=1\n[FormMain]\nCaption=x\n");
    CFormDoc document(mForm.form);
    EXPECT_THROW(document.ReadAndApply(Sysutils::FromHostPath((mTemp.Path() / "Form.txt").string())),
                 Sysutils::EConvertError);
    EXPECT_EQ(mForm.start->getCaption(), u"new");
    EXPECT_EQ(mForm.start->getTop(), 20);
    document.getObjects().Find(u"BtnStart")->DeleteProperty(u"Left");
    document.Apply();
    EXPECT_EQ(mForm.start->getTop(), 1);
}

/// As a form does that keeps its changes whenever something of it changes.
TEST_F(DocumentTest, MayBeTakenAnewWhileItIsApplied)
{
    const CFilter filter = Filter(u"Text");
    CFormDoc document(mForm.form);
    const auto add = [&](const char16_t* name, const char16_t* first, const char16_t* second) {
        PROP::CObject& object = *document.InsertNewObject(name);
        object.AddProperty(first, u"77");
        object.AddProperty(second, u"88");
    };
    const Classes::TNotifyEvent take([&](System::TObject*) { document.SetProperties(&filter); });
    add(u"FormMain", u"Left", u"Width");
    add(u"FormMain.Frame1.EdLimit", u"Text", u"Left");
    mForm.limit->OnChange = take;
    document.Apply();
    EXPECT_EQ(mForm.limit->getText(), u"77");
    EXPECT_EQ(mForm.limit->getLeft(), 88);

    document.getObjects().clear();
    add(u"FormMain", u"ClientWidth", u"Caption");
    mForm.form->OnResize = take;
    document.Apply();
    EXPECT_EQ(mForm.form->getCaption(), u"88");
    mForm.form->OnResize = nullptr;
}

TEST_F(DocumentTest, MayEndWithItsFormWhileItIsApplied)
{
    auto document = std::make_unique<CFormDoc>(mForm.form);
    for (const char16_t* const name : {u"FormMain", u"FormMain.Frame1.EdLimit", u"BtnStart"}) {
        PROP::CObject& object = *document->InsertNewObject(name);
        object.AddProperty(u"Text", u"77");
        object.AddProperty(u"Caption", u"88");
    }
    mForm.limit->OnChange = Classes::TNotifyEvent([&](System::TObject*) {
        document = nullptr;
        delete mForm.form;
    });
    document->Apply();
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(mForm.application.GetComponentCount(), 0);
}

/// As a form does that keeps one only until it is laid over it.
TEST_F(DocumentTest, MayEndBeforeItsFormWhileItIsApplied)
{
    std::unique_ptr<CFormDoc> document;
    mForm.form->OnResize = mForm.limit->OnChange =
        Classes::TNotifyEvent([&](System::TObject*) { document = nullptr; });
    for (const auto& [name, property] :
         {std::pair(u"FormMain", u"Width"), {u"FormMain.Frame1.EdLimit", u"Text"}}) {
        SCOPED_TRACE(UnicodeString(name));
        document = std::make_unique<CFormDoc>(mForm.form);
        document->InsertNewObject(name)->AddProperty(property, u"99");
        document->InsertNewObject(u"mnFile")->AddProperty(u"Caption", name);
        document->Apply();
        EXPECT_EQ(document, nullptr);
        EXPECT_EQ(mForm.file->getCaption(), name);
    }
    mForm.form->OnResize = nullptr;
}

TEST_F(DocumentTest, PassesOverWhatNoFormHas)
{
    const UnicodeString wide(std::u16string(5'000'000, u'x'));
    PROP::CFormDoc document(mForm.form);
    PROP::CObject& start = *document.InsertNewObject(u"BtnStart");
    start.AddProperty(u"Visible", u"perhaps");
    start.AddProperty(u"Missing", u"x");
    start.AddProperty(u"a\nb", u"x");
    start.AddProperty(u"", u"x");
    start.AddProperty(u"Caption", wide);
    start.AddProperty(u"Font", u"x");
    start.AddProperty(u"OnClick", u"Free");
    document.InsertNewObject(u"line\nbreak")->AddProperty(u"Caption", u"x");
    document.Apply();
    EXPECT_TRUE(mForm.start->getVisible());
    EXPECT_EQ(mForm.start->getCaption(), wide);
    for (const auto& [name, value] : {std::pair(u"Color", u"clNone such"),
                                      {u"Cursor", u"crNothing"},
                                      {u"Left", u"99999999999"},
                                      {u"Left", u""}}) {
        SCOPED_TRACE(UnicodeString(name) + u"=" + value);
        PROP::CFormDoc bad(mForm.form);
        bad.InsertNewObject(u"Notes")->AddProperty(name, value);
        EXPECT_THROW(bad.Apply(), Sysutils::EConvertError);
    }
    for (const char16_t* const path : {u"PopupMenu.Name", u"Nothing.Name", u"..."}) {
        SCOPED_TRACE(UnicodeString(path));
        PROP::CFormDoc throughNull(mForm.form);
        throughNull.InsertNewObject(u"Notes")->AddProperty(path, u"x");
        EXPECT_THROW(throughNull.Apply(), UTL::XAssert);
    }
}

TEST(DocumentChild, DISABLED_MakesItsFolder)
{
    Sample::TForm sample;
    const CFilter filter = Filter(u"Caption");
    CFormDoc document(sample.form);
    const bool wasThere = document.Exists({});
    document.SetAndWrite(&filter);
    sample.start->setCaption(u"lost");
    CFormDoc(sample.form).ReadAndApply();
    Support::PrintResult(System::ToUtf8(document.GetFileName() + u'\n' + sample.start->getCaption() + u'\n') +
                         (wasThere ? "was there" : "was not there"));
}

TEST_F(DocumentTest, MakesItsFolderWithTheFirstWrite)
{
    const fs::path root = mTemp.Path() / "Station";
    fs::create_directories(root / "Bin");
    const fs::path file = root / "UserData/i18n/FormMain";
    EXPECT_EQ(Support::RunChildTest("DocumentChild.DISABLED_MakesItsFolder", root / "Bin/program"),
              System::ToUtf8(Sysutils::FromHostPath(file.string())) + "\n&Start\nwas not there");
    EXPECT_TRUE(fs::exists(file));
}

} // namespace

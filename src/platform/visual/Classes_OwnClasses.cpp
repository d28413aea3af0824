// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/visual/data/Dbctrls_DBEdit.h"
#include "platform/visual/data/Dbctrls_LookupControl.h"
#include "platform/visual/data/Dbgrids_DBGrid.h"
#include "platform/visual/data/sets/Db_DataSource.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "platform/visual/data/sets/Db_SqliteDataSet.h"
#include "platform/visual/data/sets/Db_SqliteDatabase.h"
#include "platform/visual/dialogs/Dialogs_OpenDialog.h"
#include "platform/visual/graphics/Controls_ImageList.h"
#include "platform/visual/grids/Grids_DrawGrid.h"
#include "platform/visual/grids/Grids_StringGrid.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/menus/Menus_MenuItem.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Buttons_BitBtn.h"
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"
#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"
#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h"
#include "platform/visual/stdctrls/lists/Filectrl_DriveComboBox.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"
#include "platform/visual/stdctrls/panels/Comctrls_PageControl.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Extctrls_Bevel.h"
#include "platform/visual/stdctrls/panels/Extctrls_GridPanel.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "platform/visual/stdctrls/pictures/Comctrls_Animate.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Image.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Shape.h"

#include <map>

namespace Classes
{

using System::ClassOf;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

using TClassesByName = std::map<UnicodeString, TMetaClass*>;

TClassesByName OwnClasses()
{
    TClassesByName classes;
    for (TMetaClass* const type : {
             ClassOf<Buttons::TBitBtn>(),
             ClassOf<Buttons::TSpeedButton>(),
             ClassOf<Checklst::TCheckListBox>(),
             ClassOf<Comctrls::TAnimate>(),
             ClassOf<Comctrls::TPageControl>(),
             ClassOf<Comctrls::TProgressBar>(),
             ClassOf<Comctrls::TRichEdit>(),
             ClassOf<Comctrls::TTabSheet>(),
             ClassOf<Controls::TImageList>(),
             ClassOf<Db::TBlobField>(),
             ClassOf<Db::TBooleanField>(),
             ClassOf<Db::TDataSource>(),
             ClassOf<Db::TDateField>(),
             ClassOf<Db::TDateTimeField>(),
             ClassOf<Db::TFloatField>(),
             ClassOf<Db::TIntegerField>(),
             ClassOf<Db::TLargeintField>(),
             ClassOf<Db::TMemoField>(),
             ClassOf<Db::TMemoryDataSet>(),
             ClassOf<Db::TSqliteDataSet>(),
             ClassOf<Db::TSqliteDatabase>(),
             ClassOf<Db::TStringField>(),
             ClassOf<Db::TTimeField>(),
             ClassOf<Db::TWideMemoField>(),
             ClassOf<Db::TWideStringField>(),
             ClassOf<Dbctrls::TDBEdit>(),
             ClassOf<Dbctrls::TDBLookupComboBox>(),
             ClassOf<Dbctrls::TDBLookupListBox>(),
             ClassOf<Dbgrids::TDBGrid>(),
             ClassOf<Dialogs::TOpenDialog>(),
             ClassOf<Dialogs::TSaveDialog>(),
             ClassOf<Extctrls::TBevel>(),
             ClassOf<Extctrls::TGridPanel>(),
             ClassOf<Extctrls::TImage>(),
             ClassOf<Extctrls::TPanel>(),
             ClassOf<Extctrls::TRadioGroup>(),
             ClassOf<Extctrls::TShape>(),
             ClassOf<Extctrls::TTimer>(),
             ClassOf<Filectrl::TDirectoryListBox>(),
             ClassOf<Filectrl::TDriveComboBox>(),
             ClassOf<Grids::TDrawGrid>(),
             ClassOf<Grids::TStringGrid>(),
             ClassOf<Mask::TMaskEdit>(),
             ClassOf<Menus::TMainMenu>(),
             ClassOf<Menus::TMenuItem>(),
             ClassOf<Menus::TPopupMenu>(),
             ClassOf<Stdctrls::TButton>(),
             ClassOf<Stdctrls::TCheckBox>(),
             ClassOf<Stdctrls::TComboBox>(),
             ClassOf<Stdctrls::TEdit>(),
             ClassOf<Stdctrls::TGroupBox>(),
             ClassOf<Stdctrls::TLabel>(),
             ClassOf<Stdctrls::TListBox>(),
             ClassOf<Stdctrls::TMemo>(),
             ClassOf<Stdctrls::TRadioButton>(),
         }) {
        classes.emplace(type->getName().LowerCase(), type);
    }
    return classes;
}

/// What a program that shows no form never needs is made when it is first asked for.
TMetaClass* FindAmongOwn(const UnicodeString& name)
{
    static const auto& classes = *new TClassesByName(OwnClasses());
    const auto found = classes.find(name);
    return found == classes.end() ? nullptr : found->second;
}

[[maybe_unused]] const bool isFilledIn = [] {
    FindOwnClass = FindAmongOwn;
    return true;
}();

} // namespace

} // namespace Classes

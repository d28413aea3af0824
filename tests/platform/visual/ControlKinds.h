// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/Buttons.h"
#include "platform/visual/Db.h"
#include "platform/visual/Dbctrls.h"
#include "platform/visual/Filectrl.h"
#include "platform/visual/Forms.h"
#include "platform/visual/Stdctrls.h"
#include "platform/visual/controls/ProbeControl.h"
#include "platform/visual/data/Dbctrls_LookupControl.h"
#include "platform/visual/data/Dbgrids_DBGrid.h"
#include "platform/visual/grids/Grids_StringGrid.h"
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"
#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"
#include "platform/visual/stdctrls/panels/Comctrls_PageControl.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Extctrls_Bevel.h"
#include "platform/visual/stdctrls/panels/Extctrls_GridPanel.h"
#include "platform/visual/stdctrls/pictures/Comctrls_Animate.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Image.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Shape.h"

namespace Support
{

/// A control of one class, with what it needs to be used, on a form that owns it.
struct TKind
{
    const char* name;
    Controls::TControl* (*make)(Forms::TForm&);
};

namespace Kinds
{

template <class T>
Controls::TControl* Make(Forms::TForm& form)
{
    return new T(&form);
}

template <class List>
List* Filled(List* list)
{
    list->getItems()->AddStrings({u"a", u"b", u"c"});
    return list;
}

template <class T>
Controls::TControl* MakeFilled(Forms::TForm& form)
{
    auto* const list = new T(&form);
    list->setParent(&form);
    return Filled(list);
}

template <Stdctrls::TListBoxStyle Style>
Controls::TControl* MakeListBox(Forms::TForm& form)
{
    auto* const list = new Stdctrls::TListBox(&form);
    list->setParent(&form);
    list->setStyle(Style);
    if (Style == Stdctrls::lbVirtual) {
        list->setCount(3);
        return list;
    }
    return Filled(list);
}

template <Stdctrls::TComboBoxStyle Style>
Controls::TControl* MakeComboBox(Forms::TForm& form)
{
    auto* const box = new Stdctrls::TComboBox(&form);
    box->setParent(&form);
    box->setStyle(Style);
    return Filled(box);
}

inline Controls::TControl* TakeForm(Forms::TForm& form)
{
    return &form;
}

inline Controls::TControl* MakePages(Forms::TForm& form)
{
    auto* const pages = new Comctrls::TPageControl(&form);
    pages->setParent(&form);
    for (int i = 0; i < 2; ++i) {
        auto* const page = new Comctrls::TTabSheet(&form);
        page->setPageControl(pages);
        page->setCaption(u"page");
    }
    return pages;
}

inline Controls::TControl* MakeGrid(Forms::TForm& form)
{
    auto* const grid = new Grids::TStringGrid(&form);
    grid->setRowCount(50);
    grid->setColCount(50);
    grid->setOptions(grid->getOptions() + Grids::TGridOptions{Grids::goEditing, Grids::goColMoving,
                                                              Grids::goRowMoving, Grids::goFixedColClick,
                                                              Grids::goFixedRowClick});
    return grid;
}

/// A source with a data set of two fields and some records, all of which the form owns.
inline Db::TDataSource* MakeSource(Forms::TForm& form)
{
    auto* const set = new Db::TMemoryDataSet(&form);
    set->getFieldDefs()->Add(u"Name", Db::ftWideString, 8);
    set->getFieldDefs()->Add(u"Count", Db::ftInteger);
    set->Open();
    for (int i = 0; i < 3; ++i) {
        const System::Variant values[] = {u"row", i};
        set->AppendRecord(values);
    }
    set->First();
    auto* const source = new Db::TDataSource(&form);
    source->setDataSet(set);
    return source;
}

inline Controls::TControl* MakeDBGrid(Forms::TForm& form)
{
    auto* const grid = new Dbgrids::TDBGrid(&form);
    grid->setDataSource(MakeSource(form));
    return grid;
}

inline Controls::TControl* MakeDBEdit(Forms::TForm& form)
{
    auto* const edit = new Dbctrls::TDBEdit(&form);
    edit->setDataSource(MakeSource(form));
    edit->setDataField(u"Name");
    return edit;
}

template <class T>
Controls::TControl* MakeLookup(Forms::TForm& form)
{
    auto* const control = new T(&form);
    control->setListSource(MakeSource(form));
    control->setKeyField(u"Count");
    control->setListField(u"Name");
    return control;
}

/// Each class of controls once, and some in several styles.
inline constexpr TKind All[] = {
    {"form", TakeForm},
    {"probe", Make<TProbe>},
    {"label", Make<Stdctrls::TLabel>},
    {"edit", Make<Stdctrls::TEdit>},
    {"memo", Make<Stdctrls::TMemo>},
    {"rich edit", Make<Comctrls::TRichEdit>},
    {"mask edit", Make<Mask::TMaskEdit>},
    {"button", Make<Stdctrls::TButton>},
    {"bit button", Make<Buttons::TBitBtn>},
    {"speed button", Make<Buttons::TSpeedButton>},
    {"check box", Make<Stdctrls::TCheckBox>},
    {"radio button", Make<Stdctrls::TRadioButton>},
    {"group box", Make<Stdctrls::TGroupBox>},
    {"radio group", MakeFilled<Extctrls::TRadioGroup>},
    {"list box", MakeListBox<Stdctrls::lbStandard>},
    {"drawn list box", MakeListBox<Stdctrls::lbOwnerDrawVariable>},
    {"virtual list box", MakeListBox<Stdctrls::lbVirtual>},
    {"check list box", MakeFilled<Checklst::TCheckListBox>},
    {"combo box", MakeComboBox<Stdctrls::csDropDown>},
    {"drawn combo box", MakeComboBox<Stdctrls::csOwnerDrawVariable>},
    {"directory list box", Make<Filectrl::TDirectoryListBox>},
    {"drive combo box", Make<Filectrl::TDriveComboBox>},
    {"panel", Make<Extctrls::TPanel>},
    {"grid panel", Make<Extctrls::TGridPanel>},
    {"page control", MakePages},
    {"progress bar", Make<Comctrls::TProgressBar>},
    {"shape", Make<Extctrls::TShape>},
    {"bevel", Make<Extctrls::TBevel>},
    {"image", Make<Extctrls::TImage>},
    {"animation", Make<Comctrls::TAnimate>},
    {"string grid", MakeGrid},
    {"data grid", MakeDBGrid},
    {"data edit", MakeDBEdit},
    {"lookup combo box", MakeLookup<Dbctrls::TDBLookupComboBox>},
    {"lookup list box", MakeLookup<Dbctrls::TDBLookupListBox>},
};

} // namespace Kinds

} // namespace Support

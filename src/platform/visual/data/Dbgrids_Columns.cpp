// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbgrids_Columns.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/Dbgrids_DBGrid.h"
#include "platform/visual/data/internal/Dbgrids_FollowingFont.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_Field.h"

#include <algorithm>

namespace Dbgrids
{

using System::UnicodeString;

System::TMetaClass* TColumnTitle::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TColumnTitle>(u"TColumnTitle")
            .Property(u"Alignment", &TColumnTitle::getAlignment, &TColumnTitle::setAlignment,
                      {.defaultValue = Classes::taLeftJustify})
            .Property(u"Caption", &TColumnTitle::getCaption, &TColumnTitle::setCaption,
                      {.stored =
                           [](const System::TObject* title) {
                               return dynamic_cast<const TColumnTitle*>(title)->mCaption.has_value();
                           }})
            .Property(u"Color", &TColumnTitle::getColor, &TColumnTitle::setColor,
                      {.defaultValue = static_cast<int>(Graphics::clBtnFace)})
            .Property(u"Font", &TColumnTitle::getFont, &TColumnTitle::setFont,
                      {.stored =
                           [](const System::TObject* title) {
                               return dynamic_cast<const TColumnTitle*>(title)->mFont->IsOwn();
                           }})
            .Build();
    return record;
}

System::TMetaClass* TColumn::ClassRecord()
{
    using System::TObject;
    const auto of = [](const TObject* column) -> const TColumn& {
        return *dynamic_cast<const TColumn*>(column);
    };
    static System::TMetaClass* const record =
        System::GClassBuilder<TColumn>(u"TColumn")
            .Property(u"Alignment", &TColumn::getAlignment, &TColumn::setAlignment,
                      {.stored = [of](const TObject* column) { return of(column).mAlignment.has_value(); }})
            .Property(u"Color", &TColumn::getColor, &TColumn::setColor,
                      {.stored = [of](const TObject* column) { return of(column).mColor.has_value(); }})
            .Property(u"FieldName", &TColumn::getFieldName, &TColumn::setFieldName)
            .Property(u"Font", &TColumn::getFont, &TColumn::setFont,
                      {.stored = [of](const TObject* column) { return of(column).mFont->IsOwn(); }})
            .Property(u"ReadOnly", &TColumn::getReadOnly, &TColumn::setReadOnly, {.defaultValue = 0})
            .Property(u"Title", &TColumn::getTitle, &TColumn::setTitle)
            .Property(u"Visible", &TColumn::getVisible, &TColumn::setVisible, {.defaultValue = 1})
            .Property(u"Width", &TColumn::getWidth, &TColumn::setWidth,
                      {.stored = [of](const TObject* column) { return of(column).mWidth.has_value(); }})
            .Build();
    return record;
}

System::TMetaClass* TDBGridColumns::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDBGridColumns>(u"TDBGridColumns").Build();
    return record;
}

namespace
{

/// Stands for the grid's font where there is no grid.
const Graphics::TFont& NoFont()
{
    // Outlives the global objects of every program.
    static const auto* const font = new Graphics::TFont;
    return *font;
}

const Graphics::TFont& GridFont(const TColumn& column)
{
    const TCustomDBGrid* const grid = column.getGrid();
    return grid == nullptr ? NoFont() : grid->GetShownFont();
}

const Graphics::TFont& TitleFont(const TColumn& column)
{
    const TCustomDBGrid* const grid = column.getGrid();
    return grid == nullptr ? NoFont() : grid->GetShownTitleFont();
}

} // namespace

TColumnTitle::TColumnTitle(TColumn* column) : mColumn(column), mFont(std::make_unique<CFollowingFont>())
{
    mFont->OnChange = {this, &TColumnTitle::Changed};
}

TColumnTitle::~TColumnTitle() = default;

Classes::TPersistent* TColumnTitle::GetOwner() const
{
    return mColumn;
}

void TColumnTitle::Changed(System::TObject*)
{
    mColumn->Changed(false);
}

UnicodeString TColumnTitle::getCaption() const
{
    if (mCaption) {
        return *mCaption;
    }
    const Db::TField* const field = mColumn->getField();
    return field == nullptr ? mColumn->getFieldName() : field->getDisplayLabel();
}

void TColumnTitle::setCaption(const UnicodeString& caption)
{
    mCaption = caption;
    Changed(nullptr);
}

void TColumnTitle::setAlignment(Classes::TAlignment alignment)
{
    mAlignment = alignment;
    Changed(nullptr);
}

void TColumnTitle::setColor(Graphics::TColor color)
{
    mColor = color;
    Changed(nullptr);
}

Graphics::TFont* TColumnTitle::getFont() const
{
    return mFont->Get(TitleFont(*mColumn));
}

void TColumnTitle::setFont(Graphics::TFont* font)
{
    mFont->Set(font, TitleFont(*mColumn));
}

const Graphics::TFont& TColumnTitle::GetShownFont() const
{
    return mFont->Shown(TitleFont(*mColumn));
}

void TColumnTitle::Assign(Classes::TPersistent* source)
{
    auto* const other = dynamic_cast<TColumnTitle*>(source);
    if (other == nullptr) {
        return TPersistent::Assign(source);
    }
    mCaption = other->mCaption;
    mAlignment = other->mAlignment;
    mColor = other->mColor;
    setFont(other->mFont->IsOwn() ? other->getFont() : nullptr);
    Changed(nullptr);
}

TColumn::TColumn(Classes::TCollection* collection)
    : Classes::TCollectionItem(collection),
      mTitle(std::make_unique<TColumnTitle>(this)),
      mFont(std::make_unique<CFollowingFont>())
{
    mFont->OnChange = {this, &TColumn::FontChanged};
}

TColumn::~TColumn() = default;

TCustomDBGrid* TColumn::getGrid() const
{
    const auto* const columns = dynamic_cast<const TDBGridColumns*>(getCollection());
    return columns == nullptr ? nullptr : columns->getGrid();
}

void TColumn::FontChanged(System::TObject*)
{
    Changed(false);
}

void TColumn::setFieldName(const UnicodeString& name)
{
    mField.setName(name);
    Changed(true);
}

Db::TField* TColumn::getField() const
{
    const TCustomDBGrid* const grid = getGrid();
    return grid == nullptr || !grid->GetLinkActive() ? nullptr : mField.Find(grid->GetDataSet());
}

void TColumn::setField(const Db::TField* field)
{
    setFieldName(field == nullptr ? UnicodeString() : field->getFieldName());
}

int TColumn::getWidth() const
{
    if (mWidth) {
        return *mWidth;
    }
    constexpr int DefaultWidth = 64;
    constexpr int Margin = 4;
    constexpr int MostChars = 1000;
    const TCustomDBGrid* const grid = getGrid();
    const Db::TField* const field = getField();
    if (grid == nullptr || field == nullptr) {
        return DefaultWidth;
    }
    const int chars = std::min(field->getDisplayWidth(), MostChars);
    const int width = chars * grid->MeasureText(GetShownFont(), u"0") + Margin;
    const bool hasTitle = grid->getOptions().Contains(dgTitles);
    return hasTitle
               ? std::max(width, grid->MeasureText(mTitle->GetShownFont(), mTitle->getCaption()) + Margin)
               : width;
}

void TColumn::setWidth(int width)
{
    mWidth = std::max(width, 0);
    Changed(false);
}

Classes::TAlignment TColumn::getAlignment() const
{
    const Db::TField* const field = mAlignment ? nullptr : getField();
    return mAlignment ? *mAlignment : field != nullptr ? field->getAlignment() : Classes::taLeftJustify;
}

void TColumn::setAlignment(Classes::TAlignment alignment)
{
    mAlignment = alignment;
    Changed(false);
}

Graphics::TColor TColumn::getColor() const
{
    const TCustomDBGrid* const grid = getGrid();
    return mColor ? *mColor : grid != nullptr ? grid->getColor() : Graphics::clWindow;
}

void TColumn::setColor(Graphics::TColor color)
{
    mColor = color;
    Changed(false);
}

Graphics::TFont* TColumn::getFont() const
{
    return mFont->Get(GridFont(*this));
}

void TColumn::setFont(Graphics::TFont* font)
{
    mFont->Set(font, GridFont(*this));
}

const Graphics::TFont& TColumn::GetShownFont() const
{
    return mFont->Shown(GridFont(*this));
}

void TColumn::setVisible(bool isVisible)
{
    if (isVisible != mVisible) {
        mVisible = isVisible;
        Changed(true);
    }
}

bool TColumn::getShowing() const
{
    const Db::TField* const field = getField();
    return mVisible && (field == nullptr || field->getVisible());
}

void TColumn::Assign(Classes::TPersistent* source)
{
    auto* const other = dynamic_cast<TColumn*>(source);
    if (other == nullptr) {
        return TCollectionItem::Assign(source);
    }
    mField.setName(other->getFieldName());
    mWidth = other->mWidth;
    mAlignment = other->mAlignment;
    mColor = other->mColor;
    mReadOnly = other->mReadOnly;
    mVisible = other->mVisible;
    mTitle->Assign(other->getTitle());
    setFont(other->mFont->IsOwn() ? other->getFont() : nullptr);
    Changed(true);
}

UnicodeString TColumn::GetDisplayName() const
{
    return getFieldName().IsEmpty() ? TCollectionItem::GetDisplayName() : getFieldName();
}

void TColumn::RestoreDefaults()
{
    mWidth.reset();
    mAlignment.reset();
    mColor.reset();
    mFont->Set(nullptr, NoFont());
    mTitle->mCaption.reset();
    mTitle->mFont->Set(nullptr, NoFont());
    Changed(false);
}

TDBGridColumns::TDBGridColumns(TCustomDBGrid* grid)
    : Classes::TCollection(System::ClassOf<TColumn>()), mGrid(grid)
{
}

TDBGridColumns::~TDBGridColumns()
{
    mGrid = nullptr;
    Clear();
}

Classes::TPersistent* TDBGridColumns::GetOwner() const
{
    return mGrid;
}

TColumn* TDBGridColumns::getItems(int index) const
{
    return static_cast<TColumn*>(GetItem(index));
}

TColumn* TDBGridColumns::Add()
{
    return static_cast<TColumn*>(TCollection::Add());
}

void TDBGridColumns::Notify(Classes::TCollectionItem* item, Classes::TOperation operation)
{
    TCollection::Notify(item, operation);
    if (operation == Classes::opRemove && mGrid != nullptr) {
        mGrid->ForgetColumn(item);
    }
    if (operation != Classes::opInsert || mIsMaking || mState == csCustomized) {
        return;
    }
    mState = csCustomized;
    for (int i = GetCount() - 1; i >= 0; --i) {
        if (GetItem(i) != item) {
            Delete(i);
        }
    }
}

void TDBGridColumns::Update(Classes::TCollectionItem* item)
{
    TCollection::Update(item);
    if (mGrid != nullptr && !mIsMaking) {
        mGrid->ColumnsChanged();
    }
}

void TDBGridColumns::setState(TDBGridColumnsState state)
{
    if (state == mState) {
        return;
    }
    mState = state;
    if (state == csDefault) {
        MakeForFields();
    }
}

void TDBGridColumns::MakeForFields()
{
    const Db::TDataSet* const dataSet =
        mGrid != nullptr && mGrid->GetLinkActive() ? mGrid->GetDataSet() : nullptr;
    mIsMaking = true;
    Clear();
    for (int i = 0; dataSet != nullptr && i < dataSet->getFieldCount(); ++i) {
        const Db::TField* const field = dataSet->getFields(i);
        if (field->getVisible()) {
            Add()->mField.setName(field->getFieldName());
        }
    }
    mIsMaking = false;
    if (mGrid != nullptr) {
        mGrid->ColumnsChanged();
    }
}

void TDBGridColumns::FollowFields()
{
    if (mState == csDefault) {
        MakeForFields();
    } else {
        mGrid->ColumnsChanged();
    }
}

void TDBGridColumns::RebuildColumns()
{
    MakeForFields();
    mState = csCustomized;
}

void TDBGridColumns::RestoreDefaults()
{
    BeginUpdate();
    for (int i = 0; i < GetCount(); ++i) {
        getItems(i)->RestoreDefaults();
    }
    EndUpdate();
}

} // namespace Dbgrids

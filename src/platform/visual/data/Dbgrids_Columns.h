// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/data/sets/Db_DataSource.h"
#include "platform/visual/graphics/Graphics_Color.h"

#include <memory>
#include <optional>

namespace Graphics
{
class TFont;
} // namespace Graphics

namespace Dbgrids
{

class CFollowingFont;
class TColumn;
class TCustomDBGrid;

/// The heading of a column.
class TRS8_BTL_API TColumnTitle : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TColumnTitle, Classes::TPersistent)

public:
    explicit TColumnTitle(TColumn* column);
    ~TColumnTitle() override;

    /// The field's display label unless it is set.
    System::UnicodeString getCaption() const;
    void setCaption(const System::UnicodeString& caption);
    /// Left at first.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);
    /// `clBtnFace` at first.
    Graphics::TColor getColor() const noexcept { return mColor; }
    void setColor(Graphics::TColor color);
    /// The grid's title font until it is changed.
    Graphics::TFont* getFont() const;
    void setFont(Graphics::TFont* font);
    const Graphics::TFont& GetShownFont() const;

    void Assign(Classes::TPersistent* source) override;
    Classes::TPersistent* GetOwner() const override;

private:
    friend class TColumn;

    void Changed(System::TObject* sender);

    TColumn* mColumn;
    std::optional<System::UnicodeString> mCaption;
    Classes::TAlignment mAlignment = Classes::taLeftJustify;
    Graphics::TColor mColor = Graphics::clBtnFace;
    std::unique_ptr<CFollowingFont> mFont;
};

/// A column of a data grid, with the field that it shows. What isn't set is the field's, or the grid's.
class TRS8_BTL_API TColumn : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TColumn, Classes::TCollectionItem)

public:
    explicit TColumn(Classes::TCollection* collection = nullptr);
    ~TColumn() override;

    const System::UnicodeString& getFieldName() const noexcept { return mField.getName(); }
    void setFieldName(const System::UnicodeString& name);
    /// Null while the set is closed, and if it has no such field.
    Db::TField* getField() const;
    /// The name of the field, or none for null.
    void setField(const Db::TField* field);
    TColumnTitle* getTitle() const noexcept { return mTitle.get(); }
    void setTitle(TColumnTitle* title) { mTitle->Assign(title); }
    /// In pixels; by the field's display width and the title unless it is set.
    int getWidth() const;
    /// Negative ones count as 0.
    void setWidth(int width);
    Classes::TAlignment getAlignment() const;
    void setAlignment(Classes::TAlignment alignment);
    Graphics::TColor getColor() const;
    void setColor(Graphics::TColor color);
    Graphics::TFont* getFont() const;
    void setFont(Graphics::TFont* font);
    const Graphics::TFont& GetShownFont() const;
    /// Whether the user can't change the field here; off at first.
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly) noexcept { mReadOnly = isReadOnly; }
    /// On at first.
    bool getVisible() const noexcept { return mVisible; }
    void setVisible(bool isVisible);
    /// Whether it is seen: it is visible, and its field, if it has one, is too.
    bool getShowing() const;
    /// Null without a grid.
    TCustomDBGrid* getGrid() const;

    void Assign(Classes::TPersistent* source) override;
    System::UnicodeString GetDisplayName() const override;
    /// Takes all back that was set beside the field.
    void RestoreDefaults();

private:
    friend class TColumnTitle;
    friend class TDBGridColumns;

    void FontChanged(System::TObject* sender);

    Db::CFieldReference mField;
    std::unique_ptr<TColumnTitle> mTitle;
    std::optional<int> mWidth;
    std::optional<Classes::TAlignment> mAlignment;
    std::optional<Graphics::TColor> mColor;
    std::unique_ptr<CFollowingFont> mFont;
    bool mReadOnly = false;
    bool mVisible = true;
};

/// Where the columns of a data grid come from: from the fields of the set, or from the design.
enum TDBGridColumnsState
{
    csDefault,
    csCustomized
};

/// The columns of a data grid. As long as nobody added any, they are the visible fields of the set.
class TRS8_BTL_API TDBGridColumns : public Classes::TCollection
{
    TRS8_BTL_CLASS(TDBGridColumns, Classes::TCollection)

public:
    explicit TDBGridColumns(TCustomDBGrid* grid);
    ~TDBGridColumns() override;

    TCustomDBGrid* getGrid() const noexcept { return mGrid; }
    /// The column at the 0-based index; `Classes::EListError` for one out of range.
    TColumn* getItems(int index) const;
    /// A new column at the end. Those that were made for fields go.
    TColumn* Add();
    /// `csCustomized` keeps those that there are; `csDefault` makes them by the fields.
    TDBGridColumnsState getState() const noexcept { return mState; }
    void setState(TDBGridColumnsState state);
    /// Makes a column for each visible field of the set, in place of those that there are, and keeps them.
    void RebuildColumns();
    /// Takes back what was set in each of them.
    void RestoreDefaults();

    Classes::TPersistent* GetOwner() const override;

protected:
    void Update(Classes::TCollectionItem* item) override;
    void Notify(Classes::TCollectionItem* item, Classes::TOperation operation) override;

private:
    friend class TCustomDBGrid;

    /// Has the columns be the visible fields, if they are made by these.
    void FollowFields();
    void MakeForFields();

    TCustomDBGrid* mGrid;
    TDBGridColumnsState mState = csDefault;
    bool mIsMaking = false;
};

} // namespace Dbgrids

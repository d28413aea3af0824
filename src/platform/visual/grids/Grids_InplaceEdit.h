// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"

namespace Grids
{

class TCustomGrid;

/// The edit in which a grid lets its user change the cell at hand. The grid makes it, by `CreateEditor`, when
/// it is first needed, and owns it; keys that go from cell to cell it hands to the grid.
class TRS8_BTL_API TInplaceEdit : public Mask::TCustomMaskEdit
{
    TRS8_BTL_CLASS(TInplaceEdit, Mask::TCustomMaskEdit)

public:
    /// `owner` is the grid.
    explicit TInplaceEdit(Classes::TComponent* owner = nullptr);
    ~TInplaceEdit() override;

    /// Null for an edit that no grid made.
    TCustomGrid* getGrid() const noexcept { return mGrid; }
    /// The caret goes behind the text, and nothing is selected.
    void Deselect();
    /// Puts it over a cell and shows it there, with all of the text selected.
    void Move(const Types::TRect& rect);
    /// As `Move`, but leaves the selection. An empty rectangle puts it out of sight.
    void UpdateLoc(const Types::TRect& rect);
    bool PosEqual(const Types::TRect& rect) const { return getBoundsRect() == rect; }
    /// Types a character into it.
    void TypeCharacter(System::WideChar character);

protected:
    friend class TCustomGrid;

    /// Takes mask, length and text of the cell.
    virtual void UpdateContents();
    void Change() override;
    void DblClick() override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    void KeyDown(System::Word& key, Classes::TShiftState shift) override;
    void KeyUp(System::Word& key, Classes::TShiftState shift) override;
    void KeyPress(System::WideChar& key) override;
    bool MouseWheel(Classes::TShiftState shift, int delta, Types::TPoint place) override;

private:
    bool IsForGrid(System::Word key, const Classes::TShiftState& shift) const;

    TCustomGrid* mGrid;
    /// What the cell had when the edit came to it.
    System::UnicodeString mFormerText;
};

} // namespace Grids

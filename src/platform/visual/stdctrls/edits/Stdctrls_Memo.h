// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/stdctrls/Stdctrls_ScrollStyle.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <memory>
#include <optional>

namespace Stdctrls
{

/// Base of edits of several lines. Lines are those of the text, which end at CR LF; where a long one is
/// wrapped to be seen, it stays one.
///
///     auto* const memo = new Stdctrls::TMemo(form);
///     memo->setParent(form);
///     memo->getLines()->Add(u"one");
///     memo->setCaretPos({.X = 0, .Y = memo->getLines()->getCount()});
class TRS8_BTL_API TCustomMemo : public TCustomEdit
{
    TRS8_BTL_CLASS(TCustomMemo, TCustomEdit)

public:
    explicit TCustomMemo(Classes::TComponent* owner = nullptr);
    ~TCustomMemo() override;

    /// Each end of a line becomes CR LF.
    void SetText(const System::UnicodeString& text) override;
    /// The lines of the text, which the memo owns; an empty one that the last break begins doesn't count. A
    /// line that is added has a break behind it. The text of all is the memo's.
    Classes::TStrings* getLines() const noexcept { return mLines.get(); }
    /// Copies the lines.
    void setLines(Classes::TStrings* lines);
    /// Where the caret stands: `Y` is the line, `X` the place in it, both from 0 and held within the text.
    Types::TPoint getCaretPos() const;
    void setCaretPos(Types::TPoint place);
    /// None at first.
    TScrollStyle getScrollBars() const noexcept { return mScrollBars; }
    void setScrollBars(TScrollStyle bars);
    /// Whether long lines are wrapped to be seen, which a horizontal bar makes needless; on at first.
    bool getWordWrap() const noexcept { return mWordWrap; }
    void setWordWrap(bool isOn);
    /// Whether the Enter key begins a line, rather than pressing the form's default button; on at first.
    bool getWantReturns() const noexcept { return mWantReturns; }
    void setWantReturns(bool isOn);
    /// Whether the Tab key makes a tabulator, rather than leaving the memo; off at first.
    bool getWantTabs() const noexcept { return mWantTabs; }
    void setWantTabs(bool isOn);

protected:
    /// With `lines` in place of the memo's own.
    TCustomMemo(Classes::TComponent* owner, std::unique_ptr<Classes::TStrings> lines);

    bool IsMultiLine() const override { return true; }
    System::UnicodeString Acceptable(const System::UnicodeString& text, int replaced) const override;
    Toolkits::TEditTraits EditTraits() const override;
    int VerticalPlace(int rows) const override;
    int HomePlace() const override;
    int EndPlace() const override;
    int PageLines() const override;
    /// The ends of the line in which the place stands.
    int LineBegin(int place) const;
    int LineEnd(int place) const;
    /// What is seen in one row: a line, or as much of it as there is room for.
    struct TRow
    {
        int begin = 0;
        int end = 0;
    };

    void PaintText(Graphics::TCanvas& canvas) override;
    int PlaceAt(Types::TPoint place) const override;
    /// How high a row is, and where it begins and ends in the area of the text if it is wrapped.
    virtual int RowHeight(const TRow& row) const;
    virtual Types::TPoint RowRoom(int begin) const;
    /// How a line is aligned in the room of its rows.
    virtual Classes::TAlignment RowAlignment(int begin) const;
    /// Draws units of a row.
    virtual void PaintRow(Graphics::TCanvas& canvas, Types::TPoint at, const TRow& row);
    void ScrollCaret() override;
    void CreateParams(Controls::TCreateParams& params) override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    void KeyPress(System::WideChar& key) override;
    bool ActOnChar(System::WideChar character) override;

private:
    friend class CMemoLines;

    bool IsWrapped() const;
    /// The rows of a line begin anew with each part of it.
    TRow PartAround(int place) const;
    TRow RowFrom(int begin) const;
    TRow RowAround(int place) const;
    /// Nothing in front of the first and behind the last row.
    std::optional<TRow> RowBefore(const TRow& row) const;
    std::optional<TRow> RowBehind(const TRow& row) const;
    /// The last place at which the caret stands in the row.
    int LastPlaceIn(const TRow& row) const;
    /// What of a row could be seen, and where that begins.
    TRow SeenOf(const TRow& row) const;
    int LeftOf(const TRow& seen) const;

    std::unique_ptr<Classes::TStrings> mLines;
    /// A place in the first row that is seen.
    int mTop = 0;
    /// How much of each line is left of what is seen, where none is wrapped.
    int mFirstColumn = 0;
    TScrollStyle mScrollBars = ssNone;
    bool mWordWrap = true;
    bool mWantReturns = true;
    bool mWantTabs = false;
};

/// A memo of a form's design.
class TRS8_BTL_API TMemo : public TCustomMemo
{
    TRS8_BTL_CLASS(TMemo, TCustomMemo)

public:
    explicit TMemo(Classes::TComponent* owner = nullptr) : TCustomMemo(owner) {}
    ~TMemo() override;
};

} // namespace Stdctrls

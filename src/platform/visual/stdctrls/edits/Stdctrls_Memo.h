// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/stdctrls/Stdctrls_ScrollStyle.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <memory>

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
    /// Whether long lines are wrapped where the window acts by itself; on at first.
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
    int VerticalPlace(int lines) const override;
    int LineBegin(int place) const override;
    int LineEnd(int place) const override;
    int PageLines() const override;
    void PaintText(Graphics::TCanvas& canvas) override;
    int PlaceAt(Types::TPoint place) const override;
    void ScrollCaret() override;
    void CreateParams(Controls::TCreateParams& params) override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    void KeyPress(System::WideChar& key) override;
    bool ActOnChar(System::WideChar character) override;

private:
    friend class CMemoLines;

    std::unique_ptr<Classes::TStrings> mLines;
    int mTopLine = 0;
    /// How much of each line is left of what is seen.
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

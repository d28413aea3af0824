// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Stdctrls
{

/// Where a text stands within the height it has.
enum TTextLayout
{
    tlTop,
    tlCenter,
    tlBottom
};

/// What gives way to "..." where a text doesn't fit: nothing, the middle of a path, the end of the text, the
/// end of each word.
enum TEllipsisPosition
{
    epNone,
    epPathEllipsis,
    epEndEllipsis,
    epWordEllipsis
};

/// Base of labels: a text on the form that the user can't change. It has no window and never the focus, but
/// can lead to a control that has.
///
///     auto* const label = new Stdctrls::TLabel(form);
///     label->setParent(form);
///     label->setCaption(u"&Name");                                // Alt+N leads to the edit
///     label->setFocusControl(edit);
class TRS8_BTL_API TCustomLabel : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TCustomLabel, Controls::TGraphicControl)

public:
    explicit TCustomLabel(Classes::TComponent* owner = nullptr);
    ~TCustomLabel() override;

    /// The side that lines begin at; the left one at first.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);
    /// Top at first.
    TTextLayout getLayout() const noexcept { return mLayout; }
    void setLayout(TTextLayout layout);
    /// Whether lines break between words where the label ends; off at first.
    bool getWordWrap() const noexcept { return mWordWrap; }
    void setWordWrap(bool isOn);
    /// Whether an ampersand underlines what follows; on at first.
    bool getShowAccelChar() const noexcept { return mShowAccelChar; }
    void setShowAccelChar(bool isOn);
    /// Whether what is behind is seen between the characters; off at first.
    bool getTransparent() const { return !getControlStyle().Contains(Controls::csOpaque); }
    void setTransparent(bool isOn);
    /// `epNone` at first. One line only, but for `epWordEllipsis`.
    TEllipsisPosition getEllipsisPosition() const noexcept { return mEllipsisPosition; }
    void setEllipsisPosition(TEllipsisPosition position);
    /// The control that gets the focus by the label's accelerator; not owned, null at first.
    Controls::TWinControl* getFocusControl() const noexcept { return mFocusControl; }
    void setFocusControl(Controls::TWinControl* control);

    /// A text: the caption without its mark.
    Toolkits::TWindowPart AsWindowPart() const override;
    void Dispatch(void* message) override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

protected:
    /// The text that is measured and painted: the caption.
    virtual System::UnicodeString GetLabelText() const { return GetText(); }
    /// Draws the text by the `DT_...` flags; with `DT_CALCRECT` `rect` becomes what it takes instead.
    virtual void DoDrawText(Types::TRect& rect, unsigned flags);
    /// Sizes the label by `DoDrawText`, if it is to; a right-aligned one keeps its right edge.
    virtual void AdjustBounds();
    void AdjustSize() override { AdjustBounds(); }
    void Paint() override;

private:
    unsigned LayoutFlags() const;
    /// What is read as the label's text.
    System::UnicodeString SpokenText() const;
    template <class T>
    void Take(T& field, T value);

    Controls::TWinControl* mFocusControl = nullptr;
    Classes::TAlignment mAlignment = Classes::taLeftJustify;
    TTextLayout mLayout = tlTop;
    TEllipsisPosition mEllipsisPosition = epNone;
    bool mWordWrap = false;
    bool mShowAccelChar = true;
};

/// A label of a form's design. It takes the size of its text at first.
class TRS8_BTL_API TLabel : public TCustomLabel
{
    TRS8_BTL_CLASS(TLabel, TCustomLabel)

public:
    explicit TLabel(Classes::TComponent* owner = nullptr) : TCustomLabel(owner) {}
    ~TLabel() override;
};

} // namespace Stdctrls

namespace Typinfo
{

// The enumerations of labels, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Stdctrls::TTextLayout>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Stdctrls::TEllipsisPosition>
{
    static TTypeInfo Make();
};

} // namespace Typinfo

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/menus/Menus.h"

namespace Controls
{

// Groups of properties that most classes of controls publish alike; a class takes those that it has.
//
//     static System::TMetaClass* const record =
//         PublishFocus(PublishControl(System::GClassBuilder<TGauge>(u"TGauge")))
//             .Property(u"Value", &TGauge::getValue, &TGauge::setValue)
//             .Build();

/// Whether a control's colour isn't that of its parent.
inline bool IsColorOwn(const System::TObject* object)
{
    return !dynamic_cast<const TControl*>(object)->getParentColor();
}

/// Place in the parent, colour, font, hint, visibility, and the events of the mouse. It also says that the
/// class does nothing when others come to its owner; one that does says `HearsInsertions(true)` behind it.
template <class T>
System::GClassBuilder<T> PublishControl(System::GClassBuilder<T> builder)
{
    const auto isFontOwn = [](const System::TObject* object) {
        return !dynamic_cast<const TControl*>(object)->getParentFont();
    };
    const auto isShowHintOwn = [](const System::TObject* object) {
        return !dynamic_cast<const TControl*>(object)->getParentShowHint();
    };
    const auto isBiDiModeOwn = [](const System::TObject* object) {
        return !dynamic_cast<const TControl*>(object)->getParentBiDiMode();
    };
    builder.Property(u"Align", &T::getAlign, &T::setAlign, {.defaultValue = alNone})
        .Property(u"Anchors", &T::getAnchors, &T::setAnchors, {.defaultValue = 3})
        .Property(u"BiDiMode", &T::getBiDiMode, &T::setBiDiMode, {.stored = isBiDiModeOwn})
        .Property(u"Color", &T::getColor, &T::setColor, {.stored = IsColorOwn})
        .Property(u"Constraints", &T::getConstraints, &T::setConstraints)
        .Property(u"Enabled", &T::getEnabled, &T::setEnabled, {.defaultValue = 1})
        .Property(u"Font", &T::getFont, &T::setFont, {.stored = isFontOwn})
        .Property(u"ParentBiDiMode", &T::getParentBiDiMode, &T::setParentBiDiMode, {.defaultValue = 1})
        .Property(u"ParentColor", &T::getParentColor, &T::setParentColor, {.defaultValue = 1})
        .Property(u"ParentFont", &T::getParentFont, &T::setParentFont, {.defaultValue = 1})
        .Property(u"ParentShowHint", &T::getParentShowHint, &T::setParentShowHint, {.defaultValue = 1})
        .Property(u"PopupMenu", &T::getPopupMenu, &T::setPopupMenu)
        .Property(u"ShowHint", &T::getShowHint, &T::setShowHint, {.stored = isShowHintOwn})
        .Property(u"Visible", &T::getVisible, &T::setVisible, {.defaultValue = 1})
        .Property(u"OnClick", &T::OnClick)
        .Property(u"OnContextPopup", &T::OnContextPopup)
        .Property(u"OnDblClick", &T::OnDblClick)
        .Property(u"OnMouseDown", &T::OnMouseDown)
        .Property(u"OnMouseEnter", &T::OnMouseEnter)
        .Property(u"OnMouseLeave", &T::OnMouseLeave)
        .Property(u"OnMouseMove", &T::OnMouseMove)
        .Property(u"OnMouseUp", &T::OnMouseUp)
        .Property(u"OnResize", &T::OnResize)
        .HearsInsertions(false);
    return builder;
}

/// As `PublishControl`, of a class whose controls have a colour of their own at first: `color`.
template <class T>
System::GClassBuilder<T> PublishColoredControl(System::GClassBuilder<T> builder,
                                               Graphics::TColor color = Graphics::clWindow)
{
    builder = PublishControl(std::move(builder));
    builder.Property(u"Color", &T::getColor, &T::setColor, {.defaultValue = color, .stored = IsColorOwn})
        .Property(u"ParentColor", &T::getParentColor, &T::setParentColor, {.defaultValue = 0});
    return builder;
}

/// The order of the Tab key, and the events of focus and keyboard. `isTabStop` is what a new control has.
template <class T>
System::GClassBuilder<T> PublishFocus(System::GClassBuilder<T> builder, bool isTabStop = true)
{
    builder.Property(u"TabOrder", &T::getTabOrder, &T::setTabOrder)
        .Property(u"TabStop", &T::getTabStop, &T::setTabStop, {.defaultValue = isTabStop ? 1 : 0})
        .Property(u"OnEnter", &T::OnEnter)
        .Property(u"OnExit", &T::OnExit)
        .Property(u"OnKeyDown", &T::OnKeyDown)
        .Property(u"OnKeyPress", &T::OnKeyPress)
        .Property(u"OnKeyUp", &T::OnKeyUp);
    return builder;
}

} // namespace Controls

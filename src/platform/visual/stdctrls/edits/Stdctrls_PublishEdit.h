// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/Stdctrls_ScrollStyle.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

namespace Stdctrls
{

// Groups of properties that the classes of edits publish alike.
//
//     static System::TMetaClass* const record =
//         PublishLine(PublishEdit(System::GClassBuilder<TUnitEdit>(u"TUnitEdit"))).Build();

/// What each control has in which a text is edited, beside what a control with the focus has.
template <class T>
System::GClassBuilder<T> PublishEdit(System::GClassBuilder<T> builder)
{
    builder = Controls::PublishFocus(Controls::PublishColoredControl(std::move(builder)));
    builder.Property(u"Alignment", &T::getAlignment, &T::setAlignment, {.defaultValue = 0})
        .Property(u"BorderStyle", &T::getBorderStyle, &T::setBorderStyle, {.defaultValue = Forms::bsSingle})
        .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D, {.defaultValue = 1})
        .Property(u"HideSelection", &T::getHideSelection, &T::setHideSelection, {.defaultValue = 1})
        .Property(u"MaxLength", &T::getMaxLength, &T::setMaxLength, {.defaultValue = 0})
        .Property(u"ReadOnly", &T::getReadOnly, &T::setReadOnly, {.defaultValue = 0})
        .Property(u"OnChange", &T::OnChange);
    return builder;
}

/// What edits of one line have beside it.
template <class T>
System::GClassBuilder<T> PublishLine(System::GClassBuilder<T> builder)
{
    builder.Property(u"AutoSelect", &T::getAutoSelect, &T::setAutoSelect, {.defaultValue = 1})
        .Property(u"AutoSize", &T::getAutoSize, &T::setAutoSize, {.defaultValue = 1})
        .Property(u"CharCase", &T::getCharCase, &T::setCharCase, {.defaultValue = ecNormal})
        .Property(u"PasswordChar", &T::getPasswordChar, &T::setPasswordChar, {.defaultValue = 0})
        .Property(u"Text", &T::getText, &T::setText)
        .Property(u"TextHint", &T::getTextHint, &T::setTextHint);
    return builder;
}

/// What edits of several lines have beside it.
template <class T>
System::GClassBuilder<T> PublishMemo(System::GClassBuilder<T> builder)
{
    builder.Property(u"Lines", &T::getLines, &T::setLines)
        .Property(u"ScrollBars", &T::getScrollBars, &T::setScrollBars, {.defaultValue = ssNone})
        .Property(u"WantReturns", &T::getWantReturns, &T::setWantReturns, {.defaultValue = 1})
        .Property(u"WantTabs", &T::getWantTabs, &T::setWantTabs, {.defaultValue = 0})
        .Property(u"WordWrap", &T::getWordWrap, &T::setWordWrap, {.defaultValue = 1});
    return builder;
}

} // namespace Stdctrls

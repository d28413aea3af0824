// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_Publish.h"

namespace Extctrls
{

/// What all classes of panels publish alike.
template <class T>
System::GClassBuilder<T> PublishPanel(System::GClassBuilder<T> builder)
{
    builder = Controls::PublishFocus(Controls::PublishColoredControl(std::move(builder), Graphics::clBtnFace),
                                     false);
    builder.Property(u"Alignment", &T::getAlignment, &T::setAlignment, {.defaultValue = Classes::taCenter})
        .Property(u"AutoSize", &T::getAutoSize, &T::setAutoSize, {.defaultValue = 0})
        .Property(u"BevelInner", &T::getBevelInner, &T::setBevelInner, {.defaultValue = Controls::bvNone})
        .Property(u"BevelOuter", &T::getBevelOuter, &T::setBevelOuter, {.defaultValue = Controls::bvRaised})
        .Property(u"BevelWidth", &T::getBevelWidth, &T::setBevelWidth, {.defaultValue = 1})
        .Property(u"BorderStyle", &T::getBorderStyle, &T::setBorderStyle, {.defaultValue = Forms::bsNone})
        .Property(u"BorderWidth", &T::getBorderWidth, &T::setBorderWidth, {.defaultValue = 0})
        .Property(u"Caption", &T::getCaption, &T::setCaption)
        .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D,
                  {.stored =
                       [](const System::TObject* object) {
                           return !dynamic_cast<const T*>(object)->getParentCtl3D();
                       }})
        .Property(u"FullRepaint", &T::getFullRepaint, &T::setFullRepaint, {.defaultValue = 1})
        .Property(u"Locked", &T::getLocked, &T::setLocked, {.defaultValue = 0})
        .Property(u"ParentBackground", &T::getParentBackground, &T::setParentBackground, {.defaultValue = 1})
        .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
        .Property(u"ShowCaption", &T::getShowCaption, &T::setShowCaption, {.defaultValue = 1})
        .Property(u"VerticalAlignment", &T::getVerticalAlignment, &T::setVerticalAlignment,
                  {.defaultValue = Classes::taVerticalCenter});
    return builder;
}

} // namespace Extctrls

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/toolkit/Input.h"

namespace Classes
{

/// Where a text stands within the width it has.
enum TAlignment
{
    taLeftJustify,
    taRightJustify,
    taCenter
};

/// Where a text stands within the height it has.
enum TVerticalAlignment
{
    taAlignTop,
    taAlignBottom,
    taVerticalCenter
};

/// The direction of reading, and what of it a control follows.
enum TBiDiMode
{
    bdLeftToRight,
    bdRightToLeft,
    bdRightToLeftNoAlign,
    bdRightToLeftReadingOnly
};

} // namespace Classes

namespace Controls
{

/// The edge of its parent that a control fills. `alCustom` leaves the place to the parent's class.
enum TAlign
{
    alNone,
    alTop,
    alBottom,
    alLeft,
    alRight,
    alClient,
    alCustom
};

/// An edge of the parent to which a control keeps its distance when the parent's size changes.
enum TAnchorKind
{
    akLeft,
    akTop,
    akRight,
    akBottom
};

/// The edges that a control keeps to; left and top at first.
using TAnchors = System::Set<TAnchorKind, akLeft, akBottom>;

/// What a control is doing.
enum TControlStateFlag
{
    csLButtonDown,
    csClicked,
    csReadingState,
    csAlignmentNeeded,
    csFocusing,
    csCreating,
    csCustomPaint
};

/// All that holds for a control at a time.
using TControlState = System::Set<TControlStateFlag, csLButtonDown, csCustomPaint>;

/// A trait of a class of controls: `csAcceptsControls` lets it have children in a form's design,
/// `csCaptureMouse` brings it all of the mouse while a button is held, `csClickEvents` makes clicks of its
/// mouse, `csDoubleClicks` tells two of them from one, `csSetCaption` lets its text follow its name,
/// `csOpaque` says that it fills its whole rectangle. The first five a control has at first.
enum TControlStyleFlag
{
    csAcceptsControls,
    csCaptureMouse,
    csClickEvents,
    csDoubleClicks,
    csSetCaption,
    csOpaque,
    csFramed,
    csFixedWidth,
    csFixedHeight,
    csNoDesignVisible,
    csReplicatable,
    csNoStdEvents,
    csMenuEvents,
    csParentBackground
};

/// The traits of a control.
using TControlStyle = System::Set<TControlStyleFlag, csAcceptsControls, csParentBackground>;

/// An edge of a control's border.
enum TBevelEdge
{
    beLeft,
    beTop,
    beRight,
    beBottom
};
/// The edges that are drawn.
using TBevelEdges = System::Set<TBevelEdge, beLeft, beBottom>;

/// How deep an edge is drawn, inside or outside of a border.
enum TBevelCut
{
    bvNone,
    bvLowered,
    bvRaised,
    bvSpace
};

/// How a control's border is drawn.
enum TBevelKind
{
    bkNone,
    bkTile,
    bkSoft,
    bkFlat
};

/// A mouse button that is pressed or let go at a place in the control.
using TMouseEvent = System::TClosure<void(System::TObject* sender, TMouseButton button,
                                          Classes::TShiftState shift, int x, int y)>;
/// The mouse moves over a control.
using TMouseMoveEvent =
    System::TClosure<void(System::TObject* sender, Classes::TShiftState shift, int x, int y)>;
/// The wheel is turned by `delta` units, 120 for a notch away from the user. `handled` keeps it from the
/// parent.
using TMouseWheelEvent = System::TClosure<void(System::TObject* sender, Classes::TShiftState shift, int delta,
                                               Types::TPoint place, bool& handled)>;
/// A key is pressed or let go; 0 in `key` keeps it from whoever comes next.
using TKeyEvent =
    System::TClosure<void(System::TObject* sender, System::Word& key, Classes::TShiftState shift)>;
/// A character is typed; 0 in `key` keeps it from whoever comes next.
using TKeyPressEvent = System::TClosure<void(System::TObject* sender, System::WideChar& key)>;
/// A new size is about to be taken; it may be changed, or refused by `resize`.
using TCanResizeEvent =
    System::TClosure<void(System::TObject* sender, int& width, int& height, bool& resize)>;
/// The bounds that a size may have; 0 is no bound.
using TConstrainedResizeEvent = System::TClosure<void(System::TObject* sender, int& minWidth, int& minHeight,
                                                      int& maxWidth, int& maxHeight)>;
/// A context menu is asked for at a place in the control; -1, -1 by the keyboard.
using TContextPopupEvent =
    System::TClosure<void(System::TObject* sender, Types::TPoint place, bool& handled)>;

} // namespace Controls

/// Descriptions of the enumerations for properties, each with its own names.
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Classes::TAlignment>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Classes::TVerticalAlignment>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Classes::TBiDiMode>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Controls::TAlign>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Controls::TAnchorKind>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Controls::TBevelEdge>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Controls::TBevelCut>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Controls::TBevelKind>
{
    static TTypeInfo Make();
};

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Forms
{

/// The frame of a form, and whether the user can size it by that.
enum TFormBorderStyle
{
    bsNone,
    bsSingle,
    bsSizeable,
    bsDialog,
    bsToolWindow,
    bsSizeToolWin
};
/// The frame of a control within a form: `bsNone` or `bsSingle`.
using TBorderStyle = TFormBorderStyle;

/// What stands in the frame's upper edge.
enum TBorderIcon
{
    biSystemMenu,
    biMinimize,
    biMaximize,
    biHelp
};
/// All that stands there.
using TBorderIcons = System::Set<TBorderIcon, biSystemMenu, biHelp>;

/// Where a form comes up: as it was designed, where the desktop likes, in the middle of the screen, of all
/// screens, of the main form or of its owner.
enum TPosition
{
    poDesigned,
    poDefault,
    poDefaultPosOnly,
    poDefaultSizeOnly,
    poScreenCenter,
    poDesktopCenter,
    poMainFormCenter,
    poOwnerFormCenter
};

/// How large a form is on the screen.
enum TWindowState
{
    wsNormal,
    wsMinimized,
    wsMaximized
};

/// What kind of window a form is. Here only `fsStayOnTop` differs from `fsNormal`.
enum TFormStyle
{
    fsNormal,
    fsMDIChild,
    fsMDIForm,
    fsStayOnTop
};

/// What becomes of a form that is closed.
enum TCloseAction
{
    caNone,
    caHide,
    caFree,
    caMinimize
};

/// What a form is doing.
enum TFormStateFlag
{
    fsCreating,
    fsVisible,
    fsShowing,
    fsModal,
    fsCreatedMDIChild,
    fsActivated
};
/// All that a form is doing.
using TFormState = System::Set<TFormStateFlag, fsCreating, fsActivated>;

/// A form is being closed; what becomes of it may be changed.
using TCloseEvent = System::TClosure<void(System::TObject* sender, TCloseAction& action)>;
/// Whether a form may be closed.
using TCloseQueryEvent = System::TClosure<void(System::TObject* sender, bool& canClose)>;

} // namespace Forms

namespace Typinfo
{

// The enumerations of forms, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Forms::TFormBorderStyle>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Forms::TBorderIcon>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Forms::TPosition>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Forms::TWindowState>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Forms::TFormStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo

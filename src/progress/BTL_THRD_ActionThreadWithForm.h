// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "progress/BTL_THRD_ActionThread.h"

namespace Classes
{
class TComponentLink;
} // namespace Classes

namespace Forms
{
class TCustomForm;
} // namespace Forms

namespace BTL
{

/// A thread that works while a modal form is shown, and closes that when it is done.
///
///     class TReading : public BTL::TActionThreadWithForm
///     {
///     public:
///         explicit TReading(TForm* form) : TActionThreadWithForm(form, false, false, false)
///         {
///             AfterConstruction();
///         }
///         ~TReading() override { EndThread(); }
///
///     protected:
///         void Execute() override { Read(); CloseForm(mrOk); }
///     };
///     TReading reading(waitForm);
///     if (waitForm->ShowModal() == mrOk) { ... }
class TRS8_BTL_API TActionThreadWithForm : public TActionThread
{
    TRS8_BTL_CLASS(TActionThreadWithForm, TActionThread)

public:
    /// Without a form of its own; else as of `TActionThread`.
    TActionThreadWithForm(bool createSuspended, bool synchronized, bool processMessages);
    /// With a form, which may be null and may be destroyed at any time. To be made in the main thread.
    TActionThreadWithForm(Forms::TCustomForm* form, bool createSuspended, bool synchronized,
                          bool processMessages);
    ~TActionThreadWithForm() override;

    /// Sets the `ModalResult` of the thread's own form, in the main thread, which ends a `ShowModal` that
    /// runs there; waits for that. Nothing happens if there is no form, or none any more.
    void CloseForm(int modalResult);
    /// As for the own form, but of any other; one that goes before the main thread comes to it is left alone.
    /// Null does nothing.
    void CloseForm(Forms::TCustomForm* form, int modalResult);

private:
    /// Of the main thread alone; null without a form.
    System::GOwner<Classes::TComponentLink> mOwnForm;
};

} // namespace BTL

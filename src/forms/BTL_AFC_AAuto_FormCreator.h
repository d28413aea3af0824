// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/forms/Forms_Application.h"

namespace Classes
{
class TComponentLink;
} // namespace Classes

namespace Forms
{
class TForm;
} // namespace Forms

namespace BTL
{

/// Makes a form when it is needed for the first time, and holds it. A variable of the caller's, which must
/// outlive the creator, points to the form; it is cleared when the form goes, whoever destroys it. Mostly
/// both are global, by `GAuto_FormCreator`. Of the main thread.
class TRS8_BTL_API AAuto_FormCreator
{
public:
    AAuto_FormCreator(Classes::TComponent*& form, bool showSplash, bool owned);
    AAuto_FormCreator(const AAuto_FormCreator&) = delete;
    AAuto_FormCreator& operator=(const AAuto_FormCreator&) = delete;
    /// Destroys the form if the creator owns it.
    virtual ~AAuto_FormCreator();

    /// Makes the form unless it is there, with the hourglass and, if the creator was made so, a splash that
    /// tells the user to wait. Where the program has no main form yet, the creator owns the form from then
    /// on. An internal fault while `getCanCreate` is off; the form is made if the user lets that pass.
    void CreateForm() { CreateForm(mShowSplash); }
    /// As `CreateForm`, with or without the splash, whatever the creator says.
    void CreateForm(bool showSplash);
    /// Makes the form unless it is there, and shows it modally in place of `over`, which is hidden meanwhile
    /// and may be null. Gives its result; 0 if it is no `Forms::TForm`.
    int ShowModal(Forms::TForm* over);
    /// Destroys the form, if it is there.
    void Free();

    /// Whether forms may be made; on at first.
    bool getCanCreate() const noexcept { return mCanCreate; }
    void setCanCreate(bool isAllowed) noexcept { mCanCreate = isAllowed; }
    /// Whether the form goes with the creator.
    bool getOwned() const noexcept { return mOwned; }
    /// Whether the user is told to wait while the form is made.
    bool getShowSplash() const noexcept { return mShowSplash; }

protected:
    /// The caller's variable, of whatever class of forms it is.
    class CVariable
    {
    public:
        template <class T>
        explicit CVariable(T*& form)
            : mPlace(&form),
              mGet([](void* place) -> Classes::TComponent* { return *static_cast<T**>(place); }),
              mClear([](void* place) { *static_cast<T**>(place) = nullptr; })
        {
        }

        /// Null without a form.
        Classes::TComponent* Get() const { return mGet(mPlace); }
        /// Sets it to null.
        void Clear() const { mClear(mPlace); }

    private:
        void* mPlace;
        Classes::TComponent* (*mGet)(void* place);
        void (*mClear)(void* place);
    };

    AAuto_FormCreator(const CVariable& form, bool showSplash, bool owned);

    /// Makes the form and lets the caller's variable point to it: without an owner if `owned`, since the
    /// creator destroys it then.
    virtual void DoCreateForm(bool owned) = 0;

private:
    void Watch();

    CVariable mForm;
    bool mShowSplash;
    bool mOwned;
    bool mCanCreate = true;
    /// Hears of the end of the form.
    System::GOwner<Classes::TComponentLink> mLink;
};

} // namespace BTL

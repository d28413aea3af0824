// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Contnrs_ObjectList.h"

namespace Classes
{
class TComponent;
} // namespace Classes

namespace Contnrs
{

/// A list of components, which lets go of those that are destroyed elsewhere, and else is as `TObjectList`.
///
///     Contnrs::TComponentList cells(false);                       // a form owns them
///     cells.Add(cell);
///     delete cell;                                                // the list is empty
class TRS8_BTL_API TComponentList : public TObjectList
{
    TRS8_BTL_CLASS(TComponentList, TObjectList)

public:
    explicit TComponentList(bool ownsObjects = true);
    ~TComponentList() override;

    // As those of `TList`.

    Classes::TComponent* getItems(int index) const { return ToComponent(TObjectList::getItems(index)); }
    void setItems(int index, Classes::TComponent* component);
    Classes::TComponent* First() const { return getItems(0); }
    Classes::TComponent* Last() const { return getItems(getCount() - 1); }
    int Add(Classes::TComponent* component);
    void Insert(int index, Classes::TComponent* component);
    int Remove(Classes::TComponent* component);
    Classes::TComponent* Extract(Classes::TComponent* component);
    int IndexOf(const Classes::TComponent* component) const noexcept;

protected:
    void Notify(void* item, Classes::TListNotification action) override;

private:
    class CNexus;

    static Classes::TComponent* ToComponent(System::TObject* object) noexcept;

    /// Hears of the end of the components.
    System::GOwner<CNexus> mNexus;
};

} // namespace Contnrs

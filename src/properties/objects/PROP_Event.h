// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Method.h"

#include <vector>

namespace Classes
{
class TComponent;
} // namespace Classes

namespace Typinfo
{
class TPropInfo;
} // namespace Typinfo

namespace PROP
{

// The methods that events of components are bound to. What is told here of an event holds for each published
// property of that kind that can be read and written. What a setter raises passes, where nothing else is
// said. The components must still be there whenever an operation goes back to them.
//
//     {
//         const PROP::CClearEvents quiet(form);                    // no handler hears of it
//         Fill(form);
//     }                                                            // all handlers are bound again

/// An event of a component, with the method that it was bound to.
class TRS8_BTL_API CEvent
{
public:
    /// No event; its operations do nothing.
    CEvent() = default;
    /// The event with its present method. Null for either counts as no event.
    CEvent(Classes::TComponent* component, Typinfo::TPropInfo* propInfo);

    Classes::TComponent* getComponent() const noexcept { return mComponent; }
    Typinfo::TPropInfo* getPropInfo() const noexcept { return mPropInfo; }
    const System::TMethod& getMethod() const noexcept { return mMethod; }

    /// Binds the component's event to the method again.
    void SetMethodProp() const;
    /// Binds that event of another component to the method; nothing happens if it has no such event, or is
    /// null.
    void SetMethodProp(Classes::TComponent* component) const;
    /// Binds the component's event to no method.
    void ClearMethodProp() const;

private:
    Classes::TComponent* mComponent = nullptr;
    Typinfo::TPropInfo* mPropInfo = nullptr;
    System::TMethod mMethod;
};

/// The events of a component and of all that it owns, level by level, those without a method among them.
class TRS8_BTL_API CEvents
{
public:
    using const_iterator = std::vector<CEvent>::const_iterator;

    CEvents() = default;
    /// As `SetEvents`.
    explicit CEvents(Classes::TComponent* component);

    const_iterator begin() const noexcept { return mEvents.begin(); }
    const_iterator end() const noexcept { return mEvents.end(); }
    int size() const noexcept { return static_cast<int>(mEvents.size()); }
    [[nodiscard]] bool empty() const noexcept { return mEvents.empty(); }

    /// Forgets all; no component is touched.
    void Clear() noexcept { mEvents.clear(); }
    /// Takes the present methods in place of all that was there; null has none.
    void SetEvents(Classes::TComponent* component);
    /// Binds each event to its method again.
    void SetMethodProp() const;
    /// Binds all of these events, where it has them, of the one component.
    void SetMethodProp(Classes::TComponent* component) const;
    /// Binds each event to no method.
    void ClearMethodProp() const;

private:
    std::vector<CEvent> mEvents;
};

/// Keeps the events of a component and of all that it owns without methods for a scope. The components must
/// outlive it.
class TRS8_BTL_API CClearEvents : public CEvents
{
public:
    /// If a setter raises, the events that were cleared before it are bound again.
    explicit CClearEvents(Classes::TComponent* component);
    CClearEvents(const CClearEvents&) = delete;
    CClearEvents& operator=(const CClearEvents&) = delete;
    /// Binds all again; what a setter raises is lost, and the others are bound all the same.
    ~CClearEvents();
};

/// Binds all events of the component to no method, with `recursive` those of all that it owns too, level by
/// level. Null has none.
TRS8_BTL_API void ClearEvents(Classes::TComponent* component, bool recursive);
/// Reads the events of the second component and then those of the first one, and changes neither: no event is
/// bound to anything. To bind events as another component has them, take `CEvents::SetMethodProp`.
TRS8_BTL_API void CopyEvents(Classes::TComponent* first, Classes::TComponent* second);

} // namespace PROP

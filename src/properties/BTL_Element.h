// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <map>
#include <memory>
#include <vector>

namespace BTL
{

/// An object of an application's own kind that a vector or map below keeps.
///
///     class CScale : public BTL::AElement { ... };
///     BTL::CElementMap common(nullptr);
///     common.AddElement(u"y", new CScale);
///     BTL::CElementMap own(&common);                              // asks `common` for what it lacks
///     auto* const scale = dynamic_cast<CScale*>(own[u"y"]);
class TRS8_BTL_API AElement
{
public:
    AElement() = default;
    AElement(const AElement&) = default;
    AElement& operator=(const AElement&) = default;
    virtual ~AElement() = 0;
};

/// Elements by index. It owns them.
class TRS8_BTL_API CElementVector
{
public:
    CElementVector();
    CElementVector(const CElementVector&) = delete;
    CElementVector& operator=(const CElementVector&) = delete;
    /// Destroys the elements in order.
    ~CElementVector();

    /// Appends `element`, which comes from `new`.
    void AddElement(AElement* element);
    /// An index out of range is an internal fault; null if the user lets it pass.
    AElement* operator[](int i) const;
    int GetCount() const noexcept { return static_cast<int>(mElements.size()); }

private:
    std::vector<std::unique_ptr<AElement>> mElements;
};

/// Elements by name, upper and lower case distinct, with a map behind it that is asked for what it lacks. It
/// owns its own elements.
class TRS8_BTL_API CElementMap
{
public:
    /// `parent` may be null; it must outlive this map and not lead back to it.
    explicit CElementMap(CElementMap* parent);
    CElementMap(const CElementMap&) = delete;
    CElementMap& operator=(const CElementMap&) = delete;
    ~CElementMap();

    /// Takes `element`, which comes from `new`, over. An empty name, a name that this map has already, and
    /// null are internal faults; if the user lets one pass, the element stays the caller's.
    void AddElement(const System::UnicodeString& name, AElement* element);
    /// The element of this map or of the nearest parent that has the name; null if none has it.
    AElement* operator[](const System::UnicodeString& name) const;

private:
    CElementMap* mParent;
    std::map<System::UnicodeString, std::unique_ptr<AElement>> mElements;
};

} // namespace BTL

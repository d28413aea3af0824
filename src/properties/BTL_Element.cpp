// SPDX-License-Identifier: MIT
#include "properties/BTL_Element.h"

#include "foundation/UTL_ASRT_Assert.h"

namespace BTL
{

namespace
{

constexpr UTL::CFaultPlace NoSuchElement{"BTL_Element", 41};
constexpr UTL::CFaultPlace EmptyName{"BTL_Element", 53};
constexpr UTL::CFaultPlace NameIsTaken{"BTL_Element", 53};
constexpr UTL::CFaultPlace AddsNoElement{"BTL_Element", 54};

/// `condition`, or an internal fault at `place`.
bool Check(bool condition, const UTL::CFaultPlace& place)
{
    if (!condition) {
        UTL::THROW_XAssert(place);
    }
    return condition;
}

} // namespace

AElement::~AElement() = default;

CElementVector::CElementVector() = default;

CElementVector::~CElementVector()
{
    for (auto& element : mElements) {
        element.reset();
    }
}

void CElementVector::AddElement(AElement* element)
{
    mElements.push_back(std::unique_ptr<AElement>(element));
}

AElement* CElementVector::operator[](int i) const
{
    if (!Check(i >= 0 && i < GetCount(), NoSuchElement)) {
        return nullptr;
    }
    return mElements[static_cast<std::size_t>(i)].get();
}

CElementMap::CElementMap(CElementMap* parent) : mParent(parent) {}

CElementMap::~CElementMap() = default;

void CElementMap::AddElement(const System::UnicodeString& name, AElement* element)
{
    if (Check(!name.IsEmpty(), EmptyName) && Check(!mElements.contains(name), NameIsTaken) &&
        Check(element != nullptr, AddsNoElement)) {
        mElements[name].reset(element);
    }
}

AElement* CElementMap::operator[](const System::UnicodeString& name) const
{
    for (const CElementMap* map = this; map != nullptr; map = map->mParent) {
        if (const auto found = map->mElements.find(name); found != map->mElements.end()) {
            return found->second.get();
        }
    }
    return nullptr;
}

} // namespace BTL

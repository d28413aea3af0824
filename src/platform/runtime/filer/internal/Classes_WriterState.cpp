// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_WriterState.h"

namespace Classes
{

using System::Int64;

void CAncestors::Add(TComponent& component)
{
    mItems.push_back(&component);
    mByName.emplace(component.getName().LowerCase(), &component);
}

TComponent* CAncestors::Find(const TComponent& component) const
{
    if (mItems.empty() || component.getName().IsEmpty()) {
        return nullptr;
    }
    const auto found = mByName.find(component.getName().LowerCase());
    const bool isIt = found != mByName.end() && found->second->ClassType() == component.ClassType();
    return isIt ? found->second : nullptr;
}

std::optional<Int64> CAncestors::NextPlace(const TComponent* ancestor)
{
    // Behind the last of the ancestor's, all come in their order by themselves.
    if (mPos >= mItems.size()) {
        return {};
    }
    const bool isInPlace = ancestor != nullptr && mItems[mPos] == ancestor;
    mPos += ancestor == nullptr ? 0 : 1;
    const Int64 place = mPlace++;
    return isInPlace ? std::nullopt : std::optional(place);
}

void TWriter::CState::Flush()
{
    const std::string& bytes = out.getBytes();
    stream.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
    flushed += static_cast<Int64>(bytes.size());
    out.Clear();
}

void TWriter::CState::FlushIfFull()
{
    if (!isInForm && out.Size() >= limit) {
        Flush();
    }
}

} // namespace Classes

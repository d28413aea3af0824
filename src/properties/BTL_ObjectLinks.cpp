// SPDX-License-Identifier: MIT
#include "properties/BTL_ObjectLinks.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <algorithm>
#include <utility>

namespace BTL
{

namespace
{

constexpr UTL::CFaultPlace AddsNoLink{"BTL_ObjectLinks", 38};
constexpr UTL::CFaultPlace RemovesNoLink{"BTL_ObjectLinks", 50};

/// Whether there is a link; none is an internal fault.
bool CheckLink(const AObjectLink* link, const UTL::CFaultPlace& place)
{
    if (link == nullptr) {
        UTL::THROW_XAssert(place);
    }
    return link != nullptr;
}

} // namespace

ANotifyMessage::~ANotifyMessage() = default;

CObjectLinks::CObjectLinks() : mLinks(std::make_shared<TLinks>()) {}

CObjectLinks::~CObjectLinks()
{
    for (AObjectLink* const link : *mLinks) {
        link->mLinks = nullptr;
    }
    mLinks->clear();
}

void CObjectLinks::Add(AObjectLink* link)
{
    if (!CheckLink(link, AddsNoLink) || link->mLinks == this) {
        return;
    }
    mLinks->insert(link);
    mRound.reset();
    if (link->mLinks != nullptr) {
        link->mLinks->Remove(link);
    }
    link->mLinks = this;
}

void CObjectLinks::Remove(AObjectLink* link)
{
    if (CheckLink(link, RemovesNoLink) && mLinks->erase(link) != 0) {
        link->mLinks = nullptr;
        mRound.reset();
    }
}

/// Calls for each link that is there now and still is when its turn comes.
template <class Call>
void CObjectLinks::ForEach(Call call)
{
    if (!mEnabled) {
        return;
    }
    if (mRound == nullptr) {
        TRound links(mLinks->begin(), mLinks->end());
        std::ranges::sort(links);
        mRound = std::make_shared<const TRound>(std::move(links));
    }
    const std::shared_ptr<const TLinks> links = mLinks;
    const std::shared_ptr<const TRound> round = mRound;
    for (AObjectLink* const link : *round) {
        if (links->contains(link)) {
            call(*link);
        }
    }
}

void CObjectLinks::Notify(ANotifyMessage* message)
{
    ForEach([message](const AObjectLink& link) {
        if (link.mOnNotify) {
            link.mOnNotify(message);
        }
    });
}

void CObjectLinks::Changed(void* data)
{
    ForEach([data](const AObjectLink& link) {
        if (link.mOnChanged) {
            link.mOnChanged(data);
        }
    });
}

AObjectLink::AObjectLink() = default;

AObjectLink::~AObjectLink()
{
    Subscribe(nullptr);
}

void AObjectLink::Subscribe(CObjectLinks* links)
{
    if (mLinks != nullptr) {
        mLinks->Remove(this);
    }
    if (links != nullptr) {
        links->Add(this);
    }
}

} // namespace BTL

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Closure.h"

#include <memory>
#include <unordered_set>
#include <vector>

namespace BTL
{

class AObjectLink;

/// What is said to subscribers; the kinds of messages are the application's.
class TRS8_BTL_API ANotifyMessage
{
public:
    ANotifyMessage() = default;
    ANotifyMessage(const ANotifyMessage&) = default;
    ANotifyMessage& operator=(const ANotifyMessage&) = default;
    virtual ~ANotifyMessage() = 0;
};

/// The subscribers of an object. It doesn't own them: a subscriber and the list may go in any order. While
/// they are told something, links may come and go, and the list itself may be destroyed: who has left by then
/// is passed over, who comes is told from the next time on.
///
///     BTL::CObjectLinks links;
///     BTL::AObjectLink link;                                      // leaves the list when it goes
///     link.setOnChanged([](void*) { Redraw(); });
///     link.Subscribe(&links);
///     links.Changed(nullptr);
class TRS8_BTL_API CObjectLinks
{
public:
    CObjectLinks();
    CObjectLinks(const CObjectLinks&) = delete;
    CObjectLinks& operator=(const CObjectLinks&) = delete;
    /// The subscribers stay valid and are subscribed to nothing.
    ~CObjectLinks();

    /// The link leaves the list that it was in. Null is an internal fault, and ignored if the user lets it
    /// pass.
    void Add(AObjectLink* link);
    /// A link that isn't in the list is ignored. Null is an internal fault, and ignored if the user lets it
    /// pass.
    void Remove(AObjectLink* link);

    /// Calls each link's `OnNotify`, in the order of their addresses. What one of them throws ends the round.
    void Notify(ANotifyMessage* message);
    /// Calls each link's `OnChanged`, in the order of their addresses; else as `Notify`.
    void Changed(void* data);

protected:
    /// Whether subscribers are told anything; true at first.
    bool getEnabled() const noexcept { return mEnabled; }
    void setEnabled(bool enabled) noexcept { mEnabled = enabled; }

private:
    using TLinks = std::unordered_set<AObjectLink*>;
    using TRound = std::vector<AObjectLink*>;

    template <class Call>
    void ForEach(Call call);

    /// Shared with a round under way, which may outlive the list.
    std::shared_ptr<TLinks> mLinks;
    /// The links in their order; null since a link came or went.
    std::shared_ptr<const TRound> mRound;
    bool mEnabled = true;
};

/// A subscription to one `CObjectLinks` at a time, which ends with either of the two.
class TRS8_BTL_API AObjectLink
{
public:
    /// What a link calls with a message, and when what it links to has changed.
    using TOnNotify = System::TClosure<void(ANotifyMessage*)>;
    using TOnChanged = System::TClosure<void(void*)>;

    AObjectLink();
    AObjectLink(const AObjectLink&) = delete;
    AObjectLink& operator=(const AObjectLink&) = delete;
    virtual ~AObjectLink();

    /// Leaves the list that it is in; null subscribes to nothing.
    void Subscribe(CObjectLinks* links);
    /// Null if it is subscribed to nothing.
    CObjectLinks* getLinks() const noexcept { return mLinks; }

    const TOnNotify& getOnNotify() const noexcept { return mOnNotify; }
    void setOnNotify(const TOnNotify& event) { mOnNotify = event; }
    const TOnChanged& getOnChanged() const noexcept { return mOnChanged; }
    void setOnChanged(const TOnChanged& event) { mOnChanged = event; }

private:
    friend class CObjectLinks;

    CObjectLinks* mLinks = nullptr;
    TOnNotify mOnNotify;
    TOnChanged mOnChanged;
};

} // namespace BTL

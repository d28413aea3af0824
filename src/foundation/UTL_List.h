// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <cstddef>
#include <iterator>
#include <type_traits>

namespace UTL
{

class AList;

/// A node of an `AList`. It stands in one list at most, and leaves it when it is destroyed.
class TRS8_BTL_API AListNode
{
public:
    /// In no list.
    AListNode() noexcept = default;
    /// Sets the links as given; the neighbours aren't told.
    AListNode(AList* list, AListNode* next, AListNode* previous) noexcept;
    /// A copy is in no list.
    AListNode(const AListNode&) noexcept {}
    /// Changes nothing: the place in a list belongs to the node, not to its value.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    AListNode& operator=(const AListNode&) noexcept { return *this; }
    virtual ~AListNode();

    /// A new copy, which is the caller's; null from the base.
    virtual AListNode* Clone() const;

    /// Leaves the list; does nothing in no list.
    void Remove();

    /// Null in no list.
    AList* getList() const noexcept { return mList; }
    /// The last node's next and the first node's previous are the list itself.
    AListNode* getNext() const noexcept { return mNext; }
    AListNode* getPrevious() const noexcept { return mPrevious; }

private:
    friend class AList;
    friend class CListEndNode;

    AList* mList = nullptr;
    AListNode* mNext = nullptr;
    AListNode* mPrevious = nullptr;
};

/// The node at which a list begins and ends.
class TRS8_BTL_API CListEndNode : public AListNode
{
public:
    explicit CListEndNode(AList* list) noexcept;
    CListEndNode(const CListEndNode&) = delete;
    CListEndNode& operator=(const CListEndNode&) = delete;
    ~CListEndNode() override;

    /// Always null.
    AListNode* Clone() const override;
};

/// Steps over the nodes of a list; it is no more than a pointer to one. A node may leave the list once the
/// iterator is past it.
template <class Node>
class GListIterator
{
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = AListNode;
    using difference_type = std::ptrdiff_t;
    using pointer = Node*;
    using reference = Node&;

    GListIterator() noexcept = default;
    explicit GListIterator(Node* node) noexcept : mNode(node) {}
    /// From one that may change the node.
    template <class Other>
    requires(!std::is_same_v<Node, Other> && std::is_convertible_v<Other*, Node*>)
        GListIterator(const GListIterator<Other>& other)
    noexcept : mNode(other.getNode()) {}

    Node* getNode() const noexcept { return mNode; }
    Node& operator*() const noexcept { return *mNode; }
    Node* operator->() const noexcept { return mNode; }

    GListIterator& operator++() noexcept
    {
        mNode = mNode->getNext();
        return *this;
    }
    GListIterator operator++(int) noexcept
    {
        const GListIterator former = *this;
        ++*this;
        return former;
    }
    GListIterator& operator--() noexcept
    {
        mNode = mNode->getPrevious();
        return *this;
    }
    GListIterator operator--(int) noexcept
    {
        const GListIterator former = *this;
        --*this;
        return former;
    }
    friend bool operator==(const GListIterator&, const GListIterator&) noexcept = default;

private:
    Node* mNode = nullptr;
};

/// A doubly linked list of the nodes themselves, which it owns: they must come from `new`. A call that
/// doesn't fit the state of the list or node is an internal fault; nothing happens if the user lets it pass.
///
///     UTL::AList list;
///     list.PushBack(new CChannel(u"U"));                  // a class of one's own on AListNode
///     for (UTL::AListNode& node : list) {
///         dynamic_cast<CChannel&>(node).Measure();
///     }
class TRS8_BTL_API AList : public CListEndNode
{
public:
    using iterator = GListIterator<AListNode>;
    using const_iterator = GListIterator<const AListNode>;

    AList() noexcept;
    /// Clones the nodes. One that gives no clone is an internal fault, and is left out if that passes.
    AList(const AList& other);
    AList& operator=(const AList& other);
    ~AList() override;

    int getCount() const noexcept { return mCount; }
    std::size_t size() const noexcept { return static_cast<std::size_t>(mCount); }
    [[nodiscard]] bool empty() const noexcept { return mCount == 0; }

    iterator begin() noexcept { return iterator(getNext()); }
    const_iterator begin() const noexcept { return const_iterator(getNext()); }
    /// On the list itself.
    iterator end() noexcept { return iterator(this); }
    const_iterator end() const noexcept { return const_iterator(this); }

    /// Takes the node over behind the last one.
    void PushBack(AListNode* node);
    /// Takes the node over directly before `position`, which may be the list itself. The result is `node`.
    AListNode* Insert(AListNode* position, AListNode* node);
    void DoInsert(AListNode* position, AListNode* node);

    /// The node leaves the list and is the caller's.
    void Remove(AListNode* node);
    /// Destroys the node and gives the one that followed it; null if there was a fault.
    AListNode* Delete(AListNode* node);
    void DoDelete(AListNode* node);
    /// Destroys the nodes from `first` up to, but without, `last`, which is the result. Where `last` isn't
    /// behind `first`, the end of the list stops it as an internal fault.
    AListNode* Delete(AListNode* first, AListNode* last);
    void clear() noexcept;

private:
    friend class AListNode;

    void CloneNodesOf(const AList& other);
    bool CanRemove(const AListNode* node) const;
    bool Take(AListNode* node);
    void Unlink(AListNode& node) noexcept;

    int mCount = 0;
};

} // namespace UTL

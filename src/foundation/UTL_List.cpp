// SPDX-License-Identifier: MIT
#include "foundation/UTL_List.h"

#include "foundation/UTL_ASRT_Assert.h"

namespace UTL
{

namespace
{

constexpr const char* Source = "UTL_List";
constexpr CFaultPlace RemovesFromEmptyList{Source, 205};
constexpr CFaultPlace RemovesEnd{Source, 206};
constexpr CFaultPlace RemovesBrokenNode{Source, 208};
constexpr CFaultPlace RemovesForeignNode{Source, 209};
constexpr CFaultPlace EmptyListKeepsLinks{Source, 219};
constexpr CFaultPlace NoSuchPosition{Source, 230};
constexpr CFaultPlace InsertsLinkedNode{Source, 231};
constexpr CFaultPlace InsertsOwnedNode{Source, 232};
constexpr CFaultPlace DeletesUnlinkedNode{Source, 246};

/// `condition`, or an internal fault of this unit.
bool Check(bool condition, const CFaultPlace& place)
{
    if (!condition) {
        THROW_XAssert(place);
    }
    return condition;
}

} // namespace

AListNode::AListNode(AList* list, AListNode* next, AListNode* previous) noexcept
    : mList(list), mNext(next), mPrevious(previous)
{
}

AListNode::~AListNode()
{
    if (mList != nullptr) {
        mList->Unlink(*this);
    }
}

AListNode* AListNode::Clone() const
{
    return nullptr;
}

void AListNode::Remove()
{
    if (mList != nullptr) {
        mList->Remove(this);
    }
}

CListEndNode::CListEndNode(AList* list) noexcept : AListNode(list, this, this) {}

CListEndNode::~CListEndNode()
{
    mList = nullptr;
}

AListNode* CListEndNode::Clone() const
{
    return nullptr;
}

AList::AList() noexcept : CListEndNode(this) {}

AList::AList(const AList& other) : AList()
{
    CloneNodesOf(other);
}

AList& AList::operator=(const AList& other)
{
    if (this != &other) {
        clear();
        CloneNodesOf(other);
    }
    return *this;
}

AList::~AList()
{
    clear();
}

void AList::CloneNodesOf(const AList& other)
{
    for (const AListNode& node : other) {
        PushBack(node.Clone());
    }
}

void AList::PushBack(AListNode* node)
{
    DoInsert(this, node);
}

AListNode* AList::Insert(AListNode* position, AListNode* node)
{
    DoInsert(position, node);
    return node;
}

void AList::DoInsert(AListNode* position, AListNode* node)
{
    const bool isPlace = position != nullptr && position->mNext != nullptr &&
                         position->mPrevious != nullptr && position->mList == this;
    if (!Check(isPlace, NoSuchPosition) ||
        !Check(node != nullptr && node->mNext == nullptr && node->mPrevious == nullptr, InsertsLinkedNode) ||
        !Check(node->mList == nullptr, InsertsOwnedNode)) {
        return;
    }
    node->mList = this;
    node->mNext = position;
    node->mPrevious = position->mPrevious;
    node->mPrevious->mNext = node;
    position->mPrevious = node;
    ++mCount;
}

bool AList::CanRemove(const AListNode* node) const
{
    return Check(mCount != 0, RemovesFromEmptyList) && Check(node != this, RemovesEnd) &&
           Check(node != nullptr && (node->mNext == nullptr) == (node->mPrevious == nullptr),
                 RemovesBrokenNode) &&
           Check(node->mList == this, RemovesForeignNode);
}

bool AList::Take(AListNode* node)
{
    if (!CanRemove(node)) {
        return false;
    }
    Unlink(*node);
    Check(mCount != 0 || (mNext == this && mPrevious == this), EmptyListKeepsLinks);
    return true;
}

/// Only links that fit are touched, so that a node made with links of its own harms no list.
void AList::Unlink(AListNode& node) noexcept
{
    const bool isLinked = node.mNext != nullptr && node.mPrevious != nullptr && node.mNext != &node;
    if (isLinked && node.mNext->mPrevious == &node && node.mPrevious->mNext == &node) {
        node.mPrevious->mNext = node.mNext;
        node.mNext->mPrevious = node.mPrevious;
        --mCount;
    }
    node.mList = nullptr;
    node.mNext = nullptr;
    node.mPrevious = nullptr;
}

void AList::Remove(AListNode* node)
{
    Take(node);
}

AListNode* AList::Delete(AListNode* node)
{
    if (!Check(node != nullptr && node->mNext != nullptr, DeletesUnlinkedNode)) {
        return nullptr;
    }
    AListNode* const next = node->mNext;
    if (!Take(node)) {
        return nullptr;
    }
    delete node;
    return next;
}

void AList::DoDelete(AListNode* node)
{
    if (Take(node)) {
        delete node;
    }
}

AListNode* AList::Delete(AListNode* first, AListNode* last)
{
    while (first != last) {
        first = Delete(first);
        if (first == nullptr) {
            break;
        }
    }
    return last;
}

void AList::clear() noexcept
{
    while (mNext != this) {
        AListNode* const node = mNext;
        Unlink(*node);
        delete node;
    }
}

} // namespace UTL

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/typinfo/System_Closure.h"

#include <unordered_map>
#include <vector>

namespace Classes
{

class TComponent;

/// What a component is doing, or is part of. The component itself sets `csDestroying`, from the begin of its
/// end, and `csFreeNotification`, once it tells others of that end or is told. `csDesigning`, `csAncestor`,
/// `csInline` and `csLoading` are set by the operations of these names, for those who edit and read
/// components. A `TReader` sets `csLoading` from a component's begin until `Loaded`, `csReading` while it
/// reads its properties, and `csFixups` while a reference of it waits for a form that isn't there yet; a
/// `TWriter` sets `csWriting`. `csUpdating` stands between `Updating` and `Updated`; nothing here sets
/// `csDesignInstance`.
enum TComponentStateFlag
{
    csLoading,
    csReading,
    csWriting,
    csDestroying,
    csDesigning,
    csAncestor,
    csUpdating,
    csFixups,
    csFreeNotification,
    csInline,
    csDesignInstance
};

class TComponentWatch;

/// All that holds for a component at a time.
using TComponentState = System::Set<TComponentStateFlag, csLoading, csDesignInstance>;

/// What `TComponent::GetChildren` calls for each child.
using TGetChildProc = System::TClosure<void(TComponent*)>;

/// An object with a name that may own other components and destroys them, the last one first, when it goes
/// itself. Components are made by `new`; one without an owner belongs to its maker. Names are unique within
/// an owner, case aside.
///
///     TComponent bench;
///     auto* const gauge = new TComponent(&bench);                 // the bench destroys it
///     gauge->setName(u"Gauge1");
///     bench.FindComponent(u"gauge1") == gauge;                    // true
class TRS8_BTL_API TComponent : public TPersistent
{
    TRS8_BTL_CLASS(TComponent, TPersistent)

public:
    /// `owner` may be null.
    explicit TComponent(TComponent* owner = nullptr);
    ~TComponent() override;

    const System::UnicodeString& getName() const noexcept { return mName; }
    void setName(const System::UnicodeString& name) { SetName(name); }
    /// Free for the use of the program.
    System::Int64 getTag() const noexcept { return mTag; }
    void setTag(System::Int64 tag) noexcept { mTag = tag; }

    TComponent* getOwner() const noexcept { return mOwner; }
    TPersistent* GetOwner() const override { return mOwner; }
    /// The bare name: a component's path begins with itself.
    System::UnicodeString GetNamePath() const override;

    /// How many components this one owns, those of its own components not counted.
    int GetComponentCount() const noexcept { return static_cast<int>(mComponents.size()); }
    /// In the order of their insertion; `EListError` for an index out of range.
    TComponent* GetComponent(int index) const;
    /// The place among the owner's components; -1 without an owner.
    int GetComponentIndex() const;
    /// Moves the component among its owner's components; the index is held within their count.
    void SetComponentIndex(int index);
    /// The owned component of that name, case aside; null if there is none, or for an empty name.
    TComponent* FindComponent(const System::UnicodeString& name) const;

    /// Takes ownership of `component`, which leaves its former owner. `EComponentError` if its name is taken
    /// here, or if `component` is this component or one of its owners. Null changes nothing.
    void InsertComponent(TComponent* component);
    /// Gives up ownership of `component`; nothing happens if it isn't owned here.
    void RemoveComponent(TComponent* component);
    /// Destroys all owned components, the last one first.
    void DestroyComponents();

    /// `component` will tell this one, by `Notification`, when it is destroyed. Either may be destroyed
    /// first.
    void FreeNotification(TComponent* component);
    /// Neither tells the other one any more. The flag `csFreeNotification` stays.
    void RemoveFreeNotification(TComponent* component);

    const TComponentState& getComponentState() const noexcept { return mState; }
    /// `EComponentError` for a name that is no identifier, or that another component of the owner has. The
    /// empty name is allowed.
    virtual void SetName(const System::UnicodeString& name);
    /// Marks this component, and with `setChildren` what it owns, as edited rather than run, or not. What is
    /// inserted into a component so marked gets the mark too.
    void SetDesigning(bool value, bool setChildren = true);
    /// Marks this component and what it owns as inherited from an ancestor form, or not.
    void SetAncestor(bool value);
    /// Marks the component as a part that has a design of its own, or not.
    void SetInline(bool value) { SetState(csInline, value); }
    /// Sets or clears the flag that a reader raises while it reads the component.
    void SetLoading(bool value) { SetState(csLoading, value); }
    /// Marks this component and what it owns as being destroyed. Called by the destructor; a derived class
    /// whose own destructor must know calls it earlier.
    void Destroying();
    /// To be called when the component has been read completely. Clears `csLoading`.
    virtual void Loaded();

    /// Whether another component than the owner holds this one, as a panel its controls or a menu its items.
    virtual bool HasParent() const;
    /// That component; null if there is none.
    virtual TComponent* GetParentComponent() const;
    /// Where the component stands on a design's sheet if it isn't visible itself: left in the lower, top in
    /// the upper 16 bits. It is kept as the design's `Left` and `Top`.
    int getDesignInfo() const noexcept { return mDesignInfo; }
    void setDesignInfo(int designInfo) noexcept { mDesignInfo = designInfo; }

    /// Told of each component that comes or goes, among the owned ones or by `FreeNotification`. On
    /// `opRemove` the component may be in its destructor: only its address is of use. Passes the news to all
    /// owned components; of one that comes, not to those whose class ignores that, see
    /// `GClassBuilder::HearsInsertions`. The controls of this library do.
    virtual void Notification(TComponent* component, TOperation operation);

protected:
    /// Raises `EComponentError` if `component`, which may be null, can't change its name from `current` to
    /// `name` within this owner.
    virtual void ValidateRename(TComponent* component, const System::UnicodeString& current,
                                const System::UnicodeString& name);
    /// Sets the name without a test.
    void ChangeName(const System::UnicodeString& name);

    /// Reads the component's properties and then its children, by `TReader::ReadData`. A derived class may
    /// prepare itself and tidy up around its parent's.
    virtual void ReadState(TReader& reader);
    /// Writes them, by `TWriter::WriteData`.
    virtual void WriteState(TWriter& writer);
    /// Calls `proc` for each component that a writer is to write inside of this one, in their order: those
    /// that have it as their parent, and in `root`, the form itself, also those that it owns and that have
    /// no parent. By itself it has none.
    virtual void GetChildren(const TGetChildProc& proc, TComponent* root);
    /// Who owns the children that are read inside of this one; null, which is the usual, stands for the form.
    virtual TComponent* GetChildOwner();
    /// Whose children they are: this one's.
    virtual TComponent* GetChildParent();
    /// Moves `child` to the place `order` among the children. By itself it does nothing.
    virtual void SetChildOrder(TComponent* child, int order);
    /// Puts the component into `parent`, which may be null. By itself it does nothing.
    virtual void SetParentComponent(TComponent* parent);
    /// Raises if `component` may not be put into this one. By itself it asks the other by `ValidateInsert`.
    virtual void ValidateContainer(TComponent* component);
    /// Raises if this component may not be put into `container`.
    virtual void ValidateInsert(TComponent* container);
    /// Called before and after a reader changes a component that stands already, as of an inherited form.
    virtual void Updating();
    virtual void Updated();
    /// `Left` and `Top` of the design info.
    void DefineProperties(TFiler& filer) override;

private:
    friend class TComponentWatch;
    friend class TReader;
    friend class TWriter;
    friend class CLoading;

    void SetState(TComponentStateFlag flag, bool value);
    void EndWatches() noexcept;
    /// Tells `component` of what comes here, and this one of what comes to its owners, so that it passes it.
    void Listen(TComponent& component);
    bool NeedsInsertions() const;
    void TellOfInsertion(TComponent* component);
    void Attach(TComponent& component);
    void Detach(TComponent& component);
    void Link(TComponent& component);
    void Unlink(TComponent& component);
    /// Lets the owner's published field of the component's name point to it.
    void BindField();
    void UnbindField();
    void AssignField(TComponent* target);

    TComponent* mOwner = nullptr;
    System::UnicodeString mName;
    System::Int64 mTag = 0;
    int mDesignInfo = 0;
    /// A reader, or a reference that waits, knows this component and must hear of its end.
    bool mIsTracked = false;
    /// Is among the owner's listeners.
    bool mIsListener = false;
    TComponentState mState;
    std::vector<TComponent*> mComponents;
    /// Those of them that are told of each one that comes.
    std::vector<TComponent*> mListeners;
    /// By names in small letters.
    std::unordered_map<System::UnicodeString, TComponent*> mByName;
    std::vector<TComponent*> mFreeNotifies;
    /// Those who want to know of the end, the latest first.
    mutable TComponentWatch* mWatches = nullptr;
};

} // namespace Classes

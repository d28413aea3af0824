// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/base/numbers/System_Currency.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace Classes
{

/// Gives the code of a method of the root by its name, `address`, which is that of the root's class at
/// first. `error`, true at first where there is none, says that the method isn't there.
using TFindMethodEvent = System::TClosure<void(TReader* reader, const System::UnicodeString& methodName,
                                               System::TMethodAddress& address, bool& error)>;
/// May change the name that a component is to get.
using TSetNameEvent =
    System::TClosure<void(TReader* reader, TComponent* component, System::UnicodeString& name)>;
/// May change the name by which a component is referred to.
using TReferenceNameEvent = System::TClosure<void(TReader* reader, System::UnicodeString& name)>;
/// May give the component that is meant by an inherited one that isn't there.
using TAncestorNotFoundEvent =
    System::TClosure<void(TReader* reader, const System::UnicodeString& componentName,
                          System::TMetaClass* componentClass, TComponent*& component)>;
/// Told of what went wrong with one property or one component; `handled`, false at first, says that the
/// reader may pass over it.
using TReaderError =
    System::TClosure<void(TReader* reader, const System::UnicodeString& message, bool& handled)>;
/// May give the class of a name, in place of the one that was found, which may be null.
using TFindComponentClassEvent = System::TClosure<void(
    TReader* reader, const System::UnicodeString& className, System::TMetaClass*& componentClass)>;
/// May make the component, with the reader's owner; where it stays null the reader does.
using TCreateComponentEvent =
    System::TClosure<void(TReader* reader, System::TMetaClass* componentClass, TComponent*& component)>;

/// Reads components from the binary form that a `TWriter` or `ObjectTextToBinary` wrote.
///
///     TResourceStream stream(u"TMainForm");
///     TReader reader(&stream, 4096);
///     reader.ReadRootComponent(mainForm);
///
/// What can't be read raises `EReadError`, `EClassNotFound` for an unknown class and `EComponentError` for a
/// bad name; the message has the path of the component, the property, the class and the offset in bytes from
/// the begin of the form. That goes also for what a constructor, a setter or `Loaded` raises, but for
/// `Sysutils::EAbort`, which passes as it is. All components that were made up to then are destroyed.
class TRS8_BTL_API TReader : public TFiler
{
    TRS8_BTL_CLASS(TReader, TFiler)

public:
    /// Reads `stream`, which must live as long, from its position on, `bufSize` bytes or more at a time. A
    /// stream in memory is read where it is and mustn't change. `EStreamError` for null.
    explicit TReader(TStream* stream, int bufSize = 4096);
    /// Leaves the stream behind what was read.
    ~TReader() override;

    TFindMethodEvent OnFindMethod;
    TSetNameEvent OnSetName;
    TReferenceNameEvent OnReferenceName;
    TAncestorNotFoundEvent OnAncestorNotFound;
    TReaderError OnError;
    TFindComponentClassEvent OnFindComponentClass;
    TCreateComponentEvent OnCreateComponent;

    /// Reads a whole form into `root` and gives it; for null it makes a component of the class that the form
    /// names, which has no owner. A root that isn't being designed gets the form's name, with a number
    /// behind it if `FindGlobalComponent` has another one of that name. At the end the references are set,
    /// and `Loaded` is called for all that was read, the root first; where this happens while another form is
    /// read, that one does so.
    TComponent* ReadRootComponent(TComponent* root);
    /// Reads one component, into `component` if that isn't null, and gives it; null for one that `OnError`
    /// passed over. References are names within the root, which is set before by `setRoot`.
    TComponent* ReadComponent(TComponent* component);
    /// Reads what `TComponent::ReadState` is called for: properties and children.
    void ReadData(TComponent* instance);
    /// Reads one property, name and value.
    void ReadProperty(TPersistent* instance);
    /// Reads the items behind a `vaCollection`, in place of those that the collection has.
    void ReadCollection(TCollection* collection);

    void DefineProperty(const System::UnicodeString& name, const TReaderProc& read, const TWriterProc& write,
                        bool hasData) override;
    void DefineBinaryProperty(const System::UnicodeString& name, const TStreamProc& read,
                              const TStreamProc& write, bool hasData) override;
    void FlushBuffer() override;

    /// The owner of components that are made, and the parent that they get.
    TComponent* getOwner() const noexcept { return mOwner; }
    void setOwner(TComponent* owner) noexcept { mOwner = owner; }
    TComponent* getParent() const noexcept { return mParent; }
    void setParent(TComponent* parent) noexcept { mParent = parent; }
    /// The class whose form is read, where the root appears as one that this derives from; null at first. The
    /// root has the published properties of this class as well, see `TObject::SetClassType`.
    System::TMetaClass* getRootClass() const noexcept { return mRootClass; }
    void setRootClass(System::TMetaClass* type) noexcept { mRootClass = type; }
    /// The offset from where reading began, in bytes.
    System::Int64 getPosition() const;

    // Values, each with its code in front. One of another type raises `EReadError`.

    /// The code of the next value, which stays.
    TValueType NextValue();
    /// The code of the next value, which is behind it.
    TValueType ReadValue();
    bool ReadBoolean();
    /// A text of one unit.
    System::WideChar ReadChar();
    /// 32 bits; `ReadInt64` takes all integers.
    int ReadInteger();
    System::Int64 ReadInt64();
    /// Integers too.
    System::Extended ReadFloat();
    float ReadSingle();
    double ReadDouble();
    System::Currency ReadCurrency();
    System::TDateTime ReadDate();
    /// Text of any kind.
    System::UnicodeString ReadString();
    /// Also "True", "False", "nil" and "Null".
    System::UnicodeString ReadIdent();
    /// The bits of a set of this type.
    System::Int64 ReadSet(const Typinfo::TTypeInfo* type);
    /// All values but identifiers, sets and collections; a list is an array, bytes are an array of bytes.
    System::Variant ReadVariant();
    void ReadListBegin();
    /// Whether the list, the properties or the components at hand end here.
    bool EndOfList();
    void ReadListEnd();
    /// Goes behind a value of any kind.
    void SkipValue();

private:
    class CState;

    TComponent* FindRootInstance(TComponent* root, const System::UnicodeString& className,
                                 const System::UnicodeString& name);
    void ReadRootState(TComponent& root);
    void FixupReferences();
    TComponent* ReadInstance(TComponent* component);
    void ReadBody(TComponent& component, const TFilerFlags& flags);
    static void EndUpdate(TComponent& component) noexcept;
    void ReadProperties(TComponent& instance);
    void ReadChildren(TComponent& instance);
    TComponent* NeedInstance(TComponent* component, const TFilerFlags& flags,
                             const System::UnicodeString& className, const System::UnicodeString& name);
    TComponent* NeedInherited(const System::UnicodeString& className, const System::UnicodeString& name);
    TComponent* CreateComponent(const System::UnicodeString& className, const System::UnicodeString& name);
    System::TMetaClass* FindComponentClass(const System::UnicodeString& className);
    System::TMetaClass* LookUpClass(const System::UnicodeString& className);
    void SetComponentName(TComponent& component, System::UnicodeString name);
    void SkipComponentBody();
    const Typinfo::TPropInfo* FindProperty(const TPersistent& object,
                                           const System::UnicodeString& name) const;
    void ReadPropertyAt(TPersistent& instance, const System::UnicodeString& path);
    void ReadPropValue(TPersistent& instance, const Typinfo::TPropInfo& info);
    void ReadOrdinal(TPersistent& instance, const Typinfo::TPropInfo& info);
    void ReadFloatProp(TPersistent& instance, const Typinfo::TPropInfo& info);
    void ReadObjectProp(TPersistent& instance, const Typinfo::TPropInfo& info);
    void ReadMethodProp(TPersistent& instance, const Typinfo::TPropInfo& info);
    System::TMethodAddress FindMethod(const System::UnicodeString& name);
    void ReadItem(TCollection& collection);
    /// Whether `OnError` lets the reader pass over the fault that is being handled; raises it, with its
    /// place, if not.
    void PassOver(const std::exception& fault, System::Int64 offset);

    System::GOwner<CState> mState;
    TComponent* mOwner = nullptr;
    TComponent* mParent = nullptr;
    System::TMetaClass* mRootClass = nullptr;
    System::UnicodeString mPropName;
};

} // namespace Classes

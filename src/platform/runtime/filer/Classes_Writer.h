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

/// May give what a component is compared with, `ancestor`, and the form or frame that this is in; they are
/// what the writer found, null for a component that is written whole.
using TFindAncestorEvent =
    System::TClosure<void(TWriter* writer, TComponent* component, const System::UnicodeString& name,
                          TComponent*& ancestor, TComponent*& rootAncestor)>;
/// May give the name of a method, which is the one under which the root publishes it, and empty where it
/// doesn't; without a name it isn't written.
using TFindMethodNameEvent =
    System::TClosure<void(TWriter* writer, const System::TMethod& method, System::UnicodeString& methodName)>;

/// Writes components in the binary form that a `TReader` and `ObjectBinaryToText` read.
///
///     TMemoryStream stream;
///     TWriter writer(&stream, 4096);
///     writer.WriteDescendent(form, ancestor);             // what differs from `ancestor`; null writes all
///
/// Of the published properties that can be read and written, those are written whose description says that
/// they are stored and whose value differs: from that of the same component of the ancestor, or, where there
/// is none, from the default of the description, the empty text, the number 0 of a float, null. An ordinal
/// without a default is always written. Parts that are no components are written property by property,
/// collections whole, components by their names, and methods by the names that the root publishes them
/// under.
///
/// A component is written as an inherited one if the ancestor's children have one of its name and class;
/// nothing is written of it where nothing differs, not even its place. One that the ancestor alone has can't
/// be told of.
class TRS8_BTL_API TWriter : public TFiler
{
    TRS8_BTL_CLASS(TWriter, TFiler)

public:
    /// Writes to `stream`, which must live as long. `bufSize` tells at what size values that are written one
    /// by one go there; a form goes there at its end. `EStreamError` for null.
    explicit TWriter(TStream* stream, int bufSize = 4096);
    /// As `FlushBuffer`, but a failure is silent.
    ~TWriter() override;

    TFindAncestorEvent OnFindAncestor;
    TFindMethodNameEvent OnFindMethodName;

    /// Writes a whole form.
    void WriteRootComponent(TComponent* root) { WriteDescendent(root, nullptr); }
    /// Writes what makes `root` differ from `ancestor`, which may be null. `EWriteError`, or what a getter
    /// raises, leaves the stream as it was.
    void WriteDescendent(TComponent* root, TComponent* ancestor);
    /// Writes one component of the root, without what a form begins with.
    void WriteComponent(TComponent* component);
    /// Writes what `TComponent::WriteState` is called for: head, properties and children.
    void WriteData(TComponent* instance);
    /// Writes those properties of `instance` that differ from the ancestor's.
    void WriteProperties(TPersistent* instance);
    /// Writes a `vaCollection` and the items.
    void WriteCollection(TCollection* collection);

    void DefineProperty(const System::UnicodeString& name, const TReaderProc& read, const TWriterProc& write,
                        bool hasData) override;
    void DefineBinaryProperty(const System::UnicodeString& name, const TStreamProc& read,
                              const TStreamProc& write, bool hasData) override;
    /// `EWriteError` if the stream doesn't take all of it.
    void FlushBuffer() override;

    /// The form or frame that the ancestor at hand is in; null where there is none.
    TComponent* getRootAncestor() const noexcept { return mRootAncestor; }
    void setRootAncestor(TComponent* rootAncestor) noexcept { mRootAncestor = rootAncestor; }
    /// The count of bytes written up to now.
    System::Int64 getPosition() const;

    // Values, each with its code in front, in the shortest form that holds it.

    void WriteBoolean(bool value);
    void WriteChar(System::WideChar value);
    void WriteInteger(System::Int64 value);
    void WriteFloat(System::Extended value);
    void WriteSingle(float value);
    void WriteDouble(double value);
    void WriteCurrency(System::Currency value);
    void WriteDate(System::TDateTime value);
    void WriteString(const System::UnicodeString& value);
    /// `EWriteError` for what is no identifier, or several with points between, of at most 255 bytes.
    void WriteIdent(const System::UnicodeString& ident);
    /// The elements of these bits, by their names. `EWriteError` for one without a name.
    void WriteSet(const Typinfo::TTypeInfo* type, System::Int64 bits);
    /// What `TReader::ReadVariant` reads; `EWriteError` for an array of several dimensions.
    void WriteVariant(const System::Variant& value);
    void WriteListBegin();
    /// Ends a list, the properties or the components at hand.
    void WriteListEnd();

private:
    class CState;
    class CLevel;

    void WriteHead(TComponent& instance, bool isInherited);
    void WriteChildren(TComponent& instance);
    TComponent* FindAncestor(const TComponent& component) const;
    void WriteProperty(TPersistent& instance, const Typinfo::TPropInfo& info);
    void WritePropName(const System::UnicodeString& name);
    void WriteOrdinal(const TPersistent& instance, const Typinfo::TPropInfo& info);
    void WriteFloatProp(const TPersistent& instance, const Typinfo::TPropInfo& info);
    void WriteObjectProp(TPersistent& instance, const Typinfo::TPropInfo& info);
    void WritePart(TPersistent& instance, const Typinfo::TPropInfo& info, TPersistent& part);
    void WriteMethodProp(const TPersistent& instance, const Typinfo::TPropInfo& info);
    System::UnicodeString MethodNameOf(const System::TMethod& method);
    bool IsDefault(const TPersistent& instance, const Typinfo::TPropInfo& info);
    bool IsDefaultObject(const TPersistent& instance, const Typinfo::TPropInfo& info);
    bool EqualCollections(TCollection& collection, TCollection& ancestor);
    bool EqualVariants(const System::Variant& a, const System::Variant& b);
    void WriteArray(const System::Variant& array);
    System::UnicodeString ReferenceTo(TComponent& component, TComponent* lookupRoot, TComponent* root) const;

    System::GOwner<CState> mState;
    TComponent* mRootAncestor = nullptr;
};

} // namespace Classes

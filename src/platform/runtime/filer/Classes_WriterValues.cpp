// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/filer/internal/Classes_FormFloat.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_ScopedValue.h"
#include "platform/runtime/filer/internal/Classes_WriterState.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

#include <cmath>

namespace Classes
{

using System::Extended;
using System::Int64;
using System::UnicodeString;
using System::Variant;
using Typinfo::TPropInfo;
using Typinfo::TTypeInfo;

namespace
{

template <class T>
std::string_view BytesOf(const T& value)
{
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

template <class T>
T ReadAs(const TPersistent& instance, const TPropInfo& info)
{
    const Typinfo::TPropValue value = info.Read(&instance);
    const T* const typed = std::get_if<T>(&value);
    if (typed == nullptr) {
        Typinfo::Detail::ThrowBadValue();
    }
    return *typed;
}

bool IsText(Typinfo::TTypeKind kind)
{
    return kind == Typinfo::tkUString || kind == Typinfo::tkLString || kind == Typinfo::tkWString ||
           kind == Typinfo::tkString;
}

bool IsOrdinal(Typinfo::TTypeKind kind)
{
    return kind == Typinfo::tkInteger || kind == Typinfo::tkInt64 || kind == Typinfo::tkEnumeration ||
           kind == Typinfo::tkSet || kind == Typinfo::tkChar || kind == Typinfo::tkWChar;
}

/// Where the ancestor has the property: that may be described anew by a class between the two.
const TPropInfo* AncestorInfo(const TPersistent* ancestor, const TPersistent& instance, const TPropInfo& info)
{
    if (ancestor == nullptr || ancestor->ClassType() == instance.ClassType()) {
        return ancestor == nullptr ? nullptr : &info;
    }
    const TPropInfo* const found = Typinfo::GetPropInfo(ancestor, info.getName());
    return found != nullptr && found->getKind() == info.getKind() && found->CanRead() ? found : nullptr;
}

/// Equal as values: what is no number equals itself.
bool SameFloat(Extended a, Extended b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool SameCode(const System::TMethod& a, const System::TMethod& b)
{
    return a.Code == b.Code || (a.Code != nullptr && b.Code != nullptr && a.Code->Equals(*b.Code));
}

UnicodeString ElementName(const TTypeInfo& type, int bit)
{
    return Typinfo::GetEnumName(type.ElementType, type.LowestElement + bit);
}

} // namespace

// Properties

void TWriter::WriteProperties(TPersistent* instance)
{
    const CLevel level(*mState);
    for (const TPropInfo* const info : instance->ClassType()->Properties()) {
        if (info->CanRead() && info->IsStored(instance) && !IsDefault(*instance, *info)) {
            WriteProperty(*instance, *info);
        }
    }
    instance->DefineProperties(*this);
}

bool TWriter::IsDefault(const TPersistent& instance, const TPropInfo& info)
{
    const TPropInfo* const known = AncestorInfo(mAncestor, instance, info);
    const Typinfo::TTypeKind kind = info.getKind();
    if (IsOrdinal(kind)) {
        const auto value = ReadAs<Int64>(instance, info);
        return known != nullptr ? value == ReadAs<Int64>(*mAncestor, *known) : info.getDefault() == value;
    }
    if (IsText(kind)) {
        const auto value = ReadAs<UnicodeString>(instance, info);
        return known != nullptr ? value == ReadAs<UnicodeString>(*mAncestor, *known) : value.IsEmpty();
    }
    switch (kind) {
    case Typinfo::tkFloat: {
        const auto value = ReadAs<Extended>(instance, info);
        return SameFloat(value, known != nullptr ? ReadAs<Extended>(*mAncestor, *known) : 0);
    }
    case Typinfo::tkMethod: {
        const auto value = ReadAs<System::TMethod>(instance, info);
        return SameCode(value,
                        known != nullptr ? ReadAs<System::TMethod>(*mAncestor, *known) : System::TMethod());
    }
    case Typinfo::tkVariant: {
        const auto value = ReadAs<Variant>(instance, info);
        return known != nullptr ? EqualVariants(value, ReadAs<Variant>(*mAncestor, *known)) : value.IsEmpty();
    }
    case Typinfo::tkClass:
        return IsDefaultObject(instance, info);
    default:
        return true;
    }
}

bool TWriter::IsDefaultObject(const TPersistent& instance, const TPropInfo& info)
{
    auto* const value = ReadAs<System::TObject*>(instance, info);
    const TPropInfo* const known = AncestorInfo(mAncestor, instance, info);
    auto* const other = known != nullptr ? ReadAs<System::TObject*>(*mAncestor, *known) : nullptr;
    if (value == nullptr) {
        return other == nullptr;
    }
    if (auto* const component = dynamic_cast<TComponent*>(value); component != nullptr) {
        auto* const otherComponent = dynamic_cast<TComponent*>(other);
        return otherComponent != nullptr && ReferenceTo(*component, mLookupRoot, mRoot) ==
                                                ReferenceTo(*otherComponent, mRootAncestor, mRootAncestor);
    }
    auto* const collection = dynamic_cast<TCollection*>(value);
    auto* const otherCollection = dynamic_cast<TCollection*>(other);
    if (collection != nullptr && otherCollection != nullptr) {
        return EqualCollections(*collection, *otherCollection);
    }
    return collection != nullptr && collection->empty();
}

bool TWriter::EqualVariants(const Variant& a, const Variant& b)
{
    Form::COutput& out = mState->out;
    const std::size_t start = out.Size();
    WriteVariant(a);
    const std::string first = out.getBytes().substr(start);
    out.Cut(start);
    WriteVariant(b);
    const bool isEqual = std::string_view(out.getBytes()).substr(start) == first;
    out.Cut(start);
    return isEqual;
}

bool TWriter::EqualCollections(TCollection& collection, TCollection& ancestor)
{
    if (collection.GetCount() != ancestor.GetCount()) {
        return false;
    }
    Form::COutput& out = mState->out;
    const std::size_t start = out.Size();
    WriteCollection(&collection);
    const std::string first = out.getBytes().substr(start);
    out.Cut(start);
    // Its references are names within the ancestor's form.
    const GScopedValue root(mRoot, mRootAncestor);
    const GScopedValue lookupRoot(mLookupRoot, mRootAncestor);
    WriteCollection(&ancestor);
    const bool isEqual = std::string_view(out.getBytes()).substr(start) == first;
    out.Cut(start);
    return isEqual;
}

void TWriter::WritePropName(const UnicodeString& name)
{
    const std::string path = mState->prefix + System::ToUtf8(name);
    if (!Form::IsPath(path) || path.size() > Form::MaxName) {
        throw EWriteError(u"A form can't have a property called " + System::FromUtf8(path));
    }
    mState->out.PutShort(path);
}

void TWriter::WriteProperty(TPersistent& instance, const TPropInfo& info)
{
    const Typinfo::TTypeKind kind = info.getKind();
    if (kind == Typinfo::tkClass) {
        return WriteObjectProp(instance, info);
    }
    if (!info.CanWrite()) {
        return;
    }
    if (kind == Typinfo::tkMethod) {
        return WriteMethodProp(instance, info);
    }
    WritePropName(info.getName());
    if (IsOrdinal(kind)) {
        WriteOrdinal(instance, info);
    } else if (IsText(kind)) {
        WriteString(ReadAs<UnicodeString>(instance, info));
    } else if (kind == Typinfo::tkFloat) {
        WriteFloatProp(instance, info);
    } else {
        WriteVariant(ReadAs<Variant>(instance, info));
    }
}

void TWriter::WriteOrdinal(const TPersistent& instance, const TPropInfo& info)
{
    const auto value = ReadAs<Int64>(instance, info);
    const TTypeInfo* const type = info.getPropType();
    switch (type->Kind) {
    case Typinfo::tkSet:
        return WriteSet(type, value);
    case Typinfo::tkChar:
        return WriteString(UnicodeString(static_cast<char>(value)));
    case Typinfo::tkWChar:
        return WriteChar(static_cast<System::WideChar>(value));
    case Typinfo::tkEnumeration: {
        const UnicodeString name = Typinfo::GetEnumName(type, value);
        if (name.IsEmpty()) {
            throw EWriteError(u"The value " + UnicodeString(value) + u" of property " + info.getName() +
                              u" has no name");
        }
        return WriteIdent(name);
    }
    default:
        break;
    }
    const TIntToIdent intToIdent = FindIntToIdent(type);
    UnicodeString name;
    if (intToIdent != nullptr && intToIdent(static_cast<int>(value), name)) {
        WriteIdent(name);
    } else {
        WriteInteger(value);
    }
}

void TWriter::WriteFloatProp(const TPersistent& instance, const TPropInfo& info)
{
    const auto value = ReadAs<Extended>(instance, info);
    const TTypeInfo* const type = info.getPropType();
    if (type == Typinfo::Detail::DateTimeTypeInfo()) {
        WriteDate(static_cast<double>(value));
    } else if (type->FloatType == Typinfo::ftCurr) {
        WriteCurrency(value);
    } else if (type->FloatType == Typinfo::ftSingle) {
        WriteSingle(static_cast<float>(value));
    } else {
        WriteFloat(value);
    }
}

void TWriter::WriteObjectProp(TPersistent& instance, const TPropInfo& info)
{
    auto* const value = ReadAs<System::TObject*>(instance, info);
    if (auto* const component = dynamic_cast<TComponent*>(value); component != nullptr || value == nullptr) {
        const UnicodeString path =
            component == nullptr ? UnicodeString(u"nil") : ReferenceTo(*component, mLookupRoot, mRoot);
        if (info.CanWrite() && !path.IsEmpty()) {
            WritePropName(info.getName());
            WriteIdent(path);
        }
    } else if (auto* const collection = dynamic_cast<TCollection*>(value); collection != nullptr) {
        WritePropName(info.getName());
        WriteCollection(collection);
    } else if (auto* const part = dynamic_cast<TPersistent*>(value); part != nullptr) {
        WritePart(instance, info, *part);
    }
}

void TWriter::WritePart(TPersistent& instance, const TPropInfo& info, TPersistent& part)
{
    const TPropInfo* const known = AncestorInfo(mAncestor, instance, info);
    auto* const other = known != nullptr ? ReadAs<System::TObject*>(*mAncestor, *known) : nullptr;
    const GScopedValue ancestor(mAncestor, dynamic_cast<TPersistent*>(other));
    const GScopedValue prefix(mState->prefix, mState->prefix + System::ToUtf8(info.getName()) + ".");
    WriteProperties(&part);
}

UnicodeString TWriter::MethodNameOf(const System::TMethod& method)
{
    UnicodeString name = mRoot == nullptr ? UnicodeString() : mRoot->MethodName(method.Code);
    if (OnFindMethodName) {
        OnFindMethodName(this, method, name);
    }
    return name;
}

void TWriter::WriteMethodProp(const TPersistent& instance, const TPropInfo& info)
{
    const auto value = ReadAs<System::TMethod>(instance, info);
    const UnicodeString name = value ? MethodNameOf(value) : UnicodeString(u"nil");
    if (!name.IsEmpty()) {
        WritePropName(info.getName());
        WriteIdent(name);
    }
}

void TWriter::WriteCollection(TCollection* collection)
{
    if (collection == nullptr) {
        throw EWriteError(u"There is no collection to write");
    }
    const GScopedValue ancestor(mAncestor, static_cast<TPersistent*>(nullptr));
    const GScopedValue prefix(mState->prefix, std::string());
    mState->out.PutType(vaCollection);
    for (TCollectionItem* const item : *collection) {
        WriteListBegin();
        WriteProperties(item);
        WriteListEnd();
    }
    WriteListEnd();
}

// Values

void TWriter::WriteBoolean(bool value)
{
    mState->out.PutType(value ? vaTrue : vaFalse);
    mState->FlushIfFull();
}

void TWriter::WriteChar(System::WideChar value)
{
    WriteString(UnicodeString(value));
}

void TWriter::WriteInteger(Int64 value)
{
    mState->out.PutInteger(value);
    mState->FlushIfFull();
}

void TWriter::WriteFloat(Extended value)
{
    const Form::TFloatValue bytes = Form::FloatValueOf(value);
    mState->out.PutFloat(bytes.type, bytes.bytes);
    mState->FlushIfFull();
}

void TWriter::WriteSingle(float value)
{
    mState->out.PutFloat(vaSingle, BytesOf(value));
    mState->FlushIfFull();
}

void TWriter::WriteDouble(double value)
{
    mState->out.PutFloat(vaDouble, BytesOf(value));
    mState->FlushIfFull();
}

void TWriter::WriteCurrency(System::Currency value)
{
    mState->out.PutFloat(vaCurrency, BytesOf(value.Val));
    mState->FlushIfFull();
}

void TWriter::WriteDate(System::TDateTime value)
{
    mState->out.PutFloat(vaDate, BytesOf(value.Val));
    mState->FlushIfFull();
}

void TWriter::WriteString(const UnicodeString& value)
{
    mState->out.PutText(value);
    mState->FlushIfFull();
}

void TWriter::WriteIdent(const UnicodeString& ident)
{
    const std::string path = System::ToUtf8(ident);
    if (!Form::IsPath(path) || path.size() > Form::MaxName) {
        throw EWriteError(u"'" + ident + u"' is no identifier");
    }
    mState->out.PutIdent(path);
    mState->FlushIfFull();
}

void TWriter::WriteSet(const TTypeInfo* type, Int64 bits)
{
    mState->out.PutType(vaSet);
    for (int bit = 0; bit < 63 && bits >> bit != 0; ++bit) {
        if ((bits >> bit & 1) == 0) {
            continue;
        }
        const std::string name = System::ToUtf8(type == nullptr ? UnicodeString() : ElementName(*type, bit));
        if (!Form::IsIdentifier(name) || name.size() > Form::MaxName) {
            throw EWriteError(u"An element of the set has no name");
        }
        mState->out.PutShort(name);
    }
    WriteListEnd();
}

void TWriter::WriteVariant(const Variant& value)
{
    if (value.IsArray()) {
        return WriteArray(value);
    }
    switch (value.Type()) {
    case System::varEmpty:
        return WriteIdent(u"nil");
    case System::varNull:
        return WriteIdent(u"Null");
    case System::varBoolean:
        return WriteBoolean(value.As<bool>());
    case System::varSingle:
        return WriteSingle(value.As<float>());
    case System::varDouble:
        return WriteDouble(value.As<double>());
    case System::varCurrency:
        return WriteCurrency(value.As<System::Currency>());
    case System::varDate:
        return WriteDate(value.As<System::TDateTime>());
    default:
        break;
    }
    if (value.IsText()) {
        WriteString(value.As<UnicodeString>());
    } else {
        WriteInteger(value.As<Int64>());
    }
}

void TWriter::WriteArray(const Variant& array)
{
    const CLevel level(*mState);
    if (array.ArrayDimCount() != 1) {
        throw EWriteError(u"An array of several dimensions can't be written");
    }
    if ((array.Type() & System::varTypeMask) == System::varByte) {
        const auto bytes = array.ArrayBytes();
        mState->out.PutBytes({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        return;
    }
    WriteListBegin();
    for (int i = array.ArrayLowBound(); i <= array.ArrayHighBound(); ++i) {
        const Variant element = array.GetElement(i);
        if (element.IsNull()) {
            throw EWriteError(u"Null in an array can't be written");
        }
        WriteVariant(element);
    }
    WriteListEnd();
}

void TWriter::WriteListBegin()
{
    mState->out.PutType(vaList);
}

void TWriter::WriteListEnd()
{
    mState->out.PutEnd();
    mState->FlushIfFull();
}

} // namespace Classes

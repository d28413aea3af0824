// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/internal/Classes_FormFloat.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"
#include "platform/runtime/filer/internal/Classes_ReaderState.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo_PropValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

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

bool IsInteger(TValueType type)
{
    return type == vaInt8 || type == vaInt16 || type == vaInt32 || type == vaInt64;
}

bool IsFloat(TValueType type)
{
    return Form::FloatSize(type) > 0;
}

/// Whether a float type holds the value, rounded; what isn't finite it does.
template <class T>
bool Holds(Extended value)
{
    return !std::isfinite(value) || std::abs(value) <= std::numeric_limits<T>::max();
}

/// The value of the name; nothing if the enumeration hasn't got it.
std::optional<Int64> EnumValue(const TTypeInfo* type, const UnicodeString& name)
{
    const int value = Typinfo::GetEnumValue(type, name);
    // -1 also says that there is none.
    const bool isKnown = value != -1 || Typinfo::GetEnumName(type, value).CompareIC(name) == 0;
    return isKnown ? std::optional<Int64>(value) : std::nullopt;
}

} // namespace

// Properties

void TReader::ReadProperty(TPersistent* instance)
{
    if (instance == nullptr) {
        Form::CInput::Fail(u"There is no object to read a property of");
    }
    CState& state = *mState;
    const CState::CSession session(state);
    const std::string path(state.input.TakePath());
    const std::string outer = state.path.getProperty();
    state.path.setProperty(outer.empty() ? path : outer + "." + path);
    const std::size_t depth = state.steps.size();
    const Int64 start = state.input.Offset();
    try {
        ReadPropertyAt(*instance, System::FromUtf8(path));
    } catch (const Sysutils::EAbort&) {
        throw;
    } catch (const std::exception& fault) {
        PassOver(fault, start);
        state.input.GoTo(start);
        SkipValue();
    }
    state.steps.resize(depth);
    state.path.setProperty(outer);
}

const TPropInfo* TReader::FindProperty(const TPersistent& object, const UnicodeString& name) const
{
    const TPropInfo* const info = Typinfo::GetPropInfo(&object, name);
    return info == nullptr && &object == mRoot ? Typinfo::GetPropInfo(mRootClass, name) : info;
}

void TReader::ReadPropertyAt(TPersistent& instance, const UnicodeString& path)
{
    TPersistent* target = &instance;
    UnicodeString name = path;
    for (int point = name.Pos(u'.'); point > 0; point = name.Pos(u'.')) {
        const TPropInfo* const info = FindProperty(*target, name.SubString(1, point - 1));
        const bool isObject = info != nullptr && info->getKind() == Typinfo::tkClass;
        auto* const part =
            isObject ? dynamic_cast<TPersistent*>(Typinfo::GetObjectProp(target, info)) : nullptr;
        if (part == nullptr) {
            Form::CInput::Fail(u"There is no property " + name.SubString(1, point - 1) +
                               u" with parts in a " + target->ClassName());
        }
        mState->steps.push_back({info});
        target = part;
        name.Delete(1, point);
    }
    if (const TPropInfo* const info = FindProperty(*target, name); info != nullptr) {
        ReadPropValue(*target, *info);
    } else {
        mPropName = name;
        target->DefineProperties(*this);
        if (!mPropName.IsEmpty()) {
            mPropName = {};
            Form::CInput::Fail(u"There is no property " + name + u" in a " + target->ClassName());
        }
    }
}

void TReader::ReadPropValue(TPersistent& instance, const TPropInfo& info)
{
    if (!info.CanWrite() && info.getKind() != Typinfo::tkClass) {
        Form::CInput::Fail(u"The property " + info.getName() + u" is read-only");
    }
    switch (info.getKind()) {
    case Typinfo::tkInteger:
    case Typinfo::tkInt64:
    case Typinfo::tkEnumeration:
    case Typinfo::tkSet:
        return ReadOrdinal(instance, info);
    case Typinfo::tkChar:
    case Typinfo::tkWChar:
        return Typinfo::SetPropValue(&instance, &info, ReadString());
    case Typinfo::tkFloat:
        return ReadFloatProp(instance, info);
    case Typinfo::tkString:
    case Typinfo::tkLString:
    case Typinfo::tkWString:
    case Typinfo::tkUString:
        return Typinfo::SetStrProp(&instance, &info, ReadString());
    case Typinfo::tkVariant:
        return Typinfo::SetVariantProp(&instance, &info, ReadVariant());
    case Typinfo::tkClass:
        return ReadObjectProp(instance, info);
    case Typinfo::tkMethod:
        return ReadMethodProp(instance, info);
    default:
        Form::CInput::Fail(u"The property " + info.getName() + u" has a type that no form holds");
    }
}

void TReader::ReadOrdinal(TPersistent& instance, const TPropInfo& info)
{
    const TTypeInfo* const type = info.getPropType();
    if (type->Kind == Typinfo::tkSet) {
        return Typinfo::SetOrdProp(&instance, &info, ReadSet(type));
    }
    if (type->Kind == Typinfo::tkEnumeration) {
        const UnicodeString name = ReadIdent();
        if (const std::optional<Int64> value = EnumValue(type, name); value) {
            return Typinfo::SetOrdProp(&instance, &info, *value);
        }
        // It tells which there are.
        return Typinfo::SetPropValue(&instance, &info, name);
    }
    if (NextValue() != vaIdent) {
        return Typinfo::SetInt64Prop(&instance, &info, ReadInt64());
    }
    const UnicodeString name = ReadIdent();
    const TIdentToInt identToInt = FindIdentToInt(type);
    int value = 0;
    if (identToInt == nullptr || !identToInt(name, value)) {
        Form::CInput::Fail(u"'" + name + u"' is no value of property " + info.getName());
    }
    Typinfo::SetInt64Prop(&instance, &info, value);
}

void TReader::ReadFloatProp(TPersistent& instance, const TPropInfo& info)
{
    const Extended value = ReadFloat();
    const Typinfo::TFloatType type = info.getPropType()->FloatType;
    const bool fits = type == Typinfo::ftSingle   ? Holds<float>(value)
                      : type == Typinfo::ftDouble ? Holds<double>(value)
                                                  : true;
    if (!fits) {
        Form::CInput::Fail(u"The number is beyond the range of property " + info.getName());
    }
    Typinfo::SetFloatProp(&instance, &info, value);
}

void TReader::ReadObjectProp(TPersistent& instance, const TPropInfo& info)
{
    switch (NextValue()) {
    case vaNil:
        ReadValue();
        return Typinfo::SetObjectProp(&instance, &info, nullptr);
    case vaCollection: {
        auto* const collection = dynamic_cast<TCollection*>(Typinfo::GetObjectProp(&instance, &info));
        if (collection == nullptr) {
            Form::CInput::Fail(u"The property " + info.getName() + u" has no collection");
        }
        ReadValue();
        mState->steps.push_back({&info});
        ReadCollection(collection);
        mState->steps.pop_back();
        return;
    }
    default:
        break;
    }
    const Int64 start = getPosition();
    TReference reference;
    reference.name = ReadIdent();
    if (!info.CanWrite() || !info.getPropType()->ClassType->Inherits(System::ClassOf<TComponent>()) ||
        mState->component == nullptr) {
        Form::CInput::Fail(u"The property " + info.getName() + u" refers to no component");
    }
    reference.component = mState->component;
    reference.steps = mState->steps;
    reference.info = &info;
    reference.root = mRoot;
    reference.lookupRoot = mLookupRoot;
    reference.place = mState->path.AsText() + u" at byte " + UnicodeString(start);
    mState->references.push_back(std::move(reference));
}

void TReader::ReadMethodProp(TPersistent& instance, const TPropInfo& info)
{
    if (NextValue() == vaNil) {
        ReadValue();
        return Typinfo::SetMethodProp(&instance, &info, {});
    }
    const System::TMethodAddress code = FindMethod(ReadIdent());
    if (code != nullptr) {
        Typinfo::SetMethodProp(&instance, &info, System::TMethod::Of(code, mRoot));
    }
}

System::TMethodAddress TReader::FindMethod(const UnicodeString& name)
{
    System::TMethodAddress address = mRoot == nullptr ? System::TMethodAddress() : mRoot->MethodAddress(name);
    bool error = address == nullptr;
    if (OnFindMethod) {
        OnFindMethod(this, name, address, error);
    }
    if (error) {
        Form::CInput::Fail(u"The method " + name + u" isn't there");
    }
    return address;
}

// Collections

void TReader::ReadCollection(TCollection* collection)
{
    if (collection == nullptr) {
        Form::CInput::Fail(u"There is no collection");
    }
    const CState::CDepth depth(*mState);
    const GUpdateScope scope(*collection);
    collection->Clear();
    while (!EndOfList()) {
        ReadItem(*collection);
    }
    ReadListEnd();
}

void TReader::ReadItem(TCollection& collection)
{
    if (IsInteger(NextValue())) {
        // The place that the item had; items follow each other anyway.
        ReadInt64();
    }
    ReadListBegin();
    TCollectionItem* const item = collection.Add();
    const int index = collection.GetCount() - 1;
    mState->steps.push_back({nullptr, index, item->getID()});
    const std::string outer = mState->path.getProperty();
    mState->path.setProperty(outer + "[" + std::to_string(index) + "]");
    while (!EndOfList()) {
        ReadProperty(item);
        if (collection.GetCount() != index + 1 || collection.GetItem(index) != item) {
            Form::CInput::Fail(u"An item was taken from its collection while it was read");
        }
    }
    ReadListEnd();
    mState->path.setProperty(outer);
    mState->steps.pop_back();
}

// Values

TValueType TReader::NextValue()
{
    const TValueType type = mState->input.TakeType();
    mState->input.GoTo(getPosition() - 1);
    return type;
}

TValueType TReader::ReadValue()
{
    return mState->input.TakeType();
}

bool TReader::ReadBoolean()
{
    const TValueType type = ReadValue();
    if (type != vaTrue && type != vaFalse) {
        mState->input.FailType(type);
    }
    return type == vaTrue;
}

System::WideChar TReader::ReadChar()
{
    const UnicodeString text = ReadString();
    if (text.Length() != 1) {
        Form::CInput::Fail(u"A text of " + UnicodeString(text.Length()) + u" characters is no single one");
    }
    return text[1];
}

Int64 TReader::ReadInt64()
{
    return mState->input.TakeInteger(ReadValue());
}

int TReader::ReadInteger()
{
    const Int64 value = ReadInt64();
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
        Form::CInput::Fail(UnicodeString(value) + u" is no integer of 32 bits");
    }
    return static_cast<int>(value);
}

Extended TReader::ReadFloat()
{
    const TValueType type = ReadValue();
    if (!IsFloat(type)) {
        return static_cast<Extended>(mState->input.TakeInteger(type));
    }
    const std::optional<Extended> value = Form::FloatOf(type, mState->input.Take(Form::FloatSize(type)));
    if (!value) {
        Form::CInput::Fail(u"A float is no number");
    }
    return *value;
}

float TReader::ReadSingle()
{
    const Extended value = ReadFloat();
    if (!Holds<float>(value)) {
        Form::CInput::Fail(u"A number is beyond the range of a single");
    }
    return static_cast<float>(value);
}

double TReader::ReadDouble()
{
    const Extended value = ReadFloat();
    if (!Holds<double>(value)) {
        Form::CInput::Fail(u"A number is beyond the range of a double");
    }
    return static_cast<double>(value);
}

System::Currency TReader::ReadCurrency()
{
    return ReadFloat();
}

System::TDateTime TReader::ReadDate()
{
    return ReadDouble();
}

UnicodeString TReader::ReadString()
{
    return mState->input.TakeText(ReadValue());
}

UnicodeString TReader::ReadIdent()
{
    switch (const TValueType type = ReadValue()) {
    case vaIdent:
        return System::FromUtf8(mState->input.TakePath());
    case vaTrue:
        return u"True";
    case vaFalse:
        return u"False";
    case vaNil:
        return u"nil";
    case vaNull:
        return u"Null";
    default:
        mState->input.FailType(type);
    }
}

Int64 TReader::ReadSet(const TTypeInfo* type)
{
    const TValueType code = ReadValue();
    if (code != vaSet) {
        mState->input.FailType(code);
    }
    Int64 bits = 0;
    while (!EndOfList()) {
        const UnicodeString name = System::FromUtf8(mState->input.TakeIdentifier());
        const std::optional<Int64> value = EnumValue(type == nullptr ? nullptr : type->ElementType, name);
        const Int64 bit = value ? *value - type->LowestElement : -1;
        if (bit < 0 || bit >= 63 || type->MaxValue >> bit == 0) {
            Form::CInput::Fail(u"'" + name + u"' is no element of the set");
        }
        bits |= Int64{1} << bit;
    }
    ReadListEnd();
    return bits;
}

Variant TReader::ReadVariant()
{
    const TValueType type = NextValue();
    if (IsInteger(type)) {
        return ReadInt64();
    }
    switch (type) {
    case vaNull:
        ReadValue();
        return Variant::Null();
    case vaNil:
        ReadValue();
        return {};
    case vaTrue:
    case vaFalse:
        return ReadBoolean();
    case vaSingle:
        return ReadSingle();
    case vaDouble:
    case vaExtended:
        return ReadDouble();
    case vaCurrency:
        return ReadCurrency();
    case vaDate:
        return ReadDate();
    case vaString:
    case vaLString:
    case vaWString:
    case vaUTF8String:
        return ReadString();
    case vaBinary: {
        ReadValue();
        const std::string_view bytes = mState->input.Take(mState->input.TakeCount());
        Variant array =
            Variant::CreateArray(std::array{0, static_cast<int>(bytes.size()) - 1}, System::varByte);
        std::ranges::copy(bytes, array.ArrayBytes().begin());
        return array;
    }
    case vaList: {
        const CState::CDepth depth(*mState);
        ReadListBegin();
        std::vector<Variant> values;
        while (!EndOfList()) {
            values.push_back(ReadVariant());
        }
        ReadListEnd();
        return Variant::ArrayOf(values);
    }
    default:
        mState->input.TakeType();
        mState->input.FailType(type);
    }
}

void TReader::ReadListBegin()
{
    const TValueType type = ReadValue();
    if (type != vaList) {
        mState->input.FailType(type);
    }
}

bool TReader::EndOfList()
{
    return mState->input.Peek() == 0;
}

void TReader::ReadListEnd()
{
    const TValueType type = ReadValue();
    if (type != vaNull) {
        mState->input.FailType(type);
    }
}

void TReader::SkipValue()
{
    const CState::CDepth depth(*mState);
    Form::CInput& input = mState->input;
    const TValueType type = ReadValue();
    if (IsInteger(type)) {
        input.TakeInteger(type);
        return;
    }
    switch (type) {
    case vaNull:
    case vaNil:
    case vaTrue:
    case vaFalse:
        return;
    case vaIdent:
        input.TakePath();
        return;
    case vaBinary:
        input.Take(input.TakeCount());
        return;
    case vaSet:
        while (!EndOfList()) {
            input.TakeIdentifier();
        }
        return ReadListEnd();
    case vaList:
        while (!EndOfList()) {
            SkipValue();
        }
        return ReadListEnd();
    case vaCollection:
        while (!EndOfList()) {
            if (IsInteger(NextValue())) {
                ReadInt64();
            }
            ReadListBegin();
            while (!EndOfList()) {
                input.TakePath();
                SkipValue();
            }
            ReadListEnd();
        }
        return ReadListEnd();
    default:
        break;
    }
    if (IsFloat(type)) {
        input.Take(Form::FloatSize(type));
    } else {
        input.TakeTextBytes(type);
    }
}

} // namespace Classes

// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormChecker.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/runtime/filer/internal/Classes_FormParser.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

namespace Classes::Form
{

using System::Int64;
using System::UnicodeString;
using Typinfo::TPropInfo;
using Typinfo::TTypeInfo;

namespace
{

constexpr std::size_t MaxFaults = 100;

UnicodeString LowerText(std::string_view name)
{
    return System::FromUtf8(name).LowerCase();
}

bool HasName(const TTypeInfo* type, const UnicodeString& name)
{
    const int value = Typinfo::GetEnumValue(type, name);
    return value != -1 || Typinfo::GetEnumName(type, value).CompareIC(name) == 0;
}

bool IsComponentReference(const TPropInfo& info)
{
    return info.getKind() == Typinfo::tkClass &&
           info.getPropType()->ClassType->Inherits(System::ClassOf<TComponent>());
}

/// The object that the property holds; null for what is none.
TPersistent* ValueIn(TPersistent& object, const TPropInfo& info)
{
    const bool isObject = info.getKind() == Typinfo::tkClass && info.CanRead();
    return isObject ? dynamic_cast<TPersistent*>(Typinfo::GetObjectProp(&object, &info)) : nullptr;
}

} // namespace

void CChecker::Fault(const UnicodeString& message)
{
    if (mFaults.size() >= MaxFaults) {
        throw TEnough();
    }
    const TPlace place = PlaceIn(mText, mParser->EventOffset());
    mFaults.push_back({place.line, place.column, mParser->Path().AsText() + u": " + message});
}

void CChecker::CheckName(const TObjectHead& head)
{
    if (head.name.empty() || mLevels.empty()) {
        return;
    }
    // An inherited component may be in a part of which only its parent's form tells.
    CNames& names = head.isInherited ? mLevels.back().inheritedChildren : mScopes.back();
    if (!names.insert(LowerText(head.name)).second) {
        Fault(u"there is another component of this name");
    }
    const bool mayInherit = mLevels.back().isInherited || mLevels.back().hasOwnScope;
    if (head.isInherited && !mayInherit) {
        Fault(u"nothing is inherited here");
    }
}

TPersistent* CChecker::SampleOf(const TObjectHead& head)
{
    const UnicodeString className = System::FromUtf8(head.className);
    const System::TMetaClass* const type = GetClass(className);
    if (mLevels.empty()) {
        mRootClass = type;
        return nullptr;
    }
    if (type == nullptr) {
        if (mClasses == fcAll) {
            Fault(u"the class " + className + u" is unknown");
        }
        return nullptr;
    }
    if (!type->Inherits(System::ClassOf<TComponent>())) {
        Fault(u"the class " + className + u" is none of components");
        return nullptr;
    }
    return mSamples.ComponentOf(type);
}

void CChecker::BeginObject(const TObjectHead& head)
{
    if (mScopes.empty()) {
        mScopes.emplace_back();
    }
    CheckName(head);
    TLevel level;
    level.sample = SampleOf(head);
    level.isInherited = head.isInherited;
    level.hasOwnScope = head.isInline;
    if (level.hasOwnScope) {
        mScopes.emplace_back();
    }
    mLevels.push_back(std::move(level));
}

void CChecker::EndObject()
{
    if (mLevels.back().hasOwnScope) {
        mScopes.pop_back();
    }
    mLevels.pop_back();
}

void CChecker::BeginProperty(std::string_view path)
{
    TLevel& level = mLevels.back();
    level.info = nullptr;
    level.value = nullptr;
    level.listDepth = 0;
    if (!level.properties.insert(LowerText(path)).second) {
        Fault(u"the property is there twice");
    }
    TPersistent* object = level.sample;
    UnicodeString name = System::FromUtf8(path);
    for (int point = name.Pos(u'.'); object != nullptr && point > 0; point = name.Pos(u'.')) {
        const UnicodeString part = name.SubString(1, point - 1);
        const TPropInfo* const info = Typinfo::GetPropInfo(object, part);
        if (info == nullptr || info->getKind() != Typinfo::tkClass) {
            return Fault(u"there is no property " + part + u" with parts in a " + object->ClassName());
        }
        object = ValueIn(*object, *info);
        name.Delete(1, point);
    }
    if (object == nullptr) {
        return;
    }
    level.info = Typinfo::GetPropInfo(object, name);
    if (level.info != nullptr) {
        level.value = ValueIn(*object, *level.info);
        if (!level.info->CanWrite() && level.info->getKind() != Typinfo::tkClass) {
            Fault(u"the property is read-only");
        }
    } else if (!mSamples.Defines(*object, name)) {
        Fault(u"there is no property " + name + u" in a " + object->ClassName());
    }
}

const TPropInfo* CChecker::Judged() const
{
    const TLevel& level = mLevels.back();
    return level.listDepth > 0 ? nullptr : level.info;
}

template <class... Kinds>
void CChecker::NeedKind(const char16_t* what, Kinds... kinds)
{
    const TPropInfo* const info = Judged();
    if (info != nullptr && info->getKind() != Typinfo::tkVariant && ((info->getKind() != kinds) && ...)) {
        Fault(UnicodeString(what) + u" doesn't fit");
    }
}

void CChecker::Constant(TValueType type)
{
    const TPropInfo* const info = Judged();
    if (type == vaNull) {
        NeedKind(u"Null", Typinfo::tkVariant);
    } else if (type == vaNil) {
        NeedKind(u"nil", Typinfo::tkClass, Typinfo::tkMethod);
    } else if (info != nullptr && info->getKind() != Typinfo::tkVariant) {
        CheckIdent(*info, type == vaTrue ? u"True" : u"False");
    }
}

void CChecker::Integer(Int64 value)
{
    NeedKind(u"an integer", Typinfo::tkInteger, Typinfo::tkInt64, Typinfo::tkFloat);
    const TPropInfo* const info = Judged();
    if (info == nullptr || (info->getKind() != Typinfo::tkInteger && info->getKind() != Typinfo::tkInt64)) {
        return;
    }
    const TTypeInfo& type = *info->getPropType();
    if (value < type.MinValue || value > type.MaxValue) {
        Fault(u"the number isn't within " + UnicodeString(type.MinValue) + u" to " +
              UnicodeString(type.MaxValue));
    }
}

void CChecker::Float(TValueType, std::string_view)
{
    NeedKind(u"a float", Typinfo::tkFloat);
}

void CChecker::CheckTextLength(int length)
{
    NeedKind(u"a text", Typinfo::tkUString, Typinfo::tkLString, Typinfo::tkWString, Typinfo::tkString,
             Typinfo::tkChar, Typinfo::tkWChar);
    const TPropInfo* const info = Judged();
    const bool isCharacter =
        info != nullptr && (info->getKind() == Typinfo::tkChar || info->getKind() == Typinfo::tkWChar);
    if (isCharacter && length != 1) {
        Fault(u"the property holds one character");
    }
}

void CChecker::Text(std::string_view text)
{
    CheckTextLength(System::FromUtf8(text).Length());
}

void CChecker::WideText(std::u16string_view text)
{
    CheckTextLength(static_cast<int>(text.size()));
}

void CChecker::Ident(std::string_view path)
{
    if (const TPropInfo* const info = Judged(); info != nullptr) {
        CheckIdent(*info, System::FromUtf8(path));
    }
}

bool CChecker::IsRootMethod(const UnicodeString& name) const
{
    return mRootClass == nullptr || mRootClass->FindMethod(name) != nullptr;
}

void CChecker::CheckIdent(const TPropInfo& info, const UnicodeString& ident)
{
    const TTypeInfo* const type = info.getPropType();
    bool fits = false;
    switch (type->Kind) {
    case Typinfo::tkEnumeration:
        fits = HasName(type, ident);
        break;
    case Typinfo::tkInteger: {
        int value = 0;
        const TIdentToInt identToInt = FindIdentToInt(type);
        fits = identToInt != nullptr && identToInt(ident, value);
        break;
    }
    case Typinfo::tkClass:
        fits = IsComponentReference(info);
        break;
    case Typinfo::tkMethod:
        fits = IsRootMethod(ident);
        break;
    default:
        break;
    }
    if (!fits) {
        Fault(u"'" + ident + u"' is no value of the property");
    }
}

void CChecker::Bytes(std::string_view)
{
    NeedKind(u"a row of bytes", Typinfo::tkVariant);
}

void CChecker::BeginSet()
{
    NeedKind(u"a set", Typinfo::tkSet);
}

void CChecker::Element(std::string_view name)
{
    const TPropInfo* const info = Judged();
    const bool isSet = info != nullptr && info->getKind() == Typinfo::tkSet;
    if (isSet && !HasName(info->getPropType()->ElementType, System::FromUtf8(name))) {
        Fault(u"'" + System::FromUtf8(name) + u"' is no element of the set");
    }
}

void CChecker::BeginList()
{
    NeedKind(u"a list", Typinfo::tkVariant);
    ++mLevels.back().listDepth;
}

void CChecker::EndList()
{
    --mLevels.back().listDepth;
}

void CChecker::BeginCollection()
{
    const TPropInfo* const info = Judged();
    if (info == nullptr) {
        return;
    }
    const TPersistent* const value = mLevels.back().value;
    if (info->getKind() != Typinfo::tkClass ||
        (value != nullptr && !value->InheritsFrom(System::ClassOf<TCollection>()))) {
        Fault(u"the property has no collection");
    }
}

void CChecker::BeginItem(std::optional<Int64>)
{
    TLevel level;
    level.sample = Judged() == nullptr ? nullptr : mSamples.ItemOf(mLevels.back().value);
    mLevels.push_back(std::move(level));
}

void CChecker::EndItem()
{
    mLevels.pop_back();
}

} // namespace Classes::Form

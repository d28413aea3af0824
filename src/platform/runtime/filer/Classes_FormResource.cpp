// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormResource.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/internal/Classes_Loading.h"
#include "platform/runtime/filer/internal/Classes_ScopedValue.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

#include <algorithm>
#include <span>
#include <vector>

namespace Classes
{

using System::TMetaClass;
using System::UnicodeString;

namespace
{

/// Frames in frames: a design that has its own class in it would have no end.
constexpr int MaxNesting = 64;
thread_local constinit int Nesting = 0;

TComponent* ReadFrom(TResourceStream& stream, TComponent* instance)
{
    TReader reader(&stream);
    return reader.ReadRootComponent(instance);
}

} // namespace

bool InitInheritedComponent(TComponent* instance, TMetaClass* rootAncestor)
{
    if (instance == nullptr) {
        return false;
    }
    if (Nesting >= MaxNesting) {
        throw EReadError(u"The designs are nested deeper than " + UnicodeString(MaxNesting) +
                         u" levels, or contain themselves");
    }
    const GScopedValue nesting(Nesting, Nesting + 1);
    std::vector<const TMetaClass*> levels;
    for (const TMetaClass* type = instance->ClassType(); type != nullptr && type != rootAncestor;
         type = type->getParent()) {
        if (FormResourceExists(type)) {
            levels.push_back(type);
        }
    }
    CLoading loading;
    std::ranges::reverse(levels);
    for (const TMetaClass* const level : levels) {
        ReadComponentRes(level, instance);
    }
    loading.Finish();
    return !levels.empty();
}

bool ReadOwnDesign(TComponent& instance)
{
    return InitInheritedComponent(&instance, instance.ClassType()->getParent());
}

TComponent* ReadComponentRes(const UnicodeString& name, TComponent* instance)
{
    TResourceStream stream(name);
    return ReadFrom(stream, instance);
}

TComponent* ReadComponentRes(const TMetaClass* type, TComponent* instance)
{
    TResourceStream stream(type);
    return ReadFrom(stream, instance);
}

namespace Detail
{

namespace
{

std::span<const System::Byte> SpanOf(const void* bytes, std::size_t size)
{
    return {static_cast<const System::Byte*>(bytes), size};
}

} // namespace

void RegisterForm(const char* className, const void* bytes, std::size_t size)
{
    RegisterResource(System::FromUtf8(className), SpanOf(bytes, size));
}

void UnregisterForm(const char* className, const void* bytes, std::size_t size)
{
    UnregisterResource(System::FromUtf8(className), SpanOf(bytes, size));
}

} // namespace Detail

} // namespace Classes

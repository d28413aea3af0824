// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_savecomponent.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/visual/controls/Controls_Control.h"
#include "properties/resources/Paso_component.h"
#include "properties/resources/Paso_emendancestorstate.h"
#include "properties/resources/internal/Paso_cwriter.h"
#include "streams/BTL_STRM_Stream.h"

#include <memory>

namespace PASO
{

using Classes::TComponent;
using Classes::TStream;
using System::UnicodeString;

namespace
{

struct TDeleteComponent
{
    void operator()(TComponent* component) const { DeleteComponent(component); }
};

/// What `save` writes to a stream, as a file. An existing one stays if it can't be written.
template <class Save>
void SaveToFile(const UnicodeString& fileName, Save save)
{
    Classes::TMemoryStream memory;
    save(memory);
    BTL::CFileStream(fileName, Classes::fmCreate).CopyFrom(&memory, 0);
}

} // namespace

void SaveComponentToStream(TComponent* component, TStream* stream, bool asText)
{
    const std::unique_ptr<TComponent, TDeleteComponent> ancestor(
        component == nullptr ? nullptr : BuildComponent(component->ClassParent(), false));
    SaveComponentToStream(component, ancestor.get(), stream, asText);
}

void SaveComponentToStream(TComponent* component, TComponent* ancestor, TStream* stream, bool asText)
{
    if (stream == nullptr) {
        throw Classes::EStreamError(u"There is no stream to write a component to");
    }
    if (auto* const control = dynamic_cast<Controls::TControl*>(ancestor); control != nullptr) {
        control->setVisible(true);
    }
    EmendAncestorState(component, ancestor);
    Classes::TMemoryStream memory;
    CWriter(component, ancestor).Write(&memory);
    memory.setPosition(0);
    if (asText) {
        Classes::ObjectBinaryToText(&memory, stream);
    } else {
        stream->CopyFrom(&memory, 0);
    }
}

void SaveComponentToFile(TComponent* component, const UnicodeString& fileName, bool asText)
{
    SaveToFile(fileName, [&](TStream& stream) { SaveComponentToStream(component, &stream, asText); });
}

void SaveComponentToFile(TComponent* component, TComponent* ancestor, const UnicodeString& fileName,
                         bool asText)
{
    SaveToFile(fileName,
               [&](TStream& stream) { SaveComponentToStream(component, ancestor, &stream, asText); });
}

} // namespace PASO

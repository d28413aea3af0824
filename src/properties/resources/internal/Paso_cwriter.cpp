// SPDX-License-Identifier: MIT
#include "properties/resources/internal/Paso_cwriter.h"

#include "platform/visual/forms/Forms_Frame.h"
#include "properties/resources/Pasu_buildobject.h"

namespace PASO
{

using Classes::TComponent;
using Classes::TWriter;

namespace
{

constexpr int BufferSize = 4096;

} // namespace

void CWriter::Write(Classes::TStream* stream)
{
    TWriter writer(stream, BufferSize);
    writer.OnFindAncestor = {this, &CWriter::FindAncestor};
    writer.WriteDescendent(mRoot, mAncestor);
}

void CWriter::FindAncestor(TWriter*, TComponent* component, const System::UnicodeString& name,
                           TComponent*& ancestor, TComponent*& rootAncestor)
{
    // One that the writer has found stands in a frame, whose design says more than the class of this one.
    const bool isKnown =
        ancestor != nullptr || (mAncestor != nullptr && mAncestor->FindComponent(name) != nullptr);
    if (isKnown || dynamic_cast<Forms::TFrame*>(component) == nullptr) {
        return;
    }
    std::unique_ptr<TComponent> frame(Pasu_buildobject::BuildObject(component->ClassType(), nullptr));
    if (frame == nullptr) {
        return;
    }
    frame->setName(name);
    ancestor = rootAncestor = frame.get();
    mExtraAncestors.push_back(std::move(frame));
}

} // namespace PASO

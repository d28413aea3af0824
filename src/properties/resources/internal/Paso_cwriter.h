// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_Writer.h"

#include <memory>
#include <vector>

namespace PASO
{

/// Writes a component as what differs from another one. A frame that the other one doesn't have is compared
/// with a new one of its class.
class CWriter
{
public:
    /// `ancestor` may be null.
    CWriter(Classes::TComponent* root, Classes::TComponent* ancestor) : mRoot(root), mAncestor(ancestor) {}

    /// Writes the binary form to `stream`.
    void Write(Classes::TStream* stream);

private:
    void FindAncestor(Classes::TWriter* writer, Classes::TComponent* component,
                      const System::UnicodeString& name, Classes::TComponent*& ancestor,
                      Classes::TComponent*& rootAncestor);

    Classes::TComponent* mRoot;
    Classes::TComponent* mAncestor;
    /// The frames that were made to compare with.
    std::vector<std::unique_ptr<Classes::TComponent>> mExtraAncestors;
};

} // namespace PASO

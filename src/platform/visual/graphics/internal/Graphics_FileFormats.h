// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Graphic.h"

#include <memory>
#include <vector>

namespace Graphics
{

/// A type of files, and the class of the graphics in them.
struct TFileFormat
{
    System::UnicodeString extension;
    System::UnicodeString description;
    System::TMetaClass* type;
};

/// The register, the oldest first. It belongs to the main thread.
std::vector<TFileFormat>& FileFormats();

/// The class for an extension without its point, case aside; null if there is none.
System::TMetaClass* ClassOfExtension(const System::UnicodeString& extension);
/// The registered class of that name, case aside; null if there is none.
System::TMetaClass* GraphicClassOfName(const System::UnicodeString& name);
/// A new graphic; null if the class makes none.
std::unique_ptr<TGraphic> NewGraphic(const System::TMetaClass& type);

} // namespace Graphics

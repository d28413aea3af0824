// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_FileIcon.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/system/Host_FindIcon.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/graphics/internal/Graphics_IconFile.h"

#include <algorithm>

using Graphics::TIconImages;
using Graphics::TIconObject;

namespace
{

constexpr Types::TSize LargeSize{.cx = 32, .cy = 32};
constexpr Types::TSize SmallSize{.cx = 16, .cy = 16};
constexpr unsigned IconDirectory = 0x00010000;
constexpr unsigned PngSignature = 0x474E5089;
constexpr int OwnDirectorySize = 22;

/// A PNG picture as the one image of an icon file, whose directory has no room for sides above 256.
std::vector<System::Byte> AsIconFile(const std::vector<System::Byte>& png)
{
    const Graphics::CByteView picture(png);
    const auto side = [&](std::size_t offset) { return picture.High32(offset) & 0xFFU; };
    Graphics::CByteWriter file;
    file.Put32(IconDirectory);
    file.Put16(1);
    file.Put8(side(16));
    file.Put8(side(20));
    file.Put16(0);
    file.Put16(1);
    file.Put16(32);
    file.Put32(static_cast<unsigned>(png.size()));
    file.Put32(OwnDirectorySize);
    file.Append(png);
    return file.Take();
}

/// What a file begins with; 0 for a shorter one, and for a pipe or a device, which would have to be waited
/// for.
unsigned BeginOf(Classes::TFileStream& stream)
{
    const auto info = Host::QueryFile(stream.getHandle());
    if (!info.has_value() || (info->attributes & FILE_ATTRIBUTE_SYSTEM) != 0) {
        return 0;
    }
    System::Byte begin[4] = {};
    stream.Read(begin, sizeof begin);
    stream.setPosition(0);
    return Graphics::CByteView(begin).At32(0);
}

/// No images with the last error set where there is no icon.
System::GSharedBlock<TIconImages> IconOf(const System::WideChar* file)
{
    System::GSharedBlock<TIconImages> none(new TIconImages);
    try {
        Classes::TFileStream stream(file, Sysutils::fmOpenRead | Sysutils::fmShareDenyNone);
        // Most files that are asked for have none, and may be large.
        const unsigned begin = BeginOf(stream);
        if (begin != PngSignature && begin != IconDirectory) {
            ::SetLastError(ERROR_NOT_FOUND);
            return none;
        }
        std::vector<System::Byte> bytes = Graphics::ReadRest(&stream);
        return Graphics::OpenIconFile(begin == PngSignature ? AsIconFile(bytes) : std::move(bytes));
    } catch (const Classes::EFOpenError&) {
        ::SetLastError(ERROR_FILE_NOT_FOUND);
    } catch (const Sysutils::Exception&) {
        ::SetLastError(ERROR_INVALID_DATA);
    }
    return none;
}

/// An icon of the one image that is nearest to the size.
HICON NearestOf(TIconImages& images, const Types::TSize& size)
{
    auto* const icon = new TIconObject{System::GSharedBlock<TIconImages>(new TIconImages)};
    icon->images->file = images.file;
    icon->images->images.push_back(*images.Nearest(size));
    return icon;
}

HICON Fail(unsigned long error)
{
    ::SetLastError(error);
    return nullptr;
}

} // namespace

HICON ExtractIconW(HINSTANCE, const System::WideChar* file, unsigned index)
{
    const auto images = IconOf(file);
    if (images->images.empty()) {
        return nullptr;
    }
    return index == 0 ? new TIconObject{images} : Fail(ERROR_NOT_FOUND);
}

unsigned ExtractIconExW(const System::WideChar* file, int index, HICON* large, HICON* small, unsigned count)
{
    const auto images = IconOf(file);
    const unsigned found = images->images.empty() ? 0 : 1;
    if (index == -1 || (large == nullptr && small == nullptr)) {
        return found;
    }
    if (found == 0 || index != 0 || count == 0) {
        return 0;
    }
    if (large != nullptr) {
        *large = NearestOf(*images, LargeSize);
    }
    if (small != nullptr) {
        *small = NearestOf(*images, SmallSize);
    }
    return found;
}

HICON ExtractAssociatedIconW(HINSTANCE instance, const System::WideChar* file, unsigned short* index)
{
    if (index != nullptr) {
        *index = 0;
    }
    if (const HICON icon = ExtractIconW(instance, file, 0); icon != nullptr) {
        return icon;
    }
    const System::UnicodeString picture = Host::FindIcon(file);
    return picture.IsEmpty() ? nullptr : ExtractIconW(instance, picture.c_str(), 0);
}

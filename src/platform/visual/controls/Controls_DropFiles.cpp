// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_DropFiles.h"

#include <algorithm>

unsigned DragQueryFileW(HDROP drop, unsigned index, System::WideChar* buffer, unsigned size)
{
    constexpr unsigned Count = 0xFFFFFFFF;
    if (drop == nullptr) {
        return 0;
    }
    if (index == Count) {
        return static_cast<unsigned>(drop->files.size());
    }
    if (index >= drop->files.size()) {
        return 0;
    }
    const System::UnicodeString& path = drop->files[index];
    const auto length = static_cast<unsigned>(path.Length());
    if (buffer == nullptr) {
        return length;
    }
    if (size == 0) {
        return 0;
    }
    const unsigned written = std::min(length, size - 1);
    std::copy_n(path.c_str(), written, buffer);
    buffer[written] = 0;
    return written;
}

void DragFinish(HDROP drop)
{
    if (drop != nullptr) {
        drop->files.clear();
    }
}

// SPDX-License-Identifier: MIT
#pragma once

// Lists of folders and drives.

#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h" // IWYU pragma: export
#include "platform/visual/stdctrls/lists/Filectrl_DriveComboBox.h"    // IWYU pragma: export

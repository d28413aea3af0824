// SPDX-License-Identifier: MIT
#pragma once

// Labels, edits, buttons, boxes that are checked, and lists.

#include "platform/visual/stdctrls/Stdctrls_Label.h"               // IWYU pragma: export
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"      // IWYU pragma: export
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"    // IWYU pragma: export
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"    // IWYU pragma: export
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h" // IWYU pragma: export
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"          // IWYU pragma: export
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"          // IWYU pragma: export
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"      // IWYU pragma: export
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"       // IWYU pragma: export

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_DrawText.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/graphics/Graphics_Graphic.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Graphics_Pen.h"
#include "platform/visual/graphics/Graphics_Picture.h"
#include "platform/visual/graphics/Graphics_WICImage.h"

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

// The two forms of a form resource: the binary one, which programs read, and a text, which people do.
// `docs/FORMS.md` tells both.
//
//     TFileStream text(u"Main.form", fmOpenRead | fmShareDenyWrite);
//     TMemoryStream binary;
//     ObjectTextToBinary(&text, &binary);

namespace Classes
{

/// Writes the text of the binary form that `input` has at its position, in UTF-8, and leaves `input` behind
/// it. `EReadError` if there is none, with class, path of the component, property and offset.
TRS8_BTL_API void ObjectBinaryToText(TStream* input, TStream* output);

/// Writes the binary form of the text that `input` has from its position up to its end. `EParserError`,
/// with line and column, if it isn't the text of one form; nothing is written then.
TRS8_BTL_API void ObjectTextToBinary(TStream* input, TStream* output);

/// As `ObjectTextToBinary`, as a resource with a head in front, which `TStream::ReadComponentRes` reads; it
/// is named as the class of the form.
TRS8_BTL_API void ObjectTextToResource(TStream* input, TStream* output);

/// As `ObjectBinaryToText`, of a resource. `EInvalidImage` if `input` has none.
TRS8_BTL_API void ObjectResourceToText(TStream* input, TStream* output);

/// What a form resource is: its binary form, its text, or none of them.
enum TStreamOriginalFormat
{
    sofUnknown,
    sofBinary,
    sofText,
    sofUTF8Text
};

/// Tells which form begins at the position of `stream`, which stays; the binary one may be a resource.
/// `sofUTF8Text` is one with a byte order mark; a text without is in UTF-8 as well.
TRS8_BTL_API TStreamOriginalFormat TestStreamFormat(TStream* stream);

} // namespace Classes

// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormText.h"

#include "platform/runtime/classes/internal/Classes_NeedStream.h"
#include "platform/runtime/filer/internal/Classes_FormFile.h"
#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormOutput.h"
#include "platform/runtime/filer/internal/Classes_FormParser.h"
#include "platform/runtime/filer/internal/Classes_FormTextSink.h"
#include "platform/runtime/filer/internal/Classes_FormWalk.h"

#include <algorithm>

namespace Classes
{

using System::Int64;
using System::UnicodeString;

namespace
{

constexpr std::size_t BlockSize = 0x10000;

/// Whether `text`, in any case, stands at the front of `begin`.
bool BeginsWith(std::string_view begin, std::string_view text)
{
    return Form::SameAsciiText(begin.substr(0, text.size()), text);
}

/// The class of a form that was just made.
UnicodeString ClassOfForm(std::string_view form)
{
    TMemoryStream stream;
    stream.WriteBuffer(form.data(), static_cast<Int64>(form.size()));
    stream.setPosition(0);
    Form::CInput input(stream, BlockSize);
    input.Take(Form::Signature.size());
    Int64 place = 0;
    input.TakePrefix(place);
    return System::FromUtf8(input.TakeIdentifier());
}

/// Tells `sink` the text that `input` has up to its end.
void Compile(TStream* input, Form::CBinarySink& sink)
{
    Form::CInput text(NeedStream(input), BlockSize);
    Form::CParser(text.TakeRest(), sink).Parse();
}

} // namespace

void ObjectBinaryToText(TStream* input, TStream* output)
{
    Form::CInput bytes(NeedStream(input), BlockSize);
    Form::CTextSink sink(NeedStream(output));
    Form::WalkBinary(bytes, sink);
    sink.Flush();
    bytes.GiveBack();
}

void ObjectTextToBinary(TStream* input, TStream* output)
{
    TStream& target = NeedStream(output);
    Form::CBinarySink sink;
    Compile(input, sink);
    const std::string& bytes = sink.getBytes();
    target.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

void ObjectTextToResource(TStream* input, TStream* output)
{
    TStream& target = NeedStream(output);
    Form::CBinarySink sink;
    Compile(input, sink);
    Form::WriteResource(target, ClassOfForm(sink.getBytes()), sink.getBytes());
}

void ObjectResourceToText(TStream* input, TStream* output)
{
    NeedStream(output);
    NeedStream(input).ReadResHeader();
    ObjectBinaryToText(input, output);
}

TStreamOriginalFormat TestStreamFormat(TStream* stream)
{
    Form::CInput input(NeedStream(stream), Form::Signature.size());
    const std::string_view begin = input.PeekUpTo(64);
    input.GiveBack();
    if (begin.starts_with(Form::Signature) || begin.starts_with(Form::ResourceMark)) {
        return sofBinary;
    }
    if (begin.starts_with(Form::ByteOrderMark)) {
        return sofUTF8Text;
    }
    const std::size_t blanks = std::min(begin.find_first_not_of(" \t\r\n"), begin.size());
    const std::string_view word = begin.substr(blanks);
    const bool isText =
        BeginsWith(word, "object") || BeginsWith(word, "inherited") || BeginsWith(word, "inline");
    return isText ? sofText : sofUnknown;
}

} // namespace Classes

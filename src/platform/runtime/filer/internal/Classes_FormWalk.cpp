// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormWalk.h"

#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormPath.h"

#include <string>

namespace Classes::Form
{

using System::Int64;
using System::UnicodeString;

namespace
{

class CWalker
{
public:
    CWalker(CInput& input, ASink& sink) : mInput(input), mSink(sink) {}

    void Walk()
    {
        if (mInput.Take(Signature.size()) != Signature) {
            throw EReadError(u"The form doesn't begin with TPF0");
        }
        try {
            WalkObjects();
        } catch (const EReadError& fault) {
            throw EReadError(u"Error reading " + mPath.AsText() + u" at byte " +
                             UnicodeString(mInput.Offset()) + u": " + fault.getMessage());
        }
    }

private:
    void Enter()
    {
        if (++mDepth > MaxDepth) {
            mInput.Fail(u"The form is nested deeper than " + UnicodeString(MaxDepth) + u" levels");
        }
    }

    bool TakeEnd()
    {
        if (mInput.Peek() != 0) {
            return false;
        }
        mInput.Take(1);
        return true;
    }

    /// All components from the root on, one after the other: theirs are the only levels without end marks of
    /// values in between.
    void WalkObjects()
    {
        BeginObject();
        while (!mPath.IsEmpty()) {
            if (TakeEnd()) {
                mSink.EndObject();
                mPath.Leave();
                --mDepth;
            } else {
                BeginObject();
            }
        }
    }

    void BeginObject()
    {
        Enter();
        Int64 childPos = 0;
        const TFilerFlags flags = mInput.TakePrefix(childPos);
        TObjectHead head;
        // The bytes may move when more of them are read.
        const std::string className(mInput.TakeIdentifier());
        const std::string name(mInput.TakeShort());
        // In the text it would be the word of the grammar.
        if (SameAsciiText(className, "inline")) {
            mInput.Fail(u"No class is called inline");
        }
        if (!name.empty() && !IsIdentifier(name)) {
            mInput.Fail(u"The name of a component of the class " + System::FromUtf8(className) +
                        u" is no identifier");
        }
        mPath.Enter(className, name);
        head.isInherited = flags.Contains(ffInherited);
        head.isInline = flags.Contains(ffInline);
        if (flags.Contains(ffChildPos)) {
            head.childPos = childPos;
        }
        head.className = className;
        head.name = name;
        mSink.BeginObject(head);
        WalkProperties();
    }

    void WalkProperties()
    {
        while (!TakeEnd()) {
            const std::string_view path = mInput.TakePath();
            const std::string outer = mPath.getProperty();
            mPath.setProperty(outer.empty() ? std::string(path) : outer + "." + std::string(path));
            mSink.BeginProperty(path);
            WalkValue();
            mPath.setProperty(outer);
        }
    }

    void WalkValue()
    {
        const TValueType type = mInput.TakeType();
        switch (type) {
        case vaNull:
        case vaNil:
        case vaFalse:
        case vaTrue:
            return mSink.Constant(type);
        case vaInt8:
        case vaInt16:
        case vaInt32:
        case vaInt64:
            return mSink.Integer(mInput.TakeInteger(type));
        case vaExtended:
        case vaSingle:
        case vaDouble:
        case vaDate:
        case vaCurrency:
            return mSink.Float(type, mInput.Take(FloatSize(type)));
        case vaString:
        case vaLString:
        case vaWString:
        case vaUTF8String:
            return WalkText(type);
        case vaIdent:
            return mSink.Ident(mInput.TakePath());
        case vaBinary:
            return mSink.Bytes(mInput.Take(mInput.TakeCount()));
        case vaSet:
            return WalkSet();
        case vaList:
            return WalkList();
        case vaCollection:
            return WalkCollection();
        }
    }

    void WalkText(TValueType type)
    {
        if (type == vaUTF8String) {
            return mSink.Text(mInput.TakeTextBytes(type));
        }
        if (type != vaWString) {
            const Int64 start = mInput.Offset();
            const std::string_view bytes = mInput.TakeTextBytes(type);
            if (IsAscii(bytes)) {
                return mSink.Text(bytes);
            }
            mInput.GoTo(start);
        }
        const UnicodeString text = mInput.TakeText(type);
        if (HasLoneSurrogate(text)) {
            mSink.WideText(text);
        } else {
            mSink.Text(System::ToUtf8(text));
        }
    }

    void WalkSet()
    {
        mSink.BeginSet();
        while (!TakeEnd()) {
            mSink.Element(mInput.TakeIdentifier());
        }
        mSink.EndSet();
    }

    void WalkList()
    {
        Enter();
        mSink.BeginList();
        while (mInput.Peek() != vaNull) {
            WalkValue();
        }
        mInput.Take(1);
        mSink.EndList();
        --mDepth;
    }

    void WalkCollection()
    {
        Enter();
        mSink.BeginCollection();
        const std::string property = mPath.getProperty();
        for (int index = 0; !TakeEnd(); ++index) {
            mPath.setProperty(property + "[" + std::to_string(index) + "]");
            TValueType type = mInput.TakeType();
            std::optional<Int64> place;
            if (type != vaList) {
                place = mInput.TakeInteger(type);
                type = mInput.TakeType();
            }
            if (type != vaList) {
                mInput.FailType(type);
            }
            mSink.BeginItem(place);
            WalkProperties();
            mSink.EndItem();
        }
        mPath.setProperty(property);
        mSink.EndCollection();
        --mDepth;
    }

    CInput& mInput;
    ASink& mSink;
    CFormPath mPath;
    int mDepth = 0;
};

} // namespace

void WalkBinary(CInput& input, ASink& sink)
{
    CWalker(input, sink).Walk();
}

} // namespace Classes::Form

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/runtime/classes/Classes_Component.h"

namespace Classes
{

class TStream;

/// Reads, or writes, a value that an object has beyond its published properties.
using TReaderProc = System::TClosure<void(TReader&)>;
using TWriterProc = System::TClosure<void(TWriter&)>;
/// Reads, or writes, such a value as plain bytes, at the position of the stream.
using TStreamProc = System::TClosure<void(TStream*)>;

/// The code in front of each value of a form resource, which tells its form.
enum TValueType : System::Byte
{
    vaNull,
    vaList,
    vaInt8,
    vaInt16,
    vaInt32,
    vaExtended,
    vaString,
    vaIdent,
    vaFalse,
    vaTrue,
    vaBinary,
    vaSet,
    vaLString,
    vaNil,
    vaCollection,
    vaSingle,
    vaCurrency,
    vaDate,
    vaWString,
    vaInt64,
    vaUTF8String,
    vaDouble
};

/// What stands in front of a component: it is one of an ancestor form, it has a place of its own among its
/// parent's children, it has a design of its own.
enum TFilerFlag
{
    ffInherited,
    ffChildPos,
    ffInline
};

/// All that stands in front of a component.
using TFilerFlags = System::Set<TFilerFlag, ffInherited, ffInline>;

/// What is common to those that read and write the design of components. A class that has more to keep than
/// its published properties tells a filer of it:
///
///     void TGauge::DefineProperties(TFiler& filer)
///     {
///         TComponent::DefineProperties(filer);
///         filer.DefineProperty(
///             u"Ticks", [this](TReader& reader) { mTicks = reader.ReadInteger(); },
///             [this](TWriter& writer) { writer.WriteInteger(mTicks); }, mTicks != 0);
///     }
class TRS8_BTL_API TFiler : public System::TObject
{
    TRS8_BTL_CLASS(TFiler, System::TObject)

public:
    ~TFiler() override;

    /// Says that the object at hand has the value `name`, an identifier. A reader calls `read` if this is
    /// the value that it has come to; a writer calls `write` if `hasData`, which is false for a value that
    /// needn't be kept, as one that `getAncestor` has too.
    virtual void DefineProperty(const System::UnicodeString& name, const TReaderProc& read,
                                const TWriterProc& write, bool hasData) = 0;
    /// As `DefineProperty`, for a value that is a row of bytes.
    virtual void DefineBinaryProperty(const System::UnicodeString& name, const TStreamProc& read,
                                      const TStreamProc& write, bool hasData) = 0;
    /// Brings the stream to where the filer is: what is gathered is written, what was read ahead given back.
    virtual void FlushBuffer() = 0;

    /// The form, frame or module that is read or written; null before.
    TComponent* getRoot() const noexcept { return mRoot; }
    void setRoot(TComponent* root) noexcept { mRoot = mLookupRoot = root; }
    /// Whose components are meant by bare names: the root, or the frame within it that is being dealt with.
    TComponent* getLookupRoot() const noexcept { return mLookupRoot; }
    /// What the object at hand is compared with, of its own class; null if it is written whole, and always
    /// of a reader.
    TPersistent* getAncestor() const noexcept { return mAncestor; }
    void setAncestor(TPersistent* ancestor) noexcept { mAncestor = ancestor; }
    /// Whether components are written without their children; false at first.
    bool getIgnoreChildren() const noexcept { return mIgnoreChildren; }
    void setIgnoreChildren(bool ignore) noexcept { mIgnoreChildren = ignore; }

protected:
    TFiler() = default;

    TComponent* mRoot = nullptr;
    TComponent* mLookupRoot = nullptr;
    TPersistent* mAncestor = nullptr;
    bool mIgnoreChildren = false;
};

} // namespace Classes

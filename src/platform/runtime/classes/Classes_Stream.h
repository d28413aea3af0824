// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Encoding.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/typinfo/System_Object.h"

#include <memory>
#include <span>
#include <vector>

namespace Host
{
class FileBuffer;
}

namespace Classes
{

class TComponent;

/// From where `Seek` counts.
enum TSeekOrigin
{
    soBeginning,
    soCurrent,
    soEnd
};

// The mode word of a file stream: how it is opened, plus what others may do with the file meanwhile.

using Sysutils::fmCreate;
using Sysutils::fmOpenRead;
using Sysutils::fmOpenReadWrite;
using Sysutils::fmOpenWrite;
using Sysutils::fmShareCompat;
using Sysutils::fmShareDenyNone;
using Sysutils::fmShareDenyRead;
using Sysutils::fmShareDenyWrite;
using Sysutils::fmShareExclusive;

/// A row of bytes with a position. A stream belongs to one thread at a time.
///
///     TFileStream file(u"data.bin", fmOpenRead | fmShareDenyWrite);
///     char head[4];
///     file.ReadBuffer(head, sizeof head);                         // `EReadError` if there are fewer
///     TMemoryStream copy;
///     copy.CopyFrom(&file, 0);                                    // all of it
class TRS8_BTL_API TStream : public System::TObject
{
    TRS8_BTL_CLASS(TStream, System::TObject)

public:
    ~TStream() override;

    /// Reads up to `count` bytes and tells how many; less than asked for only at the end or on a failure. A
    /// `count` below 1 reads nothing.
    virtual System::Int64 Read(void* buffer, System::Int64 count) = 0;
    /// Writes up to `count` bytes and tells how many; a `count` below 1 writes nothing.
    virtual System::Int64 Write(const void* buffer, System::Int64 count) = 0;
    /// Moves the position and tells the new one. It may lie behind the end; a target in front of the
    /// beginning leads to the beginning in memory. Files give -1 for it, as for one that the host can't have,
    /// and stay where they are.
    virtual System::Int64 Seek(System::Int64 offset, TSeekOrigin origin) = 0;

    System::Int64 getPosition() const;
    void setPosition(System::Int64 position) { Seek(position, soBeginning); }
    virtual System::Int64 getSize() const;
    /// Cuts or lengthens the stream, with zeros. A file is at its new end then; in memory the position stays
    /// within the size. `EStreamError` if it can't; nothing happens on a stream that can't be resized at all.
    /// A negative size counts as 0.
    virtual void setSize(System::Int64 size);

    /// Reads `count` bytes; `EReadError` if there are fewer.
    void ReadBuffer(void* buffer, System::Int64 count);
    /// Writes `count` bytes; `EWriteError` if they can't all be written, with the host's reason where a
    /// handle has one, and with the path of a `TFileStream`.
    void WriteBuffer(const void* buffer, System::Int64 count);
    /// Copies `count` bytes from the position of `source`, or all of it from its beginning if `count` is
    /// below 1, and tells how many. `EReadError` if the source has fewer; null has none. A source that can't
    /// seek, as a pipe, is copied from where it is up to its end; `EReadError` for a device that has none, as
    /// that of zeros.
    System::Int64 CopyFrom(TStream* source, System::Int64 count);

    // Components in the binary form of form resources, with a `TReader` or a `TWriter` of their own.

    /// Reads the component at the position, with all in it, into `instance`, or into a new one without an
    /// owner if that is null, and gives it. The stream is behind it then. Raises as
    /// `TReader::ReadRootComponent`.
    TComponent* ReadComponent(TComponent* instance);
    /// As `ReadComponent`, from a resource as `WriteComponentRes` or `ObjectTextToResource` writes it.
    TComponent* ReadComponentRes(TComponent* instance);
    /// Writes a component with all in it. Raises as `TWriter::WriteDescendent`, also for null.
    void WriteComponent(TComponent* instance) { WriteDescendent(instance, nullptr); }
    /// As `WriteComponent`, as a resource with a head that has its name and size. The name, of 1 to 255 bytes
    /// of UTF-8, is written in capitals; `EWriteError` for another one.
    void WriteComponentRes(const System::UnicodeString& name, TComponent* instance)
    {
        WriteDescendentRes(name, instance, nullptr);
    }
    /// As `WriteComponent`, what makes `instance` differ from `ancestor`.
    void WriteDescendent(TComponent* instance, TComponent* ancestor);
    /// As `WriteComponentRes`, what makes `instance` differ from `ancestor`.
    void WriteDescendentRes(const System::UnicodeString& name, TComponent* instance, TComponent* ancestor);
    /// Goes behind the head of a resource. `EInvalidImage` if none is here; the stream is where it was then,
    /// if it can seek.
    void ReadResHeader();

private:
    friend class CStreamWindow;

    /// Bytes from the position on that are in memory anyway, at least one if there is one; empty at the end
    /// and where only `Read` can tell. Valid until the next call.
    virtual std::string_view Window();
    /// Whether an empty `Window` is the end of what can be read.
    virtual bool ShowsEnd() const noexcept;
    /// Moves behind `count` bytes that `Window` has just shown.
    virtual void PassWindow(System::Int64 count);
    /// Whether the stream, once it gave a byte, never ends.
    virtual bool IsEndless() const noexcept;
    /// What a write of no bytes raises, right behind it.
    [[noreturn]] virtual void RaiseWriteError() const;
};

/// A stream over memory that somebody else may own.
class TRS8_BTL_API TCustomMemoryStream : public TStream
{
    TRS8_BTL_CLASS(TCustomMemoryStream, TStream)

public:
    ~TCustomMemoryStream() override;

    System::Int64 Read(void* buffer, System::Int64 count) override;
    System::Int64 Seek(System::Int64 offset, TSeekOrigin origin) override;
    System::Int64 getSize() const override { return static_cast<System::Int64>(AsView().size()); }

    /// The content; null if there is none. Valid until the next write.
    const void* getMemory() const { return AsView().data(); }
    virtual std::string_view AsView() const noexcept = 0;
    /// Writes the whole content to `stream`, at its position.
    void SaveToStream(TStream* stream) const;
    /// Makes the content the whole file. It isn't done in one step: a crash leaves a part. `EFCreateError` if
    /// the file can't be made, `EWriteError` if the host doesn't take all of it.
    void SaveToFile(const System::UnicodeString& path) const;

protected:
    System::Int64 mPosition = 0;

private:
    std::string_view Window() override;
    bool ShowsEnd() const noexcept override;
};

/// A stream in memory of its own.
class TRS8_BTL_API TMemoryStream : public TCustomMemoryStream
{
    TRS8_BTL_CLASS(TMemoryStream, TCustomMemoryStream)

public:
    TMemoryStream() = default;
    ~TMemoryStream() override;

    System::Int64 Write(const void* buffer, System::Int64 count) override;
    /// `Sysutils::EOutOfMemory` if the memory isn't there.
    void setSize(System::Int64 size) override;
    std::string_view AsView() const noexcept override { return {mBytes.data(), mBytes.size()}; }

    System::Int64 getCapacity() const noexcept { return static_cast<System::Int64>(mBytes.capacity()); }
    /// Makes room, so that writes up to there move nothing. Less than the size is ignored.
    void setCapacity(System::Int64 capacity);
    /// Gives the memory up; the position is 0.
    void Clear();
    /// Takes the whole of `stream`, from its beginning, in place of the content, and goes to the beginning.
    /// `EReadError` for a device without an end, `Sysutils::EOutOfMemory` if the memory isn't there.
    void LoadFromStream(TStream* stream);
    /// Takes the whole file in place of the content, and goes to the beginning. `EFOpenError` if the file
    /// can't be opened.
    void LoadFromFile(const System::UnicodeString& path);

protected:
    explicit TMemoryStream(std::string_view bytes) : mBytes(bytes.begin(), bytes.end()) {}

private:
    std::vector<char> mBytes;
};

/// A memory stream that hands its bytes over as a value.
class TRS8_BTL_API TBytesStream : public TMemoryStream
{
    TRS8_BTL_CLASS(TBytesStream, TMemoryStream)

public:
    TBytesStream() = default;
    explicit TBytesStream(std::span<const System::Byte> bytes);
    ~TBytesStream() override;

    std::vector<System::Byte> getBytes() const;

protected:
    explicit TBytesStream(std::string_view bytes) : TMemoryStream(bytes) {}
};

/// A memory stream that holds a text in an encoding.
class TRS8_BTL_API TStringStream : public TBytesStream
{
    TRS8_BTL_CLASS(TStringStream, TBytesStream)

public:
    /// Empty, in the system's code page.
    TStringStream();
    /// Holds the bytes of `text`; the encoding is the system's code page.
    explicit TStringStream(const System::AnsiString& text);
    /// Holds the bytes of `text`; the encoding is UTF-8.
    explicit TStringStream(const System::UTF8String& text);
    /// Holds `text` in `encoding`, the system's code page if that is null. The stream deletes an encoding
    /// that it owns, unless it is one of the standard ones.
    explicit TStringStream(const System::UnicodeString& text, Sysutils::TEncoding* encoding = nullptr,
                           bool ownsEncoding = true);
    ~TStringStream() override;

    Sysutils::TEncoding* getEncoding() const noexcept { return mEncoding; }
    /// The whole content as text.
    System::UnicodeString getDataString() const;
    /// The text of up to `count` bytes from the position on.
    System::UnicodeString ReadString(System::Int64 count);
    /// Writes the text in the encoding, without a byte order mark.
    void WriteString(const System::UnicodeString& text);

private:
    Sysutils::TEncoding* mEncoding;
    bool mOwnsEncoding = false;
};

/// A stream over a file that somebody else opened and will close. It reads and writes at once, since others
/// may use the handle too. A pipe, a socket or a terminal has no position, which shows as -1; who looks ahead
/// there takes a single byte from it.
class TRS8_BTL_API THandleStream : public TStream
{
    TRS8_BTL_CLASS(THandleStream, TStream)

public:
    /// 0 is no handle and gives nothing. The standard streams are those of `Host::OpenStandardStream`, as
    /// text `BTL::StandardInput` and its kin.
    explicit THandleStream(System::NativeInt handle) noexcept;
    ~THandleStream() override;

    System::Int64 Read(void* buffer, System::Int64 count) override;
    System::Int64 Write(const void* buffer, System::Int64 count) override;
    System::Int64 Seek(System::Int64 offset, TSeekOrigin origin) override;
    System::Int64 getSize() const override;
    void setSize(System::Int64 size) override;

    /// Hands gathered bytes to the host, so that other programs see them. `EWriteError` if it doesn't take
    /// them.
    virtual void Flush() const;
    /// From here on the stream works without a buffer, at the handle's own position. `EWriteError` as from
    /// `Flush`.
    System::NativeInt getHandle() const;

protected:
    /// From here on nobody else uses the handle, and a plain file gets a buffer.
    void BeginBuffer();
    /// Writes what is gathered and works without a buffer again; a failure sets the last error.
    void EndBuffer() noexcept;
    /// The handle, which the stream has no more from here on. To be called without a buffer.
    System::NativeInt ReleaseHandle() noexcept;
    /// Tells the reason by the last error.
    [[noreturn]] void RaiseWriteError() const override;

private:
    std::string_view Window() override;
    bool ShowsEnd() const noexcept override;
    void PassWindow(System::Int64 count) override;
    bool IsEndless() const noexcept override;
    /// What a message calls the stream's file; nothing for a handle.
    virtual System::UnicodeString FileInMessage() const;
    std::string_view Peek();
    std::string_view Ahead();
    void CheckGathered() const;

    System::NativeInt mHandle;
    // Whoever asks for the handle ends the buffer, and uses it from then on.
    mutable std::unique_ptr<Host::FileBuffer> mBuffer;
    mutable bool mIsShared = true;
    std::unique_ptr<char[]> mPeeked;
    // What was taken from a handle that can't seek, and not yet read.
    std::size_t mAheadStart = 0;
    std::size_t mAheadSize = 0;
};

/// A stream over a file that it opens and closes itself. Reads are buffered. Small writes in a row are
/// gathered, up to 64 KB, once the host has set aside room for them: a full disk shows at once, in fewer
/// bytes written. That they are gathered shows nowhere among the streams and file routines of this process:
/// each sees at once what the others wrote.
///
/// Others, which are standard streams and other programs, see gathered bytes once the host has them: when
/// they are more than the buffer holds or go on elsewhere, when the file is read or its size asked for, with
/// `Flush` and `getHandle`, and when the stream or the program ends. A crash of the program loses what was
/// gathered last. What others write is seen where nothing was read ahead yet, and everywhere behind a seek
/// from the beginning or the end.
///
/// What can't seek, as a named pipe, is read ahead too; the stream keeps what it has taken from it.
///
/// If gathered bytes can't be written after all, as when the disk itself fails, the next operation raises
/// `EWriteError`; the destructor sets the last error instead. `Close` leaves nothing to it.
class TRS8_BTL_API TFileStream : public THandleStream
{
    TRS8_BTL_CLASS(TFileStream, THandleStream)

public:
    /// `mode` is an open mode plus a share mode. `fmCreate` empties a file that exists. `EFCreateError` or
    /// `EFOpenError` with the path and the reason if the host refuses, or another opener does who doesn't
    /// share the file.
    TFileStream(const System::UnicodeString& path, System::Word mode);
    ~TFileStream() override;

    const System::UnicodeString& getFileName() const noexcept { return mFileName; }

    /// Writes what is gathered and closes the file; nothing can be done with the stream after that.
    /// `EWriteError` if the host refuses either: what was written may be lost then. Once closed it stays so.
    void Close();

private:
    System::UnicodeString FileInMessage() const override;

    System::UnicodeString mFileName;
};

/// The type of binary resources.
inline constexpr const System::WideChar* ResourceRawData = u"RCDATA";

/// Adds a binary resource to those of the program, in place of an older one of the same name and type that
/// lies in the same module, which is the program or one of its libraries; of several modules the last one
/// holds. Case doesn't count. `bytes` must live until `UnregisterResource`, or as long as the program.
TRS8_BTL_API void RegisterResource(const System::UnicodeString& name, std::span<const System::Byte> bytes,
                                   const System::UnicodeString& type = ResourceRawData);
/// Takes the resource that has these very bytes from those of the program, as a library does that is
/// unloaded.
TRS8_BTL_API void UnregisterResource(const System::UnicodeString& name, std::span<const System::Byte> bytes,
                                     const System::UnicodeString& type = ResourceRawData);
TRS8_BTL_API bool ResourceExists(const System::UnicodeString& name,
                                 const System::UnicodeString& type = ResourceRawData);

/// Whether `TResourceStream` finds the form resource of this class itself; false for null.
TRS8_BTL_API bool FormResourceExists(const System::TMetaClass* type);

/// A resource of the program as a stream, which can't be written.
class TRS8_BTL_API TResourceStream : public TCustomMemoryStream
{
    TRS8_BTL_CLASS(TResourceStream, TCustomMemoryStream)

public:
    /// `EResNotFound` if the program has no such resource.
    explicit TResourceStream(const System::UnicodeString& name,
                             const System::UnicodeString& type = ResourceRawData);
    /// The form resource of a class: that of its description, or else the raw one of its name, of the class's
    /// own module rather than of another one. `EResNotFound` if there is none, and for null.
    explicit TResourceStream(const System::TMetaClass* type);
    ~TResourceStream() override;

    /// Always raises `EStreamError`.
    System::Int64 Write(const void* buffer, System::Int64 count) override;
    std::string_view AsView() const noexcept override { return mBytes; }

private:
    std::string_view mBytes;
};

} // namespace Classes

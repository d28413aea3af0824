// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

namespace Classes
{

/// The base of faults in streams. Raised itself for a null stream, for one that takes no writing or can't
/// seek where a place is needed, and for a size that can't be set.
///
///     try {
///         TFileStream file(path, fmOpenRead | fmShareDenyWrite);
///         file.ReadBuffer(head, sizeof head);
///     } catch (const EStreamError& error) {   // `EFOpenError` or `EReadError`
///         std::cerr << error.what() << '\n';
///     }
class TRS8_BTL_API EStreamError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EStreamError() override;
};

/// The base of `EFCreateError` and `EFOpenError`, for handlers; never raised itself.
class TRS8_BTL_API EFileStreamError : public EStreamError
{
public:
    using EStreamError::EStreamError;
    ~EFileStreamError() override;
};

/// A file that the host doesn't let be made or emptied, or that somebody has open without sharing it. The
/// message has the path and the host's reason.
class TRS8_BTL_API EFCreateError : public EFileStreamError
{
public:
    using EFileStreamError::EFileStreamError;
    ~EFCreateError() override;
};

/// A file that is missing, that the user may not open so, or that somebody has open without sharing it. The
/// message has the path and the host's reason.
class TRS8_BTL_API EFOpenError : public EFileStreamError
{
public:
    using EFileStreamError::EFileStreamError;
    ~EFOpenError() override;
};

/// The base of faults in reading and writing. Raised itself if two classes are registered under one name.
class TRS8_BTL_API EFilerError : public EStreamError
{
public:
    using EStreamError::EStreamError;
    ~EFilerError() override;
};

/// A stream ends, or fails, before all bytes are read that were asked for; it then stands behind those that
/// there were.
class TRS8_BTL_API EReadError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EReadError() override;
};

/// A stream takes fewer bytes than it was given, as on a full disk. A file stream may raise it for bytes that
/// it took before and had gathered.
class TRS8_BTL_API EWriteError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EWriteError() override;
};

/// The text of a form that isn't one. The message begins with the place.
class TRS8_BTL_API EParserError : public Sysutils::Exception
{
public:
    /// `reason` goes behind the place in the message.
    EParserError(const System::UnicodeString& reason, int line, int column);
    ~EParserError() override;

    /// Both count from 1; the column in characters.
    int getLine() const noexcept { return mLine; }
    int getColumn() const noexcept { return mColumn; }
    /// The message without the place.
    const System::UnicodeString& getReason() const noexcept { return mReason; }

private:
    System::UnicodeString mReason;
    int mLine;
    int mColumn;
};

/// A stream that has no resource where one is to be read, see `TStream::ReadResHeader`.
class TRS8_BTL_API EInvalidImage : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EInvalidImage() override;
};

/// No class of the name in the message is registered, see `FindClass`.
class TRS8_BTL_API EClassNotFound : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EClassNotFound() override;
};

/// The program has no resource of the name in the message, see `RegisterResource`.
class TRS8_BTL_API EResNotFound : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EResNotFound() override;
};

/// An index outside the items of a collection or the parts of a component.
class TRS8_BTL_API EListError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EListError() override;
};

/// An index outside a string list; a change of lines or places in a sorted one, which keeps its order itself;
/// a line that it has already, with `dupError`; a capacity below the count.
class TRS8_BTL_API EStringListError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EStringListError() override;
};

/// A name of a component that is no identifier, or that another component of its owner has; an owner that
/// would own itself.
class TRS8_BTL_API EComponentError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EComponentError() override;
};

/// An item of another class than its collection holds, or a collection of a class that makes no items.
class TRS8_BTL_API EInvalidOperation : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EInvalidOperation() override;
};

/// A thread that the host refuses to create, one that is started twice or would wait for itself, and what
/// belongs to another thread than the one that asks.
class TRS8_BTL_API EThread : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EThread() override;
};

} // namespace Classes

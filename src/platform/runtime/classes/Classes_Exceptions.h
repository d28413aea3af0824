// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

namespace Classes
{

/// The base of faults in streams; also a stream that is missing or takes no writing.
class TRS8_BTL_API EStreamError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EStreamError() override;
};

/// The base of faults in making and opening files for streams.
class TRS8_BTL_API EFileStreamError : public EStreamError
{
public:
    using EStreamError::EStreamError;
    ~EFileStreamError() override;
};

/// A file that can't be created.
class TRS8_BTL_API EFCreateError : public EFileStreamError
{
public:
    using EFileStreamError::EFileStreamError;
    ~EFCreateError() override;
};

/// A file that can't be opened.
class TRS8_BTL_API EFOpenError : public EFileStreamError
{
public:
    using EFileStreamError::EFileStreamError;
    ~EFOpenError() override;
};

/// The base of faults in reading and writing; also a class that is registered twice under one name.
class TRS8_BTL_API EFilerError : public EStreamError
{
public:
    using EStreamError::EStreamError;
    ~EFilerError() override;
};

/// A stream that holds less than is to be read.
class TRS8_BTL_API EReadError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EReadError() override;
};

/// A stream that takes less than is to be written.
class TRS8_BTL_API EWriteError : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EWriteError() override;
};

/// No class of that name is registered.
class TRS8_BTL_API EClassNotFound : public EFilerError
{
public:
    using EFilerError::EFilerError;
    ~EClassNotFound() override;
};

/// The program has no resource of that name.
class TRS8_BTL_API EResNotFound : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EResNotFound() override;
};

/// An index outside a list of objects.
class TRS8_BTL_API EListError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EListError() override;
};

/// An index outside a string list, or an operation that its settings forbid.
class TRS8_BTL_API EStringListError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EStringListError() override;
};

/// A component's name that is no identifier or is taken.
class TRS8_BTL_API EComponentError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EComponentError() override;
};

/// An operation that the object doesn't allow, as an item of the wrong class for a collection.
class TRS8_BTL_API EInvalidOperation : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EInvalidOperation() override;
};

} // namespace Classes

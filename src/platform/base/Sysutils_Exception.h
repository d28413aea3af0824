// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <exception>

namespace Sysutils
{

/// Base of all exceptions that cross the library's interface. A handler for `std::exception` has them too,
/// and one that nobody catches shows its message.
///
///     try {
///         value = Sysutils::StrToInt(text);
///     } catch (const Sysutils::EConvertError& error) {
///         std::cerr << error.what() << '\n';   // or getMessage(), as wide text
///     }
class TRS8_BTL_API Exception : public std::exception
{
public:
    explicit Exception(System::UnicodeString message, int helpContext = 0) noexcept;
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    ~Exception() override;

    const System::UnicodeString& getMessage() const noexcept { return mMessage; }
    void setMessage(const System::UnicodeString& message) noexcept;
    /// The number of the page of the help that tells of it, 0 for none.
    int getHelpContext() const noexcept { return mHelpContext; }
    void setHelpContext(int helpContext) noexcept { mHelpContext = helpContext; }
    /// The message in UTF-8, valid until it is set anew. What takes a `const char*` for text of the code
    /// page, as a `System::UnicodeString` does, spoils it: take `getMessage` or `MessageOf`.
    const char* what() const noexcept override { return mUtf8.c_str(); }

private:
    System::UnicodeString mMessage;
    // Made beforehand: several threads may look at one exception.
    System::UTF8String mUtf8;
    int mHelpContext = 0;
};

/// The message of any exception as wide text: that of an `Exception`, and `what()` of another one, read as
/// UTF-8, in which the standard library tells names of files; what is no UTF-8 becomes U+FFFD.
///
///     } catch (const std::exception& fault) {
///         status = name + u": " + Sysutils::MessageOf(fault);
[[nodiscard]] TRS8_BTL_API System::UnicodeString MessageOf(const std::exception& fault);

/// A quiet end: a program throws it to leave what it does, and who shows exceptions passes over it. The
/// library itself raises none.
class TRS8_BTL_API EAbort : public Exception
{
public:
    using Exception::Exception;
    ~EAbort() override;
};

/// A text that is no value of the type asked for, a value that has no text, a format that doesn't fit its
/// arguments, or an object that another one can't take over by `Assign`. The message names the text.
class TRS8_BTL_API EConvertError : public Exception
{
public:
    using Exception::Exception;
    ~EConvertError() override;
};

/// A variant that has no value of the type asked for, or one that this type can't hold; also an index outside
/// an array in a variant, and arrays that nest too deep.
class TRS8_BTL_API EVariantError : public Exception
{
public:
    using Exception::Exception;
    ~EVariantError() override;
};

/// There is no memory for a text, a vector, a list or a stream, or it would have more elements than it can
/// count.
class TRS8_BTL_API EOutOfMemory : public Exception
{
public:
    using Exception::Exception;
    ~EOutOfMemory() override;
};

/// A name that is no path of the host, or no folder that could be made. Calls on files that fail in the host
/// don't raise it: they answer by their result, and `RaiseLastOSError` tells the reason.
class TRS8_BTL_API EInOutError : public Exception
{
public:
    using Exception::Exception;
    ~EInOutError() override;
};

/// An argument that a function can't work with, such as an unknown code page or a path with a zero in it.
class TRS8_BTL_API EArgumentException : public Exception
{
public:
    using Exception::Exception;
    ~EArgumentException() override;
};

/// A place outside a text, as of `TStringBuilder` and `TCharacter`, or a code that is no character.
class TRS8_BTL_API EArgumentOutOfRangeException : public EArgumentException
{
public:
    using EArgumentException::EArgumentException;
    ~EArgumentOutOfRangeException() override;
};

/// The base of faults in whole numbers, for handlers; never raised itself.
class TRS8_BTL_API EIntError : public Exception
{
public:
    using Exception::Exception;
    ~EIntError() override;
};

/// An amount or a variant is divided by 0. Plain numbers are the language's and raise nothing.
class TRS8_BTL_API EDivByZero : public EIntError
{
public:
    using EIntError::EIntError;
    ~EDivByZero() override;
};

/// An index outside a string, an array, a vector or a list of pairs or variants.
class TRS8_BTL_API ERangeError : public EIntError
{
public:
    using EIntError::EIntError;
    ~ERangeError() override;
};

/// An amount beyond the range of `System::Currency`.
class TRS8_BTL_API EIntOverflow : public EIntError
{
public:
    using EIntError::EIntError;
    ~EIntOverflow() override;
};

/// The base of faults in the arithmetic of floats, for a program's own classes: the library raises none, and
/// its floats become infinite or no number.
class TRS8_BTL_API EMathError : public Exception
{
public:
    using Exception::Exception;
    ~EMathError() override;
};

/// A failed call of the host, as `RaiseLastOSError` raises it. The message is the host's description;
/// `ErrorCode` is the number of `::GetLastError`.
class TRS8_BTL_API EOSError : public Exception
{
public:
    EOSError(const System::UnicodeString& message, unsigned long errorCode)
        : Exception(message), ErrorCode(errorCode)
    {
    }
    ~EOSError() override;

    unsigned long ErrorCode;
};

} // namespace Sysutils

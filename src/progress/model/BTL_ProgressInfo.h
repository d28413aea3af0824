// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/sysutils/System_VarArgs.h"

namespace Classes
{
class TStrings;
}

/// A window with a bar, two texts and a Cancel button. Where one may be given, null stands for none.
class TProgressDLG;

namespace BTL
{

/// Whom a long operation tells how far it is: a dialog, a record in shared memory, or nobody. Null stands for
/// nobody, too. This base keeps nothing: what is set is forgotten, and a derived class overrides what it
/// keeps.
///
///     void Copy(const TFiles& files, BTL::AProgressInfo* progress)
///     {
///         const BTL::CProgressInfoStarter started(progress, files.getCount());
///         for (...) {
///             ...
///             if (progress != nullptr) { progress->IncPosition(); }
///         }
///     }
///
/// A change of the position may run the message loop of the main thread, so that the program is entered again
/// from there. It may also raise what ends the operation when the user cancels.
class TRS8_BTL_API AProgressInfo
{
public:
    AProgressInfo() = default;
    AProgressInfo(const AProgressInfo&) = delete;
    AProgressInfo& operator=(const AProgressInfo&) = delete;
    virtual ~AProgressInfo() = 0;

    /// The position at which all is done; 0 in the base.
    virtual System::Int64 getMax() const;
    virtual void setMax(System::Int64 max);
    /// How much is done; 0 in the base. It may run beyond `getMax`.
    virtual System::Int64 getPosition() const;
    virtual void setPosition(System::Int64 position);
    /// What the whole is called; empty in the base, as all texts are.
    virtual System::UnicodeString getCaption() const;
    virtual void setCaption(System::UnicodeString caption);
    /// What is being done.
    virtual System::UnicodeString getText1() const;
    virtual void setText1(System::UnicodeString text);
    /// As `getText1`, in a second line.
    virtual System::UnicodeString getText2() const;
    virtual void setText2(System::UnicodeString text);
    /// More about it, of several lines.
    virtual System::UnicodeString getTextLines() const;
    virtual void setTextLines(System::UnicodeString lines);
    /// What the operation has to say, a failure say.
    virtual System::UnicodeString getMessage() const;
    virtual void setMessage(System::UnicodeString message);
    /// Whether the user asked for the end of the operation; false in the base.
    virtual bool getUserCancel() const;

    /// Sets all that is to be seen: `max`, position 0, the four texts and an empty message. Dialogs also look
    /// at the rest: whether a change of the position raises once the user cancels, whether there is a Cancel
    /// button, and their width in pixels, 0 for that of the design.
    virtual void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel,
                         const System::UnicodeString& caption, const System::UnicodeString& text1,
                         const System::UnicodeString& text2, const System::UnicodeString& lines, int width);
    /// As `Prepare` of a text, with the lines of the list; null has none.
    virtual void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel,
                         const System::UnicodeString& caption, const System::UnicodeString& text1,
                         const System::UnicodeString& text2, Classes::TStrings* lines, int width);

    /// Begins at position 0, with this `max` unless it is 0.
    virtual void Start(System::Int64 max);
    /// The operation is over; nothing in the base.
    virtual void Stop();
    /// One more is done.
    virtual void IncPosition();
    /// All is done: the position becomes `getMax`.
    virtual void SetProgressEndPosition();

    /// With `visible` the dialog of the program, whose cancel is reset; it belongs to the library. Else what
    /// `SetInvisibleProgressInfo` set, null at first.
    static AProgressInfo* Get(bool visible);
    /// Sets what `Get(false)` gives; it stays the caller's and may be null.
    static void SetInvisibleProgressInfo(AProgressInfo* info);

    /// `getText1` for 1, `getText2` for 2, else an empty text.
    System::UnicodeString getText(int index) const;
    /// `setText1` for 1, `setText2` for 2; any other index does nothing.
    void setText(int index, System::UnicodeString text);

    /// As `setText`, with the text that `System::Printf` makes.
    void SetText_V(int index, const System::WideChar* format, System::TVarArgs arguments);
    /// As `setText`, with the text that `System::PrintfA` makes, in the code page.
    void SetText_V(int index, const char* format, System::TVarArgs arguments);

    /// As `SetText_V`, with the arguments one by one.
    template <class... Arguments>
    void SetText_VA(int index, const System::WideChar* format, const Arguments&... arguments)
    {
        SetText_V(index, format, System::TVarArgs{System::TVarRec(arguments)...});
    }
    template <class... Arguments>
    void SetText_VA(int index, const char* format, const Arguments&... arguments)
    {
        SetText_V(index, format, System::TVarArgs{System::TVarRec(arguments)...});
    }

    /// What `Get(false)` gives.
    static AProgressInfo* InvisibleProgressInfo;
};

/// Gives the dialog of `AProgressInfo::Get(true)` with its cancel reset. The dialog keeps belonging to it.
using FVisibleProgressInfo = AProgressInfo* (*)();
/// Where `AProgressInfo::Get(true)` has its dialog from. The unit of the dialogs fills it in; at first it
/// gives null.
TRS8_BTL_API extern FVisibleProgressInfo GetVisibleProgressInfo;

/// A scope in which an operation runs: `Start(max)` at its begin, `Stop()` at its end, also when an exception
/// passes. What `Stop` raises, as handlers may that run meanwhile, goes to the application. Null does
/// nothing.
class TRS8_BTL_API CProgressInfoStarter
{
public:
    CProgressInfoStarter(AProgressInfo* info, System::Int64 max);
    CProgressInfoStarter(const CProgressInfoStarter&) = delete;
    CProgressInfoStarter& operator=(const CProgressInfoStarter&) = delete;
    ~CProgressInfoStarter();

private:
    void Stop();

    AProgressInfo* mInfo;
};

} // namespace BTL

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/filer/internal/Classes_FormOutput.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace Classes
{

/// The children of an ancestor, beside which those of a component are laid.
class CAncestors
{
public:
    void Add(TComponent& component);
    /// The one of the component's name and class; null if there is none.
    TComponent* Find(const TComponent& component) const;
    /// The place that a component gets which is `ancestor` there, or new if that is null; nothing if it comes
    /// where it would stand anyway. To be called once for each, in their order.
    std::optional<System::Int64> NextPlace(const TComponent* ancestor);

private:
    std::vector<TComponent*> mItems;
    /// By names in small letters.
    std::unordered_map<System::UnicodeString, TComponent*> mByName;
    std::size_t mPos = 0;
    System::Int64 mPlace = 0;
};

/// Where a writer is.
class TWriter::CState
{
public:
    CState(TStream& target, int bufSize)
        : stream(target), limit(static_cast<std::size_t>(bufSize < 1 ? 1 : bufSize))
    {
    }

    /// Writes what is gathered.
    void Flush();
    /// As `Flush`, between forms and once there is enough.
    void FlushIfFull();

    TStream& stream;
    std::size_t limit;
    Form::COutput out;
    System::Int64 flushed = 0;
    bool isInForm = false;
    int depth = 0;
    /// In front of the names of properties, of the parts that are being written.
    std::string prefix;
    CAncestors ancestors;
    /// Whether the component that is written next has an ancestor in the form's.
    bool isInherited = false;
    std::optional<System::Int64> childPos;
};

/// One level further in, for a scope: what is too deep couldn't be read again, or is a circle.
class TWriter::CLevel
{
public:
    explicit CLevel(CState& state) : mState(state)
    {
        if (state.depth >= Form::MaxDepth) {
            throw EWriteError(u"The components are nested deeper than " +
                              System::UnicodeString(Form::MaxDepth) + u" levels");
        }
        ++state.depth;
    }
    CLevel(const CLevel&) = delete;
    CLevel& operator=(const CLevel&) = delete;
    ~CLevel() { --mState.depth; }

private:
    CState& mState;
};

} // namespace Classes

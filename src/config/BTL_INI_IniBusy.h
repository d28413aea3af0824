// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace BTL
{

class AIni;

/// A piece of work on a store: it begins with `Begin` and `Load`, and ends with `End`. If an exception leaves
/// the scope before, the store gets `OnError`, and nothing is saved. A null store has no work to do.
///
///     BTL::CIniWriteBusy busy(&ini);
///     ini.WriteInt("Runs", runs);                                 // may throw
///     busy.End();                                                 // saves
class TRS8_BTL_API AIniBusy
{
public:
    /// The store must outlive this. One that can't be loaded gets `OnError` too.
    explicit AIniBusy(AIni* ini);
    AIniBusy(const AIniBusy&) = delete;
    AIniBusy& operator=(const AIniBusy&) = delete;
    /// What `OnError` raises is lost.
    ~AIniBusy();

    void End();

protected:
    AIni* getIni() const noexcept { return mIni; }

private:
    AIni* mIni;
};

/// As `AIniBusy`, for work that reads.
class TRS8_BTL_API CIniReadBusy : public AIniBusy
{
public:
    using AIniBusy::AIniBusy;
};

/// As `AIniBusy`, for work that writes: `End` saves the store first.
class TRS8_BTL_API CIniWriteBusy : public AIniBusy
{
public:
    using AIniBusy::AIniBusy;

    /// If the store can't be saved, the work isn't ended.
    void End();
};

} // namespace BTL

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Support
{

class Counter : public System::TObject
{
    TRS8_BTL_CLASS(Counter, System::TObject)

public:
    void Count(System::TObject*) { ++count; }
    void Reset(System::TObject*) { count = 0; }
    int Add(int value) { return count += value; }
    int Get() const { return count; }

    int count = 0;
};

inline System::TMetaClass* Counter::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<Counter>(u"Counter")
                                                  .Method(u"Count", &Counter::Count)
                                                  .Method(u"Add", &Counter::Add)
                                                  .Build();
    return record;
}

class Gauge : public Counter
{
    TRS8_BTL_CLASS(Gauge, Counter)

public:
    explicit Gauge(int start) { count = start; }
};

inline System::TMetaClass* Gauge::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<Gauge>(u"Gauge").Method(u"Reset", &Gauge::Reset).Build();
    return record;
}

} // namespace Support

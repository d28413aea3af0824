// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Color.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "properties/objects/PROP_Property.h"

namespace Gauges
{

class TChannel : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TChannel, Classes::TCollectionItem)

public:
    using TCollectionItem::TCollectionItem;

    System::UnicodeString Caption;
    int Number = 0;
};

inline System::TMetaClass* TChannel::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TChannel>(u"TChannel")
                                                  .Property(u"Caption", &TChannel::Caption)
                                                  .Property(u"Number", &TChannel::Number)
                                                  .Build();
    return record;
}

/// A component with a property of each kind.
class TGauge : public Classes::TComponent
{
    TRS8_BTL_CLASS(TGauge, Classes::TComponent)

public:
    using TComponent::TComponent;

    Classes::TStrings* getLines() const { return &mLines; }
    Classes::TStringList* getNotes() const { return &mLines; }
    Classes::TCollection* getChannels() const { return &mChannels; }
    Graphics::TFont* getFont() const { return &mFont; }
    int getSerial() const { return 4711; }
    void setLimit(int limit)
    {
        if (limit > 100) {
            throw Sysutils::Exception(u"beyond the limit");
        }
        mLimit = limit;
    }
    int getLimit() const { return mLimit; }

    System::UnicodeString Text;
    System::AnsiString Narrow;
    int Count = 0;
    char Mark = 'a';
    bool Active = false;
    double Value = 0;
    Graphics::TColor Color = Graphics::clRed;
    Graphics::TFontStyles Style;
    System::Int64 Ticks = 0;
    System::Variant Any;
    /// Another gauge, or this one.
    TGauge* Next = nullptr;
    Classes::TNotifyEvent OnChange;

private:
    mutable Classes::TStringList mLines;
    mutable Classes::TCollection mChannels{System::ClassOf<TChannel>()};
    mutable Graphics::TFont mFont;
    int mLimit = 0;
};

inline System::TMetaClass* TGauge::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGauge>(u"TGauge")
                                                  .Property(u"Text", &TGauge::Text)
                                                  .Property(u"Narrow", &TGauge::Narrow)
                                                  .Property(u"Count", &TGauge::Count)
                                                  .Property(u"Mark", &TGauge::Mark)
                                                  .Property(u"Active", &TGauge::Active)
                                                  .Property(u"Value", &TGauge::Value)
                                                  .Property(u"Color", &TGauge::Color)
                                                  .Property(u"Style", &TGauge::Style)
                                                  .Property(u"Ticks", &TGauge::Ticks)
                                                  .Property(u"Any", &TGauge::Any)
                                                  .Property(u"Limit", &TGauge::getLimit, &TGauge::setLimit)
                                                  .Property(u"Serial", &TGauge::getSerial)
                                                  .Property(u"Lines", &TGauge::getLines)
                                                  .Property(u"Notes", &TGauge::getNotes)
                                                  .Property(u"Channels", &TGauge::getChannels)
                                                  .Property(u"Font", &TGauge::getFont)
                                                  .Property(u"Next", &TGauge::Next)
                                                  .Property(u"OnChange", &TGauge::OnChange)
                                                  .Build();
    return record;
}

inline void AddChannel(const TGauge& gauge, const System::UnicodeString& caption)
{
    System::CheckedCast<TChannel>(gauge.getChannels()->Add())->Caption = caption;
}

/// The properties as lines "Name=value", each with a line feed.
inline std::string Lines(const PROP::CProperties& properties)
{
    std::string lines;
    for (const PROP::CProperty& property : properties) {
        lines += System::ToUtf8(property.ToString()) + '\n';
    }
    return lines;
}

} // namespace Gauges

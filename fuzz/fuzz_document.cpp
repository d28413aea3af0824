// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_Path.h"
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/PROP_Lint.h"
#include "support/WorkFolder.h"

#include <fstream>

using Fuzz::Require;
using System::UnicodeString;

namespace
{

template <class T>
T* Made(Classes::TComponent* owner, const char16_t* name)
{
    auto* const made = new T(owner);
    made->setName(name);
    return made;
}

struct TSample
{
    TSample()
    {
        auto* const item = Made<Menus::TMenuItem>(&form, u"mnSave");
        form.setName(u"FormMain");
        button->setParent(&form);
        memo->setParent(&form);
        menu->getItems()->Add(item);
        item->Add(Made<Menus::TMenuItem>(&form, u"mnBelow"));
    }

    Forms::TForm form;
    Stdctrls::TButton* button = Made<Stdctrls::TButton>(&form, u"BtnStart");
    Stdctrls::TMemo* memo = Made<Stdctrls::TMemo>(&form, u"Notes");
    Menus::TMainMenu* menu = Made<Menus::TMainMenu>(&form, u"MainMenu1");
};

/// The objects that the file can hold, as lines. One without properties has no line in it.
std::string Storable(const PROP::CObjects& objects)
{
    std::string text;
    for (auto object = objects.sbegin(); object != objects.send(); ++object) {
        PROP::CProperties properties;
        object->second->GetProperties(properties);
        for (const PROP::CProperty& property : properties) {
            if (!Host::IsStorable({object->first, property.getName(), property.getValue()})) {
                continue;
            }
            text += System::ToUtf8(object->first + u'\n' + property.ToString() + u'\n');
        }
    }
    return text;
}

/// What was read is written and read back as it is. Bytes that are no text show in names as others may, and
/// halves of characters aren't written.
void RoundTrip(PROP::ADocument& document, PROP::ADocument& again, const UnicodeString& file)
{
    const std::string former = Storable(document.getObjects());
    if (former.find("\xEF\xBF\xBD") != std::string::npos) {
        return;
    }
    Sysutils::DeleteFile(file);
    document.SaveToFile(file);
    again.LoadFromFile(file);
    Require(Storable(again.getObjects()) == former);
}

/// What lint finds nothing to say of is applied, but for what a setter itself refuses.
void ApplyAfterLint(PROP::ADocument& document, Classes::TComponent* form)
{
    const bool fits = PROP::Lint(document, form).empty();
    try {
        document.Apply();
    } catch (const UTL::XAssert&) {
        Require(!fits);
    } catch (const Sysutils::EConvertError&) {
        Require(!fits);
    } catch (const Typinfo::EPropertyError&) {
        Require(!fits);
    } catch (const Typinfo::EPropertyConvertError&) {
        Require(!fits);
    } catch (const Sysutils::Exception&) {
    }
}

} // namespace

/// The bytes are the file of a form's document, and of a menu's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Fuzz::WorkFolder folder;
    const auto path = folder.Path() / "document.txt";
    std::ofstream(path, std::ios::binary) << Fuzz::Bytes(data, size);
    const UnicodeString file = Sysutils::FromHostPath(path.string());
    const UnicodeString copy = file + u".copy";

    TSample sample;
    PROP::CFormDoc document(&sample.form);
    if (Fuzz::Try<UTL::XAssert>([&] { document.LoadFromFile(file); })) {
        PROP::CFormDoc again(&sample.form);
        RoundTrip(document, again, copy);
        ApplyAfterLint(document, &sample.form);
    }
    PROP::CMenuDoc menu(sample.menu);
    if (Fuzz::Try<UTL::XAssert>([&] { menu.LoadFromFile(file); })) {
        ApplyAfterLint(menu, &sample.form);
    }
    return 0;
}

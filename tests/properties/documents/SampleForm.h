// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Frame.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace Sample
{

template <class T>
T* Made(Classes::TComponent* owner, const char16_t* name)
{
    auto* const made = new T(owner);
    made->setName(name);
    return made;
}

/// A form with controls, a frame that has an edit of its own, and a menu.
struct TForm
{
    TForm()
    {
        form->setCaption(u"Station");
        for (Controls::TWinControl* const control :
             {static_cast<Controls::TWinControl*>(start), static_cast<Controls::TWinControl*>(notes),
              static_cast<Controls::TWinControl*>(frame)}) {
            control->setParent(form);
        }
        limit->setParent(frame);
        start->setCaption(u"&Start");
        start->SetBounds(10, 20, 75, 25);
        notes->getLines()->setCommaText(u"one,\"two words\"");
        limit->setText(u"5 \u00B5m");
        mainMenu->getItems()->Add(file);
        mainMenu->getItems()->Add(help);
        file->Add(save);
        file->Add(line);
        file->setCaption(u"&File");
        help->setCaption(u"&Help, \"now\"");
        save->setCaption(u"&Save");
        save->setShortCut(Menus::TextToShortCut(u"Ctrl+S"));
        line->setCaption(u"-");
    }

    Classes::TComponent application;
    Forms::TForm* form = Made<Forms::TForm>(&application, u"FormMain");
    Stdctrls::TButton* start = Made<Stdctrls::TButton>(form, u"BtnStart");
    Stdctrls::TMemo* notes = Made<Stdctrls::TMemo>(form, u"Notes");
    Forms::TFrame* frame = Made<Forms::TFrame>(form, u"Frame1");
    Stdctrls::TEdit* limit = Made<Stdctrls::TEdit>(frame, u"EdLimit");
    Menus::TMainMenu* mainMenu = Made<Menus::TMainMenu>(form, u"MainMenu1");
    Menus::TMenuItem* file = Made<Menus::TMenuItem>(form, u"mnFile");
    Menus::TMenuItem* help = Made<Menus::TMenuItem>(form, u"mnHelp");
    Menus::TMenuItem* save = Made<Menus::TMenuItem>(form, u"mnSave");
    Menus::TMenuItem* line = new Menus::TMenuItem(form);
};

inline std::string Content(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void Put(const std::filesystem::path& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

/// The file without what it keeps of itself.
inline std::string Body(const std::filesystem::path& file)
{
    std::string body;
    bool isInfo = false;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        if (line.starts_with("\xEF\xBB\xBF")) {
            line.erase(0, 3);
        }
        if (line.starts_with('[')) {
            isInfo = line == "[__INFO__]";
        }
        if (!isInfo && !line.empty()) {
            body += line + '\n';
        }
    }
    return body;
}

} // namespace Sample

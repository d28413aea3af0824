// SPDX-License-Identifier: MIT
#include <TRS8_BTL/interop/Qt.h>
#include <TRS8_BTL/platform/visual/Forms.h>
#include <TRS8_BTL/platform/visual/stdctrls/edits/Stdctrls_Edit.h>

#include <QApplication>

#include <iostream>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    Classes::TMemoryStream memory;
    Interop::CStreamDevice device(memory);
    device.write(Interop::ToQString(System::UnicodeString(u"12,5 ")).toUtf8());
    const System::Variant limit = Interop::FromQVariant(QVariant(40));
    std::cout << memory.AsView() << limit.As<int>();

    Forms::TForm form;
    Stdctrls::TEdit edit(&form);
    edit.setParent(&form);
    edit.setAlign(Controls::alTop);
    Interop::CFormHost host(form);
    host.resize(300, 200);
    host.show();
    Toolkits::CurrentToolkit().Post([&] {
        const QWidget* const widget = Interop::WidgetOf(edit);
        std::cout << ' ' << (widget == nullptr ? 0 : widget->width()) << '\n';
        application.quit();
    });
    return application.exec();
}

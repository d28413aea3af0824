// SPDX-License-Identifier: MIT
#pragma once

// The bridge between this library and Qt 6, for programs that use both. It is made of headers alone, so that
// the library itself depends on no Qt; a program that includes them links the parts of Qt that it uses.
//
//     const QString title = Interop::ToQString(form.getCaption());
//     const System::UnicodeString name = Interop::FromQString(edit->text());
//     Interop::CDeviceStream stream(socket);                      // a stream on a device of Qt's
//     Interop::CStreamDevice device(file);                        // and the other way round
//     layout->addWidget(new Interop::CFormHost(form));            // a form within a window of Qt's

#include "interop/QtDevices.h"
#include "interop/QtValues.h"

#if __has_include(<QWidget>)
#include "interop/QtFormHost.h"
#endif

// SPDX-License-Identifier: MIT
#include "platform/host/Host_Path.h"
#include "platform/toolkit/qt/QtBoxes.h"
#include "platform/toolkit/qt/QtConvert.h"

#include <QDir>
#include <QFileDialog>

#include <algorithm>

// Questions for files and folders.

namespace Toolkits
{

namespace
{

QString FilterText(const TFileFilter& filter)
{
    QStringList masks;
    for (const System::UnicodeString& mask : filter.masks) {
        masks += ToQString(mask);
    }
    // What stands in brackets is the masks; a name may have some of its own.
    return ToQString(filter.name).replace(u'(', u'[').replace(u')', u']') + QStringLiteral(" (") +
           masks.join(u' ') + u')';
}

void SetKind(QFileDialog& dialog, const TFileQuestion& question)
{
    // Whether what is chosen exists, or may be replaced, is for the asker to test.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    switch (question.kind) {
    case EFileQuestion::Save:
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        return;
    case EFileQuestion::Folder:
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        return;
    case EFileQuestion::Open:
        dialog.setFileMode(question.isMultiple ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
        return;
    }
}

} // namespace

TFileAnswer AskFilesByQt(Toolkit& toolkit, const TFileQuestion& question)
{
    QFileDialog dialog;
    // The dialog of the desktop would run a loop of its own, in which nothing of the program's is served.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(ToQString(question.caption));
    SetKind(dialog, question);
    QStringList filters;
    for (const TFileFilter& filter : question.filters) {
        filters += FilterText(filter);
    }
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        dialog.selectNameFilter(
            filters[static_cast<qsizetype>(std::min(question.filterIndex, question.filters.size() - 1))]);
    }
    if (question.showsHidden) {
        dialog.setFilter(dialog.filter() | QDir::Hidden);
    }
    if (!question.folder.IsEmpty()) {
        dialog.setDirectory(QString::fromStdString(Sysutils::HostPath(question.folder)));
    }
    if (!question.fileName.IsEmpty()) {
        dialog.selectFile(ToQString(question.fileName));
    }
    TFileAnswer answer{.files = {}, .filterIndex = question.filterIndex};
    if (RunDialog(toolkit, dialog) != QDialog::Accepted) {
        return answer;
    }
    for (const QString& file : dialog.selectedFiles()) {
        answer.files.push_back(Sysutils::FromHostPath(file.toStdString()));
    }
    const qsizetype filter = filters.indexOf(dialog.selectedNameFilter());
    answer.filterIndex = filter < 0 ? question.filterIndex : static_cast<std::size_t>(filter);
    return answer;
}

} // namespace Toolkits

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "dialogpanel.h"

#include "activewindow.h"
#include "videonamefilter.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

void askForVideos(QFileDialog &dialog, bool allowsMultiple)
{
    dialog.setFileMode(allowsMultiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilter(videoNameFilter());
}

void askForFolders(QFileDialog &dialog, bool allowsMultiple)
{
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (!allowsMultiple)
        return;
#ifndef Q_OS_MACOS // whose own dialog is dearer to its users than several folders at once
    // Qt's own dialog takes whatever is selected in its two views: let that be several.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    for (const QString &name : {u"listView"_s, u"treeView"_s}) {
        if (auto *view = dialog.findChild<QAbstractItemView *>(name))
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
#endif
}

// Qt's own dialog selects what is typed, and is to let go of it when more is typed. But it may miss
// a folder on the way (QItemSelectionModel::isRowSelected compares rows of different folders),
// which would then be chosen, too, and first.
void chooseNothingButWhatIsTyped(const QFileDialog &dialog)
{
    const auto *line = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    const auto *view = dialog.findChild<QAbstractItemView *>(u"listView"_s);
    if (line && view) // not in the desktop's dialog
        QObject::connect(line, &QLineEdit::textEdited, view->selectionModel(),
                         &QItemSelectionModel::clearSelection);
}

} // namespace

std::optional<QList<QUrl>> DialogPanel::run(const OpenPanelRequest &request)
{
    QWindow *const owner = activeWindow();
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (request.choice == OpenPanelRequest::Choice::folders)
        askForFolders(dialog, request.allowsMultiple);
    else
        askForVideos(dialog, request.allowsMultiple);
    dialog.setOption(QFileDialog::ReadOnly, !request.canCreateFolders);
    dialog.setWindowTitle(request.title);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setSupportedSchemes({u"file"_s});
    // Said each time, because Qt's dialog remembers places of earlier runs and of other programs.
    const QUrl home = QUrl::fromLocalFile(QDir::homePath());
    dialog.setDirectoryUrl(m_lastFolders.value(request.title, home));

    chooseNothingButWhatIsTyped(dialog);

    // The program's windows are no widgets, so they cannot be the dialog's parent as a widget.
    dialog.winId();
    dialog.windowHandle()->setTransientParent(owner);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    m_lastFolders[request.title] = dialog.directoryUrl();
    return dialog.selectedUrls();
}

} // namespace quorvale

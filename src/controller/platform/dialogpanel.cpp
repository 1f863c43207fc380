// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "dialogpanel.h"

#include <QFileDialog>

namespace quorvale {

std::optional<QList<QUrl>> DialogPanel::run(const OpenPanelRequest &request)
{
    QFileDialog dialog;
    dialog.setWindowTitle(request.title);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (request.choice == OpenPanelRequest::Choice::folders) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    } else {
        dialog.setFileMode(QFileDialog::ExistingFiles);
    }
    dialog.setSupportedSchemes({QStringLiteral("file")});
    if (m_lastFolder.isValid())
        dialog.setDirectoryUrl(m_lastFolder);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    m_lastFolder = dialog.directoryUrl();
    return dialog.selectedUrls();
}

} // namespace quorvale

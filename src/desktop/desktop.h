// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"
#include "controller/openpanel.h"
#include "instance.h"

#include <memory>

namespace quorvale {

class ConverterViewModel;

/// Keeps the program from waiting for services of the desktop that hang. To be called before there
/// is an application or another thread.
void prepareForDesktop();

/// What the desktop gave to this process to have its window come to the front, for makeInstance().
/// To be called before there is an application, which takes it away.
QVariantMap platformDataOfStart();

/// This process among those of the program in the session, where it begins to look for the first,
/// to hand it these files.
std::unique_ptr<Instance> makeInstance(const QList<QUrl> &files, const QVariantMap &platformData);

/// What the desktop does beside the batches of a controller, such as to stay awake; as long as this
/// object is there, which the controller has to outlive. Possibly nothing.
std::unique_ptr<QObject> accompany(const ConverterViewModel &model);

/// The panels of the desktop that the program runs on. Needs a QApplication.
std::unique_ptr<OpenPanel> makeOpenPanel();

/// The file manager of that desktop.
std::unique_ptr<FileManager> makeFileManager();

} // namespace quorvale

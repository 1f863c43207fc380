// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/filemanager.h"
#include "controller/openpanel.h"

#include <memory>

namespace quorvale {

/// Keeps the program from waiting for services of the desktop that hang. To be called before there
/// is an application or another thread.
void prepareForDesktop();

/// The panels of the desktop that the program runs on. Needs a QApplication.
std::unique_ptr<OpenPanel> makeOpenPanel();

/// The file manager of that desktop.
std::unique_ptr<FileManager> makeFileManager();

} // namespace quorvale

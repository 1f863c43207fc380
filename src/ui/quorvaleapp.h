// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlApplicationEngine>

#include <memory>

namespace quorvale {

class ConverterViewModel;

/// The application: its one controller and the window on it, and the name and the icon by which a
/// desktop knows it. Needs a QApplication.
class QuorvaleApp
{
public:
    QuorvaleApp();

    /// Opens the window. False when it cannot be built, which the engine has then said on standard
    /// error.
    bool open();

    /// Whether a conversion runs, or a thread of a search.
    bool isBusy() const;

private:
    std::shared_ptr<ConverterViewModel> m_model;
    QQmlApplicationEngine m_engine;
};

} // namespace quorvale

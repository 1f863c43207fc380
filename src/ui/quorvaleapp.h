// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QQmlApplicationEngine>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <memory>
#include <thread>

class QWindow;

namespace quorvale {

class Announcer;
class ConverterViewModel;
class Instance;

/// The application: its one controller and the window on it, and the name and the icon by which a
/// desktop knows it. Needs a QApplication.
class QuorvaleApp
{
public:
    enum class Start {
        window,    ///< which is open now
        elsewhere, ///< the files are with the program that runs already, which shows them
        failed     ///< the window cannot be built, as the engine has said on standard error
    };

    QuorvaleApp();
    ~QuorvaleApp();

    /// Opens the window and queues the videos among these files and in these folders, or has the
    /// program do so that runs already in this session. The platform data, of this start, is for
    /// its window, which waits so long at most for the desktop to say how windows are to look.
    Start open(const QList<QUrl> &files = {}, const QVariantMap &platformData = {},
               std::chrono::milliseconds patience = std::chrono::milliseconds(300));

    /// Whether a conversion runs, or a thread of a search.
    bool isBusy() const;

private:
    void queue(const QList<QUrl> &files);
    void tellUser();
    QWindow *window() const; // null as long as there is none

    std::shared_ptr<ConverterViewModel> m_model;
    QQmlApplicationEngine m_engine;
    std::unique_ptr<Announcer> m_announcer;
    std::unique_ptr<Instance> m_instance;
    std::unique_ptr<QObject> m_companion;
    std::jthread m_lookForFonts;
};

} // namespace quorvale

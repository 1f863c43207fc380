// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/desktop.h"
#include "desktop/fileoperands.h"
#include "displayadvice.h"
#include "graphics.h"
#include "processdefaults.h"
#include "quorvaleapp.h"
#include "service/toolenvironment.h"

#include <QApplication>

#include <algorithm>
#include <cstdlib>
#include <optional>

int main(int argc, char *argv[])
{
    quorvale::restoreProcessDefaults();
    quorvale::prepareForDesktop();
    const QVariantMap platformData = quorvale::platformDataOfStart();
    (void)quorvale::toolEnvironment(); // copied before there are threads
    const QList<QByteArray> words(argv + std::min(argc, 1), argv + argc);
    const QList<QUrl> files = quorvale::fileOperands(words, quorvale::workingFolder());

    std::optional<quorvale::DisplayAdvice> advice(std::in_place);
    QApplication::setApplicationName(QStringLiteral("Quorvale"));
    int wordsForQt = 1; // which has options of its own
    QApplication application(wordsForQt, argv);
    advice.reset();
    quorvale::chooseRenderer();

    quorvale::QuorvaleApp quorvale;
    switch (quorvale.open(files, platformData)) {
    case quorvale::QuorvaleApp::Start::window:
        break;
    case quorvale::QuorvaleApp::Start::elsewhere:
        return EXIT_SUCCESS;
    case quorvale::QuorvaleApp::Start::failed:
        return EXIT_FAILURE;
    }
    const int status = QApplication::exec();

    // A running ffmpeg is left to finish its file. An ordinary return would wait for the thread
    // that reads it or, by destroying its process object, kill it. It would also take away what
    // the thread of a search may still use.
    if (quorvale.isBusy())
        std::_Exit(status);
    return status;
}

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/desktop.h"
#include "displayadvice.h"
#include "graphics.h"
#include "processdefaults.h"
#include "quorvaleapp.h"

#include <QApplication>

#include <cstdlib>
#include <optional>

int main(int argc, char *argv[])
{
    quorvale::restoreProcessDefaults();
    quorvale::prepareForDesktop();

    std::optional<quorvale::DisplayAdvice> advice(std::in_place);
    QApplication::setApplicationName(QStringLiteral("Quorvale"));
    QApplication application(argc, argv);
    advice.reset();
    quorvale::chooseRenderer();

    quorvale::QuorvaleApp quorvale;
    if (!quorvale.open())
        return EXIT_FAILURE;
    const int status = QApplication::exec();

    // A running ffmpeg is left to finish its file. An ordinary return would wait for the thread
    // that reads it or, by destroying its process object, kill it. It would also take away what
    // the thread of a search may still use.
    if (quorvale.isBusy())
        std::_Exit(status);
    return status;
}

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "displayadvice.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

QtMessageHandler previousHandler = nullptr;

void adviseWhenFatal(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtFatalMsg) {
        previousHandler(type, context, message);
        return;
    }
    std::fputs(qPrintable(message), stderr);
    std::fputs("\n", stderr);
    // Qt lists what it has when there is nothing that it can use.
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !message.contains("wayland"_L1))
        std::fputs("In this Wayland session Quorvale needs the package qt6-wayland.\n", stderr);
    std::fputs("Quorvale needs a display to open its window. Start it from a desktop session, or\n"
               "give it a virtual display:  xvfb-run --auto-servernum <command>\n"
               "(on Debian and Ubuntu xvfb-run is in the packages xvfb and xauth).\n",
               stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

DisplayAdvice::DisplayAdvice()
{
    previousHandler = qInstallMessageHandler(adviseWhenFatal);
}

DisplayAdvice::~DisplayAdvice()
{
    qInstallMessageHandler(previousHandler);
}

} // namespace quorvale

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "inputbarrier.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

namespace quorvale {

namespace {

int barriers = 0;

} // namespace

InputBarrier::InputBarrier()
{
    ++barriers;
    qGuiApp->installEventFilter(this);
    for (QWindow *window : QGuiApplication::topLevelWindows()) { // nothing there stays hovered
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(window, &leave);
    }
}

InputBarrier::~InputBarrier()
{
    --barriers;
}

bool InputBarrier::isUp()
{
    return barriers > 0;
}

// What begins or goes on is kept out; what ends something that began before is not.
bool InputBarrier::eventFilter(QObject *receiver, QEvent *event)
{
    if (!receiver->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            Q_EMIT escaped();
        return true;
    case QEvent::MouseButtonPress: // also by a pen, of which Qt makes one when it is not taken
    case QEvent::TouchBegin:
        Q_EMIT pressed();
        return true;
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TouchUpdate:
    case QEvent::Wheel:
    case QEvent::NativeGesture:
    case QEvent::Enter:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace quorvale

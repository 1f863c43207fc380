// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/converterviewmodel.h"
#include "support/recordedpanel.h"
#include "support/slowdisk.h"
#include "support/standintools.h"

#include <QImage>
#include <QMetaEnum>
#include <QQmlApplicationEngine>
#include <QTemporaryDir>

#include <memory>

class QQuickWindow;

namespace quorvale::test {

/// The program's window over stand-in tools, brought into one of its states.
class Scene
{
    Q_GADGET

public:
    enum class State {
        empty,
        drop,
        menu,
        waiting,
        searching,
        reordering,
        converting,
        finished,
        failures,
        rowMenu,
        contrast,
        still,
        alert
    };
    Q_ENUM(State)

    Scene();
    ~Scene();

    static QList<State> allStates();
    static QString name(State state);

    /// To be called once. False when the state is not reached in time.
    bool enter(State state);

    QImage picture() const;

private:
    void add(const QStringList &paths);
    bool search();
    void chooseDestination();
    bool convert(int untilRow);
    bool click(const QString &text, Qt::MouseButton button = Qt::LeftButton) const;
    bool lift(int row, int destination) const;

    StandInTools m_tools;
    SlowDisk m_disk;
    RecordedPanel *m_panel;
    std::shared_ptr<ConverterViewModel> m_model;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window;
};

} // namespace quorvale::test

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDeadlineTimer>
#include <QJSValue>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include <functional>

class QAbstractItemModel;

namespace quorvale {

/// Finds the entry of a list that begins with what is typed. Letters that follow each other quickly
/// make up one beginning, unless the current entry is another one meanwhile; the same letter again
/// and again goes from one entry to the next. Case and accents do not count. Main thread.
///
/// Each search takes the `text` of a key and the Qt.KeyboardModifiers that are held with it. It
/// gives the index of the entry that becomes the current one, `current` where none begins so, and
/// -1 where the key is none of a text: one with Ctrl, Alt or Meta, without a character, or a space
/// bar that goes on with nothing.
class TypeAhead : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Milliseconds after which the next letter begins anew; a second at first.
    Q_PROPERTY(int pause MEMBER m_pause)

public:
    using QObject::QObject;
    using TextAt = std::function<QString(int)>;

    /// Among `count` entries. Asks for the texts from `current` on, round again, as far as the
    /// first that begins so. An index out of range is none, as is -1.
    int find(const QString &text, int modifiers, int current, int count, const TextAt &textAt);

    /// `textAt` is a function of QML.
    Q_INVOKABLE int find(const QString &text, int modifiers, int current, int count,
                         const QJSValue &textAt);

    /// Among the rows of a model, which are known by what it gives for Qt::DisplayRole.
    Q_INVOKABLE int findRow(const QString &text, int modifiers, int current,
                            const QAbstractItemModel *model);

    /// The next letter begins anew, as when a list opens.
    Q_INVOKABLE void forget() { m_beginning.clear(); }

private:
    int m_pause = 1000;
    QString m_beginning;  // as it is compared
    QDeadlineTimer m_end; // of the time in which it goes on
    int m_current = -1;   // when it was searched for last
};

} // namespace quorvale

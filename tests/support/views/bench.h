// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controllertypes.h"
#include "support/queue.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QQuickItem>
#include <QtQmlIntegration>

#include <memory>

namespace quorvale::test {

/// What a test of a view shows: a real controller with stand-in tools and recorded answers, which
/// the test brings to the state that it needs. Main thread.
class Bench : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(quorvale::ConverterViewModel *model READ model NOTIFY begun)
    /// The titles of the panels that were opened so far.
    Q_PROPERTY(QStringList openedPanels READ openedPanels)
    /// The local paths of the folders that the file manager was to show so far.
    Q_PROPERTY(QStringList revealedFolders READ revealedFolders)
    /// The file names of the jobs, in order.
    Q_PROPERTY(QStringList fileNames READ fileNames)
    /// How many windows are shown.
    Q_PROPERTY(int windowCount READ windowCount)
    /// The colours of the desktop.
    Q_PROPERTY(bool isDark READ isDark WRITE setDark)
    /// Whether the user wants more contrast, and things to move.
    Q_PROPERTY(bool hasContrast READ hasContrast WRITE setContrast)
    Q_PROPERTY(bool animates READ animates WRITE setAnimates)
    /// The palette's colour of windows, which is one of two unless it is set.
    Q_PROPERTY(QColor windowColor READ windowColor WRITE setWindowColor)

public:
    explicit Bench(QObject *parent = nullptr);
    ~Bench() override;

    ConverterViewModel *model();
    QStringList openedPanels();
    QStringList revealedFolders() const;
    QStringList fileNames() const;
    int windowCount() const;
    bool isDark() const;
    void setDark(bool isDark);
    bool hasContrast() const;
    void setContrast(bool hasContrast);
    bool animates() const;
    void setAnimates(bool animates);
    QColor windowColor() const;
    void setWindowColor(const QColor &color);

    /// Starts anew: an empty queue, default settings, no output folder, light colours of the
    /// usual contrast, motion, no font of the desktop's. Ends what the last test left behind.
    Q_INVOKABLE void begin();

    /// The font of the desktop becomes another; ends the test when it is not installed.
    Q_INVOKABLE void setFont(const QString &family, double points);

    /// Queues waiting jobs for files at these paths, "/in/" before those that are not absolute, in
    /// this order.
    Q_INVOKABLE void queue(const QStringList &paths);

    /// Queues so many waiting jobs at once.
    Q_INVOKABLE void queueMany(int count);

    /// Of the queued jobs the second, the fourth and so on have been converted.
    Q_INVOKABLE void completeEverySecond();

    // What becomes of the next conversion, the one after it, and so on.

    Q_INVOKABLE void willComplete();
    /// It completes after 6 of the source's 10 seconds.
    Q_INVOKABLE void willEndEarly();
    Q_INVOKABLE void willFail(const QString &message);
    Q_INVOKABLE void willBeCancelled();
    /// It reports the first fraction and stays there until goOn(); so it does with each, and
    /// completes after the last.
    Q_INVOKABLE void willStayAt(const QList<double> &fractions);

    /// Starts the batch and waits until it has ended or its conversion stays at a fraction. False
    /// when neither happens in time.
    Q_INVOKABLE bool convert();

    /// Lets the conversion go on and waits as convert() does.
    Q_INVOKABLE bool goOn();

    /// Cancels the batch and waits for its end.
    Q_INVOKABLE bool cancel();

    /// The local path that becomes the output folder, or an empty one for none.
    Q_INVOKABLE void chooseDestination(const QString &path);
    /// A folder that the stand-in tools can write into becomes the output folder.
    Q_INVOKABLE void chooseRealDestination();

    /// What the user chooses in the next panel.
    Q_INVOKABLE void answer(const QStringList &paths);

    /// A key is still held: the keyboard repeats it so often, each time as a release and a press.
    Q_INVOKABLE void repeatKey(int key, int count);

    /// The mouse's left button, which has just clicked, wherever that was, goes down again at a
    /// place of the item.
    Q_INVOKABLE static void pressAgain(QQuickItem *item, double x, double y);

    /// A dialog comes up, takes the keyboard from the window that is tested, and goes again. False
    /// when the window does not lose and get it in time.
    Q_INVOKABLE bool interruptByDialog();

    Q_INVOKABLE void removeTool();
    Q_INVOKABLE void putToolBack();

Q_SIGNALS:
    void begun();

private:
    void setNextRun(const Script &script);
    bool rests();
    void end();
    QString stayPath(int stay) const;

    const QFont m_noFont;
    std::unique_ptr<Queue> m_queue;
    int m_runs = 0;            // of ffmpeg that have been told what to do
    QList<double> m_fractions; // that conversions stay at
    int m_stay = 0;            // the index of the one that is next
};

} // namespace quorvale::test

// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// A stand-in for a file manager: a small window that drags the local files named on the command
// line when the mouse presses and moves it. What becomes of a drag is said on standard output, a
// line each:
//
//   entered        the mouse is above the small window
//   dragging       the drag begins
//   action NAME    what the window under the mouse would do with it has changed
//   dropped NAME   the drag is over; this is being done
//   fetched        the window has what it took; until then this program is to stay
//
// NAME is "ignore" when nothing is done, otherwise "take".

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

void say(const char *what)
{
    std::puts(what);
    std::fflush(stdout);
}

class DragSource : public QWidget
{
public:
    explicit DragSource(const QStringList &arguments) : m_arguments(arguments)
    {
        setWindowTitle(u"Drag source"_s);
        resize(160, 160);
    }

protected:
    void enterEvent(QEnterEvent * /*event*/) override { say("entered"); }

    void mousePressEvent(QMouseEvent *event) override { m_pressed = event->position(); }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        const double distance = (event->position() - m_pressed).manhattanLength();
        if (distance >= QApplication::startDragDistance())
            drag();
    }

private:
    void drag()
    {
        // Qt deletes it when the other side has said that it has finished.
        auto *drag = new QDrag(this);
        drag->setMimeData(content());
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            say(action == Qt::IgnoreAction ? "action ignore" : "action take");
        });
        connect(drag, &QObject::destroyed, this, [] { say("fetched"); });
        say("dragging");
        const Qt::DropAction result = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
        // The other side must have been told how it ended, even if this program is killed now:
        // until then it takes the next drag for a part of this one.
        QGuiApplication::sync();
        say(result == Qt::IgnoreAction ? "dropped ignore" : "dropped take");
    }

    QMimeData *content() const
    {
        auto *data = new QMimeData;
        QList<QUrl> urls;
        for (const QString &file : m_arguments)
            urls << (file.startsWith(u'/') ? QUrl::fromLocalFile(file)
                                           : QUrl::fromEncoded(file.toUtf8()));
        data->setUrls(urls);
        return data;
    }

    const QStringList m_arguments;
    QPointF m_pressed;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments().sliced(1);
    if (arguments.isEmpty()) {
        std::fputs("usage: dragsource FILE...\n", stderr);
        return EXIT_FAILURE;
    }
    DragSource source(arguments);
    source.show();
    return QApplication::exec();
}

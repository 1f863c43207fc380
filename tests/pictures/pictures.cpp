// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "scene.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QQuickWindow>

#include <cstdlib>

using namespace Qt::StringLiterals;

// Takes a picture of the window in each of its states, light and dark, into the folder that is
// named. With the software renderer, so that every machine draws the same.
int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QApplication application(argc, argv);
    if (argc != 2) {
        qWarning("usage: pictures FOLDER");
        return EXIT_FAILURE;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QPalette light(QColor(0xf5, 0xf5, 0xf7), QColor(0xf5, 0xf5, 0xf7));
    const QPalette dark(QColor(0x3a, 0x3a, 0x40), QColor(0x1f, 0x1f, 0x23));
    for (const auto &[scheme, palette] :
         {std::pair(u"light"_s, light), std::pair(u"dark"_s, dark)}) {
        QApplication::setPalette(palette);
        for (const quorvale::test::Scene::State state : quorvale::test::Scene::allStates()) {
            quorvale::test::Scene scene;
            const QString name = quorvale::test::Scene::name(state) + u'-' + scheme + u".png"_s;
            if (!scene.enter(state) || !scene.picture().save(folder.filePath(name))) {
                qWarning("Could not make %s", qPrintable(name));
                return EXIT_FAILURE;
            }
        }
    }
    return EXIT_SUCCESS;
}

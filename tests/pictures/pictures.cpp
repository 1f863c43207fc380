// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "scene.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>
#include <QQuickWindow>

#include <cstdlib>

using namespace Qt::StringLiterals;

// Takes a picture of the window in each of its states, light and dark, into the folder that is
// named, with texts of so many points, as desktops set them, or of the default size. With the
// software renderer and one font, so that every machine draws the same.
int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QApplication application(argc, argv);
    constexpr double defaultPoints = 9.75;
    const double points = argc == 3 ? QByteArray(argv[2]).toDouble() : defaultPoints;
    if (argc < 2 || argc > 3 || !(points > 0)) {
        qWarning("usage: pictures FOLDER [POINTS]");
        return EXIT_FAILURE;
    }
    QFont font(u"Inter"_s);
    font.setPointSizeF(points);
    if (!QFontDatabase::hasFamily(font.family())) {
        qWarning("The font %s is not installed", qPrintable(font.family()));
        return EXIT_FAILURE;
    }
    QApplication::setFont(font);
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

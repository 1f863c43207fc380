// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include "drawnitem.h"

#include <QPainter>
#include <QQmlComponent>
#include <QQmlExtensionPlugin>

#include <stdexcept>

Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

namespace quorvale::test {

using namespace Qt::StringLiterals;

QImage drawn(const DrawnItem &item, qreal ratio, qreal margin)
{
    const QSizeF size = item.size() + QSizeF(2 * margin, 2 * margin);
    QImage image((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(margin, margin);
    item.draw(painter, 1 / ratio);
    return image;
}

QRgb pixelAt(const QImage &image, QPointF place, qreal margin)
{
    const QPointF pixel = (place + QPointF(margin, margin)) * image.devicePixelRatio();
    return image.convertToFormat(QImage::Format_ARGB32).pixel(qFloor(pixel.x()), qFloor(pixel.y()));
}

bool isAll(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto isPart = [&](int found, int whole) {
                return std::abs(found - whole * qAlpha(line[x]) / 255) <= 1;
            };
            if (!isPart(qRed(line[x]), color.red()) || !isPart(qGreen(line[x]), color.green())
                || !isPart(qBlue(line[x]), color.blue()))
                return false;
        }
    }
    return true;
}

bool Stage::renderInSoftware()
{
    // Without the graphics driver, which may have remarks of its own. Once, before the first
    // window.
    static const bool isSet = [] {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        return true;
    }();
    return isSet;
}

Stage::Stage()
{
    m_engine.addImportPath(u":/qt/qml"_s);
    m_window.resize(200, 200);
    m_window.setColor(Qt::white);
}

QQuickItem &Stage::show(const QByteArray &code)
{
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick\nimport Quorvale.Style\n" + code, {});
    std::unique_ptr<QObject> object(component.create());
    auto *item = qobject_cast<QQuickItem *>(object.get());
    if (!item)
        throw std::runtime_error(qPrintable(component.errorString()));
    object.release();
    m_item.reset(item);
    show(*item);
    return *item;
}

void Stage::show(QQuickItem &item)
{
    item.setParentItem(m_window.contentItem());
    item.setPosition({20, 20});
}

QImage Stage::picture()
{
    m_window.show();
    QImage picture = m_window.grabWindow();
    // The software renderer leaves it at 1.
    picture.setDevicePixelRatio(m_window.effectiveDevicePixelRatio());
    return picture;
}

} // namespace quorvale::test

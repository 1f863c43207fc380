// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/virtualdisplay.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QTimer>

namespace quorvale::test {

/// What the virtual display shows in the area, mouse pointer included; null when that cannot be
/// read.
inline QImage imageOf(const VirtualDisplay &display, const QRect &area)
{
    const QByteArray pixels = display.picture(area);
    const qsizetype lineBytes = qsizetype{4} * area.width();
    if (pixels.size() != lineBytes * area.height())
        return {};
    return QImage(reinterpret_cast<const uchar *>(pixels.constData()), area.width(), area.height(),
                  lineBytes, QImage::Format_RGB32)
        .copy(); // with pixels of its own
}

/// A window on the user's own display that shows what happens on the virtual one, as large as there
/// is room for. It takes neither the mouse nor the keyboard there.
class DisplayView : public QRasterWindow
{
public:
    explicit DisplayView(const VirtualDisplay &display) : m_display(display)
    {
        setTitle(QStringLiteral("Quorvale at work, on a virtual display"));
        const QSize room = screen()->availableSize() * 0.9;
        resize(
            VirtualDisplay::size.boundedTo(VirtualDisplay::size.scaled(room, Qt::KeepAspectRatio)));
        connect(&m_timer, &QTimer::timeout, this, [this] { update(); });
        constexpr int milliseconds = 80;
        m_timer.start(milliseconds);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QRect target(QPoint(), VirtualDisplay::size.scaled(size(), Qt::KeepAspectRatio));
        target.moveCenter(QRect(QPoint(), size()).center());
        QPainter painter(this);
        painter.fillRect(QRect(QPoint(), size()), Qt::black);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, imageOf(m_display, QRect(QPoint(), VirtualDisplay::size)));
    }

private:
    const VirtualDisplay &m_display;
    QTimer m_timer;
};

} // namespace quorvale::test

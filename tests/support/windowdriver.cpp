// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowdriver.h"

#include "virtualdisplay.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

bool WindowDriver::find()
{
    m_window = m_display.waitForWindow(u"Quorvale"_s).value_or(QString());
    if (m_window.isEmpty())
        return false;
    m_area = m_display.areaOf(m_window).value_or(QRect());
    const auto isDrawn = [this] { // with more than the blank that a new window is
        const QByteArray picture = m_display.picture(m_area);
        return !picture.isEmpty() && picture.sliced(4) != picture.chopped(4);
    };
    if (QTest::qWaitFor(isDrawn, 30'000))
        return true;
    qWarning("The window stays blank.");
    return false;
}

QByteArray WindowDriver::restingPicture() const
{
    return m_display.restingPicture(m_area);
}

bool WindowDriver::chooseOutputFolder(const QString &folder)
{
    const QString title = u"Choose output folder"_s;
    if (!click({400, m_area.height() - 40}))
        return false;
    const auto dialog = m_display.waitForWindow(title);
    if (!dialog || !m_display.activate(*dialog)
        || !m_display.xdotool({u"type"_s, u"--delay"_s, u"5"_s, folder}))
        return false;
    // The first Return may go to the list that offers completions.
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (!press(u"Return"_s))
            return false;
        if (m_display.waitForNoWindow(title, 3000))
            return true;
    }
    qWarning("The dialog does not close.");
    return false;
}

bool WindowDriver::chooseCodec(OutputCodec codec)
{
    return click({155, 133 + 42 * static_cast<int>(codec)});
}

bool WindowDriver::convert()
{
    return click({m_area.width() - 100, m_area.height() - 40});
}

bool WindowDriver::close()
{
    return m_display.activate(m_window) && press(u"alt+F4"_s);
}

bool WindowDriver::click(const QPoint &place) const
{
    const QPoint point = m_area.topLeft() + place;
    return m_display.activate(m_window)
           && m_display.xdotool({u"mousemove"_s, QString::number(point.x()),
                                 QString::number(point.y()), u"click"_s, u"1"_s})
           && m_display.parkMouse();
}

bool WindowDriver::press(const QString &key) const
{
    return m_display.xdotool({u"key"_s, key}).has_value();
}

} // namespace quorvale::test
